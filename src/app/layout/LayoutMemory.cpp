#include "app/layout/LayoutMemory.h"

#include "delimited/layout/LayoutOptions.h"
#include "settings/ProfileKeys.h"
#include "settings/SettingsStore.h"

#include <QCryptographicHash>
#include <QHash>
#include <QUrlQuery>

#include <algorithm>
#include <map>
#include <optional>
#include <span>

namespace pellam {

namespace {

constexpr std::size_t kLinesSearched = 500;
constexpr int kMostHeadingLines = 20;

const QString kHeadings = QStringLiteral("headings");
const QString kLine = QStringLiteral("line");
const QString kLines = QStringLiteral("lines");

std::vector<std::string_view> linesOf(const TextSample& sample) {
    std::vector<std::string_view> lines;
    for (std::string_view rest = sample.head; !rest.empty() && lines.size() < kLinesSearched;)
        lines.push_back(takeLine(rest));
    return lines;
}

// Hash of some lines; empty when there is nothing in them or they are not there.
QString hashOf(std::span<const std::string_view> all, std::int64_t line, int count) {
    const auto first = static_cast<std::size_t>(line - 1);
    if (line < 1 || count < 1 || first + static_cast<std::size_t>(count) > all.size()) return {};
    QCryptographicHash hash(QCryptographicHash::Sha1);
    bool blank = true;
    for (const std::string_view text : all.subspan(first, static_cast<std::size_t>(count))) {
        blank = blank && text.find_first_not_of(" \t,;|") == std::string_view::npos;
        hash.addData(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
        hash.addData(QByteArrayView("\n"));
    }
    return blank ? QString() : QString::fromLatin1(hash.result().toHex().left(16));
}

// Finds headings by their hash in the beginning of a file.
class HeadingSearch {
  public:
    explicit HeadingSearch(const TextSample& sample) : m_lines(linesOf(sample)) {}

    // The first line at which they stand; nothing when they don't.
    std::optional<std::int64_t> lineOf(const QString& headings, int count) {
        auto& known = m_known[count];
        if (known.isEmpty()) {
            for (auto line = std::ssize(m_lines); line >= 1; --line)
                known.insert(hashOf(m_lines, line, count), line);
        }
        const auto found = known.constFind(headings);
        return found == known.constEnd() ? std::nullopt : std::optional(found.value());
    }

  private:
    std::vector<std::string_view> m_lines;
    std::map<int, QHash<QString, std::int64_t>> m_known; ///< by how many lines
};

void move(std::optional<std::int64_t>& line, std::int64_t by) {
    if (line && *line > 0) line = std::max<std::int64_t>(1, *line + by);
}

} // namespace

LayoutWishes LayoutMemory::recall(const TextSample& sample) const {
    const std::vector<Entry> entries = stored();
    if (entries.empty()) return {};
    HeadingSearch search(sample);
    for (const Entry& entry : entries) {
        const auto line = search.lineOf(entry.headings, entry.lines);
        if (!line) continue;
        LayoutWishes wishes = entry.wishes;
        for (auto* told : {&wishes.headingsLine, &wishes.unitsLine, &wishes.dataLine})
            move(*told, *line - entry.line);
        return wishes;
    }
    return {};
}

bool LayoutMemory::remember(const TextSample& sample, const TextLayout& layout,
                            const LayoutWishes& wishes) {
    std::vector<Entry> entries = stored();
    const std::size_t before = entries.size();
    HeadingSearch search(sample);
    std::erase_if(entries, [&search](const Entry& entry) {
        return search.lineOf(entry.headings, entry.lines).has_value();
    });
    const bool kept = wishes.any() && canRemember(sample, layout);
    if (kept) {
        const QString headings = hashOf(linesOf(sample), layout.headingsLine, layout.headingLines);
        entries.insert(entries.begin(),
                       {headings, layout.headingsLine, layout.headingLines, wishes});
        entries.resize(std::min(entries.size(), kMaximum));
    }
    if (kept || entries.size() != before) store(entries);
    return kept;
}

bool LayoutMemory::canRemember(const TextSample& sample, const TextLayout& layout) {
    return layout.headingsLine > 0 && layout.headingLines <= kMostHeadingLines &&
           !hashOf(linesOf(sample), layout.headingsLine, layout.headingLines).isEmpty();
}

std::vector<LayoutMemory::Entry> LayoutMemory::stored() const {
    std::vector<Entry> entries;
    const QString text =
        m_settings.GetProfileString(profile::kTextLayoutSection, profile::kTextLayouts);
    for (const QString& item : text.split(u' ', Qt::SkipEmptyParts)) {
        Entry entry;
        for (const auto& [key, value] : QUrlQuery(item).queryItems(QUrl::FullyDecoded)) {
            if (key == kHeadings) {
                entry.headings = value;
            } else if (key == kLine) {
                entry.line = value.toLongLong();
            } else if (key == kLines) {
                entry.lines = value.toInt();
            } else {
                LayoutOptions::take(key.toStdString(), value.toStdString(), entry.wishes);
            }
        }
        const bool whole = !entry.headings.isEmpty() && entry.line > 0 && entry.lines > 0 &&
                           entry.lines <= kMostHeadingLines && entry.wishes.any();
        if (whole && entries.size() < kMaximum) entries.push_back(std::move(entry));
    }
    return entries;
}

void LayoutMemory::store(const std::vector<Entry>& entries) {
    QStringList items;
    const auto encoded = [](const std::string& text) {
        return QString::fromLatin1(QUrl::toPercentEncoding(QString::fromStdString(text)));
    };
    for (const Entry& entry : entries) {
        QString item = QStringLiteral("headings=%1&line=%2&lines=%3")
                           .arg(entry.headings)
                           .arg(entry.line)
                           .arg(entry.lines);
        for (const auto& [name, value] : LayoutOptions::listOf(entry.wishes))
            item += u'&' + QString::fromStdString(name) + u'=' + encoded(value);
        items += item;
    }
    m_settings.WriteProfileString(profile::kTextLayoutSection, profile::kTextLayouts,
                                  items.join(u' '));
}

} // namespace pellam
