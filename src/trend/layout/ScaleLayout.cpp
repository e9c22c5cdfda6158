#include "trend/layout/ScaleLayout.h"

#include "trend/curves/TrendChart.h"
#include "trend/layout/TextMeasure.h"
#include "trend/layout/TrendLayout.h"
#include "trend/ticks/DecimalTicks.h"
#include "trend/ticks/LogTicks.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace pellam {
namespace {

std::vector<ScaleBand> shownScales(const TrendChart& chart) {
    std::vector<ScaleBand> bands;
    for (int axis = 1; axis <= trendScaleCount; ++axis) {
        const TrendScale& scale = *chart.scale(axis);
        if (!scale.enabled) continue;
        ScaleBand band;
        band.axis = axis;
        band.idle = chart.isIdle(axis);
        band.right = scale.position.side != 0;
        bands.push_back(band);
    }
    const auto order = [&](const ScaleBand& band) {
        const ScalePosition& at = chart.scale(band.axis)->position;
        return std::tuple(at.side, at.column, at.position, band.axis);
    };
    std::sort(bands.begin(), bands.end(),
              [&](const ScaleBand& a, const ScaleBand& b) { return order(a) < order(b); });
    return bands;
}

int percent(const TrendChart& chart, const ScaleBand& band) {
    return std::clamp(chart.scale(band.axis)->position.heightPercent, 1, 100);
}

// Percents are whole numbers: what six times 16 leaves over is shared out.
double stretch(int total) {
    return total >= 95 && total < 100 ? 100.0 / total : 1.0;
}

void placeBands(const TrendChart& chart, std::vector<ScaleBand>& bands, const QRectF& plot,
                double gap) {
    int total = 0;
    for (const ScaleBand& band : bands)
        total += percent(chart, band);
    const bool strip = total <= 100 && bands.size() > 1;
    double start = 0;
    std::pair<int, int> column{-1, -1};
    for (ScaleBand& band : bands) {
        const ScalePosition& at = chart.scale(band.axis)->position;
        if (!strip && column != std::pair(at.side, at.column)) start = 0;
        column = {at.side, at.column};
        const double part = percent(chart, band) * (strip ? stretch(total) : 1.0) / 100;
        const double end = std::min(1.0, start + part);
        const double top = plot.top() + std::round(plot.height() * start) + (start > 0 ? gap : 0);
        const double bottom = plot.top() + std::round(plot.height() * end);
        band.band = QRectF(plot.left(), top, plot.width(), std::max(1.0, bottom - top));
        start = std::min(end, 0.99);
    }
}

void findTicks(const TrendState& state, ScaleBand& band, TextMeasure& metrics) {
    const TrendScale& scale = state.scales[static_cast<std::size_t>(band.axis - 1)];
    band.map = scale.map(band.band.bottom(), band.band.top());
    const int room =
        std::min(20, static_cast<int>(band.band.height() / metrics.height() / 2.4)) + 1;
    const auto isMajor = [](const AxisTick& tick) { return tick.major; };
    for (int labels = room; labels <= room + 3; ++labels) { // one label alone gives no measure
        band.ticks = band.map.logarithmic()
                         ? LogTicks::find(band.map.min(), band.map.max(), labels)
                         : DecimalTicks::find(band.map.min(), band.map.max(), labels);
        if (std::count_if(band.ticks.begin(), band.ticks.end(), isMajor) > 1) break;
    }
    for (AxisTick& tick : band.ticks)
        tick.label = state.numbers(std::move(tick.label));
}

// What the labels of a column of scales need, and what is kept for them.
struct ColumnWidth {
    double labels = 0;
    double whole = 0;
};

// Side (true = right) and column.
using ColumnWidths = std::map<std::pair<bool, int>, ColumnWidth>;

// Where the curves would have too little room, the outermost columns are not shown.
void dropOuterColumns(ColumnWidths& widths, double most) {
    const auto total = [&] {
        double sum = 0;
        for (const auto& [column, width] : widths)
            sum += width.whole;
        return sum;
    };
    const auto nearer = [](const auto& a, const auto& b) {
        return std::pair(a.first.second, a.first.first) < std::pair(b.first.second, b.first.first);
    };
    while (widths.size() > 1 && total() > most)
        widths.erase(std::max_element(widths.begin(), widths.end(), nearer));
}

double labelWidth(const ScaleBand& band, TextMeasure& metrics) {
    double width = 0;
    for (const AxisTick& tick : band.ticks)
        width = std::max(width, metrics.width(tick.label));
    const double grain =
        std::max(4.0, metrics.height() / 2); // so that zooming seldom moves the plot
    return std::ceil(width / grain) * grain;
}

void placeLabels(ScaleBand& band, TextMeasure& metrics, double tickLength) {
    const double height = metrics.height();
    double above = 1e9; // top of the label placed last, from below
    for (const AxisTick& tick : band.ticks) {
        if (tick.label.isEmpty()) continue;
        double top = std::round(band.map.toPixel(tick.value) - height / 2);
        top = std::clamp(top, band.band.top() - height * 0.45,
                         std::max(band.band.top(), band.band.bottom() - height * 0.55));
        if (top + height * 0.9 > above) continue;
        above = top;
        const double width = metrics.width(tick.label) + 1;
        const double x = band.right ? band.rect.left() + tickLength + 3
                                    : band.rect.right() - tickLength - 3 - width;
        band.labels.push_back({QRectF(x, top, width, height), tick.label, false});
    }
}

// Beside the labels: at the column's edge it would seem to belong to the next scale.
void placeTitle(const TrendScale& scale, ScaleBand& band, TextMeasure& metrics, double away) {
    const double height = std::ceil(metrics.height());
    band.titleText = metrics.elided(scale.text, band.band.height());
    const double x = band.right ? std::min(band.rect.left() + away, band.rect.right() - height - 2)
                                : std::max(band.rect.right() - away - height, band.rect.left() + 2);
    band.title = QRectF(x, band.band.top(), height, band.band.height());
}

// Finds the ticks of all scales, and what their columns need.
ColumnWidths measureColumns(const TrendChart& chart, TrendLayout& layout, TextMeasure& metrics,
                            double tickLength) {
    // A wide chart keeps room for longer labels, so that zooming seldom moves its plot.
    const bool wide = layout.size.width() > 60 * metrics.height();
    const double least = metrics.width(wide ? QStringLiteral("0000") : QStringLiteral("00"));
    ColumnWidths widths; // of each column, nearest to the plot first
    for (ScaleBand& band : layout.scales) {
        const TrendScale& scale = *chart.scale(band.axis);
        findTicks(chart.state, band, metrics);
        if (!scale.position.visible) continue;
        const double title = scale.text.isEmpty() ? 0 : std::ceil(metrics.height()) + 2;
        ColumnWidth& width = widths[{band.right, scale.position.column}];
        if (!band.idle) width.labels = std::max(width.labels, labelWidth(band, metrics));
        width.whole = std::max(width.whole,
                               std::ceil(tickLength + std::max(least, width.labels) + title + 8));
    }
    return widths;
}

} // namespace

void ScaleLayout::place(const TrendChart& chart, TrendLayout& layout) {
    TextMeasure& metrics = TextMeasure::of(layout.font);
    const double tickLength = std::round(metrics.height() * 0.4);
    layout.scales = shownScales(chart);
    placeBands(chart, layout.scales, layout.plot, std::round(metrics.height() * 0.8));

    ColumnWidths widths = measureColumns(chart, layout, metrics, tickLength);
    dropOuterColumns(widths, 0.6 * layout.size.width());
    double left = layout.plot.left();
    double right = layout.plot.right();
    for (const auto& [column, width] : widths)
        (column.first ? right : left) += column.first ? -width.whole : width.whole;
    layout.plot.setLeft(std::min(left, layout.size.width() - 2));
    layout.plot.setRight(std::max(right, layout.plot.left() + 1));

    for (ScaleBand& band : layout.scales) {
        const TrendScale& scale = *chart.scale(band.axis);
        band.band.setLeft(layout.plot.left());
        band.band.setRight(layout.plot.right());
        const bool shown =
            scale.position.visible && widths.contains({band.right, scale.position.column});
        if (!shown || band.idle) band.ticks.clear();
        if (!shown) continue;
        double nearer = 0;
        for (const auto& [column, width] : widths)
            if (column.first == band.right && column.second < scale.position.column)
                nearer += width.whole;
        const ColumnWidth& width = widths[{band.right, scale.position.column}];
        const double x =
            band.right ? layout.plot.right() + nearer : layout.plot.left() - nearer - width.whole;
        band.rect = QRectF(x, band.band.top(), width.whole, band.band.height());
        placeLabels(band, metrics, tickLength);
        placeTitle(scale, band, metrics, tickLength + width.labels + 6);
    }
}

} // namespace pellam
