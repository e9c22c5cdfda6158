#include "trend/layout/TrendLayout.h"

#include "trend/curves/TrendChart.h"
#include "trend/layout/LegendLayout.h"
#include "trend/layout/ScaleLayout.h"
#include "trend/layout/TextMeasure.h"
#include "trend/ticks/XAxisTicks.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>

namespace pellam {
namespace {

QFont chartFont(const TrendState& state) {
    const double factor = std::clamp(state.fontScaleFactor, 0.1, 1.0);
    QFont font(state.fontName);
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(
        std::max(6, static_cast<int>(std::lround(state.baseFontPixels * (0.6 + 0.8 * factor)))));
    return font;
}

double placeHead(const TrendChart& chart, TrendLayout& layout, double margin) {
    double top = margin;
    if (!chart.state.title.isEmpty()) {
        const double height = std::ceil(TextMeasure::of(layout.titleFont).height());
        layout.title = QRectF(margin, top, std::max(0.0, layout.size.width() - 2 * margin), height);
        top = layout.title.bottom() + margin;
    }
    LegendLayout::place(chart, top, layout);
    return layout.legend.height() > 0 ? layout.legend.bottom() + margin : top;
}

// A note that is wider than the chart goes on in a second line, which ends in an ellipsis if need
// be.
QStringList noteIn(TextMeasure& metrics, const QString& note, double width) {
    if (metrics.width(note) <= width) return {note};
    qsizetype end = -1;
    for (qsizetype next = note.indexOf(u' '); next >= 0; next = note.indexOf(u' ', next + 1)) {
        if (metrics.width(note.left(next)) > width) break;
        end = next;
    }
    if (end < 0) return {metrics.elided(note, width)};
    return {note.left(end), metrics.elided(note.mid(end + 1), width)};
}

double placeFoot(const TrendChart& chart, TrendLayout& layout, double margin) {
    TextMeasure& metrics = TextMeasure::of(layout.font);
    const double width = layout.size.width() - 2 * margin;
    const QStringList lines = chart.noteLines();
    const double line = std::ceil(metrics.height());
    const auto room = static_cast<qsizetype>(layout.size.height() / 5 / line);
    for (const QString& note : lines)
        layout.noteLines += noteIn(metrics, note, width);
    layout.noteLines = layout.noteLines.first(std::min(room, layout.noteLines.size()));
    const double height = line * static_cast<double>(layout.noteLines.size());
    const double bottom = layout.size.height() - margin / 2;
    layout.notes = QRectF(margin, bottom - height, std::max(0.0, width), height);
    return height > 0 ? layout.notes.top() - margin / 2 : bottom;
}

// Fewer labels are asked for until the widest has room around it.
int timeLabelCount(const TrendLayout& layout, const XAxisTicks& ticks) {
    TextMeasure& metrics = TextMeasure::of(layout.font);
    int labels = std::max(2, static_cast<int>(layout.plot.width() / (3 * metrics.height())));
    for (; labels > 1; --labels) {
        const QString sample =
            ticks.sampleLabel(layout.timeMap.min(), layout.timeMap.max(), labels);
        const double wide = metrics.width(sample) + 1.8 * metrics.height();
        if (wide * labels <= layout.plot.width()) break;
    }
    return labels;
}

// Of the upper line of labels; the dates stand a line below.
double timeLabelTop(const TrendLayout& layout) {
    return layout.timeAxis.top() + std::round(TextMeasure::of(layout.font).height() * 0.4) + 2;
}

// In the line of the dates, at the axis' start.
AxisLabel startLabel(const TrendLayout& layout, const QString& text) {
    TextMeasure& metrics = TextMeasure::of(layout.font);
    const double height = metrics.height();
    const double width = metrics.width(text) + 1;
    const double left = std::min(layout.plot.left(), layout.size.width() - width - 1);
    return {QRectF(std::max(0.0, left), timeLabelTop(layout) + height, width, height), text, true};
}

// A label that would touch the one before is left out. Gives how many labels there are, those of
// the second line not counted.
int placeTimeLabels(TrendLayout& layout) {
    TextMeasure& metrics = TextMeasure::of(layout.font);
    const double height = metrics.height();
    const double top = timeLabelTop(layout);
    double lastLabel = -1e9;
    double lastContext = -1e9;
    std::size_t firstContext = 0;
    int placed = 0;
    layout.timeLabels.clear();
    const QString& start = layout.timeMarks.start;
    if (!start.isEmpty()) {
        layout.timeLabels.push_back(startLabel(layout, start));
        lastContext = layout.timeLabels.back().rect.right();
        firstContext = 1;
    }
    for (const AxisTick& tick : layout.timeMarks.ticks) {
        const double x = layout.timeMap.toPixel(tick.value);
        const auto place = [&](const QString& text, double y) {
            const double width = metrics.width(text) + 1;
            const double most = std::max(0.0, layout.size.width() - width - 1);
            return QRectF(std::clamp(x - width / 2, 0.0, most), y, width, height);
        };
        if (!tick.label.isEmpty()) {
            const QRectF rect = place(tick.label, top);
            if (rect.left() > lastLabel + 0.4 * height) {
                layout.timeLabels.push_back({rect, tick.label, false});
                ++placed;
                lastLabel = rect.right();
            }
        }
        if (tick.context.isEmpty() || tick.context == start) continue;
        const QRectF rect = place(tick.context, top + height);
        if (rect.left() <= lastContext + 0.6 * height) {
            // The date that changes soon after the start says more than the one at the start.
            if (firstContext == 0) continue;
            layout.timeLabels[firstContext - 1] = {rect, tick.context, true};
            firstContext = 0;
        } else {
            layout.timeLabels.push_back({rect, tick.context, true});
            firstContext = lastContext < 0 ? layout.timeLabels.size() : 0;
        }
        lastContext = rect.right();
    }
    return placed;
}

void tellStep(TrendLayout& layout) {
    TextMeasure& metrics = TextMeasure::of(layout.font);
    std::erase_if(layout.timeLabels, [](const AxisLabel& label) { return label.context; });
    const TimeMarks& marks = layout.timeMarks;
    if (marks.step.isEmpty()) return;
    QString text = QCoreApplication::translate("pellam::TrendLayout", "marks: %1").arg(marks.step);
    if (!marks.start.isEmpty()) text = marks.start + QStringLiteral(" · ") + text;
    text = metrics.elided(text, layout.size.width() - 2, Qt::ElideLeft);
    layout.timeLabels.push_back(startLabel(layout, text));
}

// One label alone gives no measure: more are tried for, and where there is no room for two, the
// step is told behind the date.
void labelTimeAxis(TrendLayout& layout, const TrendState& state, const TimeTicks& times) {
    const double from = layout.timeMap.min();
    const double to = layout.timeMap.max();
    const XAxisTicks axis(state.xAxis, times);
    const int most = timeLabelCount(layout, axis);
    const auto label = [&](int labels) {
        layout.timeMarks = axis.find(from, to, labels);
        for (AxisTick& tick : layout.timeMarks.ticks)
            tick.label = state.numbers(std::move(tick.label));
        return placeTimeLabels(layout);
    };
    constexpr int kTries = 6;
    int labels = most;
    while (label(labels) < 2 && labels < most + kTries)
        ++labels;
    if (labels < most + kTries) return;
    for (labels = most; label(labels) == 0 && labels < most + kTries;)
        ++labels;
    tellStep(layout);
}

// Times so near to each other that doubles can't tell what lies between them stand in the middle of
// the shortest span that can be drawn.
ScaleMap timeMapOf(const TrendState& state, const QRectF& plot) {
    const double missing = std::abs(state.timeMax) * 2e-14 - (state.timeMax - state.timeMin);
    const double more = state.timeMax > state.timeMin ? std::max(0.0, missing / 2) : 0;
    return {state.timeMin - more, state.timeMax + more, false, plot.left(), plot.right()};
}

} // namespace

TrendLayout TrendLayout::compute(const TrendChart& chart, const QSizeF& size,
                                 const TimeTicks& times) {
    TrendLayout layout;
    layout.size = QSizeF(std::max(8.0, size.width()), std::max(8.0, size.height()));
    layout.font = chartFont(chart.state);
    layout.titleFont = layout.font;
    layout.titleFont.setPixelSize(static_cast<int>(std::lround(layout.font.pixelSize() * 1.25)));
    layout.titleFont.setWeight(QFont::DemiBold);
    TextMeasure& metrics = TextMeasure::of(layout.font);
    const double margin = std::round(metrics.height() * 0.6);
    const double top = placeHead(chart, layout, margin);
    const double bottom = placeFoot(chart, layout, margin);
    const double axisHeight = std::ceil(2 * metrics.height() + metrics.height() * 0.4 + 4);

    layout.plot = QRectF(QPointF(std::round(margin / 2), std::round(top)),
                         QPointF(std::floor(layout.size.width() - margin / 2),
                                 std::max(std::floor(bottom - axisHeight), std::round(top) + 2)));
    ScaleLayout::place(chart, layout);
    // Without a scale on a side the time labels at that end need some room.
    const double least = std::min(layout.size.width() / 8, metrics.width(QStringLiteral("0")) * 4);
    layout.plot.setLeft(std::round(std::max(layout.plot.left(), least)));
    layout.plot.setRight(
        std::max(layout.plot.left() + 2,
                 std::floor(std::min(layout.plot.right(), layout.size.width() - least))));
    for (ScaleBand& band : layout.scales) {
        band.band.setLeft(layout.plot.left());
        band.band.setRight(layout.plot.right());
    }
    layout.timeAxis =
        QRectF(layout.plot.left(), layout.plot.bottom(), layout.plot.width(), axisHeight);
    layout.timeMap = timeMapOf(chart.state, layout.plot);
    labelTimeAxis(layout, chart.state, times);
    return layout;
}

const ScaleBand* TrendLayout::scale(int axis) const {
    for (const ScaleBand& band : scales)
        if (band.axis == axis) return &band;
    return nullptr;
}

TrendHit TrendLayout::hit(const QPointF& point) const {
    for (const LegendItem& item : legendItems)
        if (item.rect.contains(point)) return {TrendPart::Legend, item.curve};
    if (legendMore.contains(point)) return {TrendPart::LegendMore, 0};
    for (const ScaleBand& band : scales)
        if (band.rect.contains(point)) return {TrendPart::Scale, band.axis};
    if (plot.contains(point)) return {TrendPart::Plot, 0};
    if (timeAxis.contains(point)) return {TrendPart::TimeAxis, 0};
    return {};
}

} // namespace pellam
