#pragma once

#include <QColor>

QT_BEGIN_NAMESPACE
class QPalette;
QT_END_NAMESPACE

namespace pellam {

struct TrendState;

/// The colours of everything that is not a curve.
struct TrendTheme {
    QColor background;
    QColor plot; ///< behind the curves
    QColor text;
    QColor faintText;
    QColor line; ///< axes and ticks
    QColor grid;
    QColor minorGrid;
    QColor clockChange;

    static TrendTheme light();
    static TrendTheme dark();
    /// White throughout, for paper.
    static TrendTheme paper();
    static TrendTheme fromPalette(const QPalette& palette);
    /// With the state's own backgrounds, where it has any.
    TrendTheme with(const TrendState& state) const;

    bool isDark() const { return plot.lightness() < 128; }
};

} // namespace pellam
