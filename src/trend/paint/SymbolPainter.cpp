#include "trend/paint/SymbolPainter.h"

#include "trend/curves/BlockSums.h"
#include "trend/curves/TrendCurve.h"

#include <QPainter>

namespace pellam {
namespace {

constexpr double radius = 3;

void drawOne(QPainter& painter, int symbol, const QPointF& at) {
    const QRectF box(at.x() - radius, at.y() - radius, 2 * radius, 2 * radius);
    switch (symbol) {
    case 0:
        painter.drawEllipse(box);
        break;
    case 1:
        painter.drawRect(box);
        break;
    case 2:
        painter.drawPolygon(QPolygonF()
                            << box.bottomLeft() << box.bottomRight() << QPointF(at.x(), box.top()));
        break;
    default:
        painter.drawLine(box.topLeft(), box.bottomRight());
        painter.drawLine(box.bottomLeft(), box.topRight());
    }
}

} // namespace

void SymbolPainter::draw(QPainter& painter, const TrendCurve& curve, const ColumnGrid& grid,
                         const ScaleMap& map, const QRectF& area, const QColor& colour) {
    if (curve.style().symbol < 0) return;
    const std::size_t first = curve.times()->lowerBound(grid.from);
    const std::size_t end = curve.times()->upperBound(grid.to);
    const double* const values = curve.values();
    // Where channels share their times, many of a curve's points may have no value.
    const std::size_t count = first < end ? curve.sums().over(values, first, end).count : 0;
    if (static_cast<double>(count) * 2.5 * radius > area.width()) return;
    const MinMaxPyramid& pyramid = curve.pyramid(map.logarithmic());
    painter.setPen(QPen(colour, 1.2));
    painter.setBrush(colour);
    for (std::size_t i = first; (i = pyramid.nextSample(values, i)) < end; ++i) {
        const double part = ((*curve.times())[i] - grid.from) / (grid.to - grid.from);
        const QPointF at(area.left() + part * area.width(), map.toPixel(values[i]));
        if (area.adjusted(-1, -1, 1, 1).contains(at)) drawOne(painter, curve.style().symbol, at);
    }
}

} // namespace pellam
