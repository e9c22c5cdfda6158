#pragma once

#include "trend/paint/ColumnRaster.h"

#include <QPolygonF>
#include <QRectF>
#include <vector>

namespace pellam {

class TrendCurve;

/// A curve's line for targets that take lines and not pixels: SVG, PDF, printers. The number of
/// points depends on the columns, never on the samples; extremes of each column are kept.
class CurveLines {
  public:
    /// The pieces of the line, clipped to `area` (of which the columns are equal parts). A piece of
    /// one point is a sample on its own. y of the map is that of the area.
    static std::vector<QPolygonF> find(const TrendCurve& curve, const ColumnGrid& grid,
                                       const ScaleMap& map, const QRectF& area, bool breakGaps,
                                       const ColumnPen& pen);
};

} // namespace pellam
