#pragma once

#include "trend/paint/CurveColumns.h"

#include <QColor>
#include <QRectF>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace pellam {

/// Draws a curve's symbols, while its points are far enough apart for them to be told from each
/// other.
class SymbolPainter {
  public:
    /// Draws those inside an area over which the grid's time span runs; y of the map is that of the
    /// area.
    static void draw(QPainter& painter, const TrendCurve& curve, const ColumnGrid& grid,
                     const ScaleMap& map, const QRectF& area, const QColor& colour);
};

} // namespace pellam
