#include "app/layout/LineRole.h"

#include "delimited/layout/TextLayout.h"
#include "delimited/sample/FieldSplitter.h"
#include "delimited/sample/TextSample.h"
#include "views/text/ScreenText.h"

#include <QCoreApplication>
#include <QPalette>

#include <algorithm>

namespace pellam {

namespace {

constexpr std::size_t kLines = 200;
constexpr std::size_t kShown = 2000; ///< bytes of a line

LineRole roleOf(std::int64_t line, std::string_view text, const TextLayout& layout) {
    const bool blank = text.find_first_not_of(" \t,;|") == std::string_view::npos;
    if (!layout.notATable.empty() || blank) return LineRole::None;
    if (line >= layout.firstDataLine) {
        const bool behind = layout.lastDataLine > 0 && line > layout.lastDataLine;
        const bool comment = !layout.comment.empty() && text.starts_with(layout.comment);
        return behind || comment ? LineRole::None : LineRole::Data;
    }
    if (line == layout.unitsLine) return LineRole::Units;
    const std::int64_t headings = layout.headingsLine;
    if (headings == 0 || line < headings) return LineRole::Description;
    return line < headings + layout.headingLines ? LineRole::Headings : LineRole::None;
}

std::vector<SampleLine::Span> timesOf(std::string_view text, const TextLayout& layout) {
    std::vector<SampleLine::Span> spans;
    const auto& columns = layout.timeColumns;
    FieldSplitter splitter(text, layout.dialect);
    FieldSplitter::Field field;
    for (std::size_t column = 0; splitter.next(field); ++column) {
        if (std::find(columns.begin(), columns.end(), column) == columns.end()) continue;
        const auto before = static_cast<std::size_t>(field.text.data() - text.data());
        spans.push_back({static_cast<int>(screenText(text.substr(0, before)).size()),
                         static_cast<int>(screenText(field.text).size())});
    }
    return spans;
}

} // namespace

QString roleName(LineRole role) {
    const auto tr = [](const char* text) {
        return QCoreApplication::translate("pellam::LineRole", text);
    };
    switch (role) {
    case LineRole::Description:
        return tr("Description");
    case LineRole::Headings:
        return tr("Headings");
    case LineRole::Units:
        return tr("Units");
    case LineRole::Data:
        return tr("Data");
    case LineRole::Time:
        return tr("Time");
    default:
        return {};
    }
}

QColor roleTint(LineRole role, const QPalette& palette) {
    const QColor base = palette.color(QPalette::Base);
    const bool dark = base.lightness() < 128;
    // Hues that people who confuse red and green can tell apart.
    QColor hue;
    switch (role) {
    case LineRole::Description:
        hue = QColor(128, 128, 128);
        break;
    case LineRole::Headings:
        hue = QColor(0, 114, 206);
        break;
    case LineRole::Units:
        hue = QColor(170, 70, 190);
        break;
    case LineRole::Data:
        hue = QColor(0, 158, 115);
        break;
    case LineRole::Time:
        hue = QColor(230, 150, 0);
        break;
    default:
        return base;
    }
    double share = role == LineRole::Data || role == LineRole::Description ? 0.14 : 0.28;
    if (dark) share += 0.10;
    const auto mix = [share](int under, int over) {
        return static_cast<int>(under * (1 - share) + over * share);
    };
    return {mix(base.red(), hue.red()), mix(base.green(), hue.green()),
            mix(base.blue(), hue.blue())};
}

std::vector<SampleLine> sampleLines(const TextSample& sample, const TextLayout& layout) {
    std::vector<SampleLine> lines;
    std::string_view rest = sample.head;
    while (!rest.empty() && lines.size() < kLines) {
        const std::string_view text = takeLine(rest);
        SampleLine& line = lines.emplace_back();
        line.role = roleOf(static_cast<std::int64_t>(lines.size()), text, layout);
        line.text = screenText(text.substr(0, kShown));
        line.text.replace(QChar(0), QChar(0xFFFD));
        if (text.size() > kShown) line.text += QChar(0x2026);
        if (line.role == LineRole::Data) line.times = timesOf(text.substr(0, kShown), layout);
    }
    return lines;
}

} // namespace pellam
