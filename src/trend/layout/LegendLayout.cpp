#include "trend/layout/LegendLayout.h"

#include "trend/curves/TrendChart.h"
#include "trend/layout/TextMeasure.h"
#include "trend/layout/TrendLayout.h"

#include <algorithm>

namespace pellam {
namespace {

bool isListed(const TrendChart& chart, const TrendCurve& curve) {
    const TrendScale* scale = chart.scale(curve.style().relatedScale);
    if (!scale || !scale->enabled || (curve.text().isEmpty() && curve.empty())) return false;
    return chart.state.curveButtons != 0 || curve.style().visible;
}

// One entry with its left upper corner at 0, 0.
LegendItem entry(const TrendCurve& curve, int index, TextMeasure& metrics) {
    const double em = metrics.height();
    LegendItem item;
    item.curve = index;
    // Long names of channels differ at their ends.
    item.text = metrics.elided(curve.text().trimmed(), 14 * em, Qt::ElideMiddle);
    const double width = metrics.width(item.text) + 2;
    const double height = std::ceil(em * 1.4);
    item.swatch = QRectF(0.45 * em, 0, 1.3 * em, height);
    item.textRect = QRectF(item.swatch.right() + 0.4 * em, 0, width, height);
    item.rect = QRectF(0, 0, std::ceil(item.textRect.right() + 0.5 * em), height);
    return item;
}

void move(LegendItem& item, const QPointF& by) {
    item.rect.translate(by);
    item.swatch.translate(by);
    item.textRect.translate(by);
}

} // namespace

void LegendLayout::place(const TrendChart& chart, double top, TrendLayout& layout) {
    layout.legend = QRectF(0, top, layout.size.width(), 0);
    TextMeasure& metrics = TextMeasure::of(layout.font);
    const double gap = std::round(metrics.height() * 0.3);
    const double left = std::round(metrics.height() * 0.6);
    const double right = layout.size.width() - left;
    const double lowest = top + std::max(metrics.height() * 1.5, layout.size.height() / 4);
    const double moreWidth = metrics.width(QStringLiteral("+ 1000")) + metrics.height();
    QPointF at(left, top);
    int listed = 0;
    for (std::size_t i = 0; i < chart.curves.size(); ++i) {
        if (!isListed(chart, chart.curves[i])) continue;
        ++listed;
        if (!layout.legendLeftOut.empty()) {
            layout.legendLeftOut.push_back(static_cast<int>(i));
            continue;
        }
        LegendItem item = entry(chart.curves[i], static_cast<int>(i), metrics);
        const double height = item.rect.height();
        const bool lastRow = at.y() + 2 * height + gap > lowest + 1;
        const double end = at.x() + item.rect.width();
        if (lastRow && at.x() > left && end + gap + moreWidth > right) {
            layout.legendLeftOut = {static_cast<int>(i)};
            layout.legendMore = QRectF(at, QSizeF(moreWidth, height));
            continue;
        }
        if (at.x() > left && end > right) at = QPointF(left, at.y() + height + gap);
        move(item, at);
        at.rx() += item.rect.width() + gap;
        layout.legend.setBottom(item.rect.bottom());
        layout.legendItems.push_back(std::move(item));
    }
    if (listed == 0) layout.legend.setHeight(0);
    if (!layout.legendLeftOut.empty())
        layout.legendMore.setWidth(metrics.width(layout.moreText()) + metrics.height());
}

} // namespace pellam
