#pragma once

#include <QColor>
#include <QList>

namespace pellam {

/// How a curve's line is broken up.
enum class CurveDash { Solid, Dash, Dot, DashDot };

/// Lengths of dash and gap in turn, in widths of the pen; empty for a solid line.
QList<qreal> dashPattern(CurveDash dash);

/// Display settings of one curve.
struct CurveStyle {
    int relatedScale = 0; ///< Y scale 1 to 6; 0 = none, and the curve is not drawn
    bool visible = true;
    QColor colour;
    CurveDash dash = CurveDash::Solid;
    int symbol = -1; ///< -1 = none, 0 = disc, 1 = square, 2 = triangle, 3 = cross
};

/// Colour and dash that curve `index` (from 0) starts with: the control's own for the first twelve,
/// then hues that stay apart for colour-blind readers; dashed once all hues are used up.
CurveStyle defaultCurveStyle(int index);

/// The colour to draw a curve with on a background: the curve's own, made a little lighter or
/// darker on a dark background on which it could not be seen.
QColor colourOnScreen(const QColor& colour, const QColor& background);

/// Contrast of two colours, 1 (equal) to 21, as WCAG 2.1 defines it.
double colourContrast(const QColor& a, const QColor& b);
/// A colour made lighter (on dark) or darker (on light) until it has a contrast with a background.
QColor colourOfContrast(const QColor& colour, const QColor& background, double contrast);

} // namespace pellam
