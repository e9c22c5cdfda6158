#include "trend/SymbolPainter.h"

#include "trend/TrendCurve.h"

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
    if (static_cast<double>(end - first) * 2.5 * radius > area.width()) return;
    painter.setPen(QPen(colour, 1.2));
    painter.setBrush(colour);
    for (std::size_t i = first; i < end; ++i) {
        const double value = curve.values()[i];
        if (!curve.pyramid(map.logarithmic()).counts(value)) continue;
        const double part = ((*curve.times())[i] - grid.from) / (grid.to - grid.from);
        const QPointF at(area.left() + part * area.width(), map.toPixel(value));
        if (area.adjusted(-1, -1, 1, 1).contains(at)) drawOne(painter, curve.style().symbol, at);
    }
}

} // namespace pellam
