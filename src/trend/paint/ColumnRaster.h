#pragma once

#include "trend/curves/CurveStyle.h"
#include "trend/paint/CurveColumns.h"

#include <QImage>
#include <QRect>

namespace pellam {

/// How a curve is filled into an image.
struct ColumnPen {
    QColor colour;
    double width = 1.5; ///< in pixels of the image
    CurveDash dash = CurveDash::Solid;
    double dashUnit = 4; ///< length of a dash's parts, in pixels of the image
};

/// Fills a curve's columns straight into the memory of a 32-bit image, with smoothed edges. The
/// extent of every column is full ink; slanting lines are smoothed as far as their neighbours
/// reach.
class ColumnRaster {
  public:
    /// The first span belongs to clip.left(); nothing is drawn outside clip.
    static void fill(QImage& image, const QRect& clip, const std::vector<ColumnSpan>& spans,
                     const ColumnPen& pen);
    /// Whether a dash pattern leaves a calm column out. Columns with any height stay, lest a spike
    /// be lost.
    static bool leftOut(const ColumnSpan& span, int column, const ColumnPen& pen);
};

} // namespace pellam
