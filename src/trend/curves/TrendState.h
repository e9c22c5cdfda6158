#pragma once

#include "base/XAxis.h"
#include "trend/curves/CurveStyle.h"
#include "trend/curves/TrendScale.h"

#include <QStringList>
#include <array>
#include <optional>
#include <vector>

namespace pellam {

constexpr int trendScaleCount = 6;
/// Curves that a chart can hold.
constexpr int trendCurvePool = 1024;

/// All display settings of a chart: what is saved before a printout and restored after it.
struct TrendState {
    TrendState();

    std::array<TrendScale, trendScaleCount> scales; ///< scale a is scales[a - 1]
    XAxis xAxis;                                    ///< what the times below count
    double timeMin = 0;                             ///< shown range
    double timeMax = 1;
    /// Offset from UTC, in seconds, of the clock that times are shown by; nothing = by the zone's.
    std::optional<int> utcOffset;
    QString title;               ///< above the drawing area; empty = none
    QStringList notes;           ///< one line each below it: points that were left out
    QStringList paperNotes;      ///< what else stands there while curveButtons is 0
    bool rotated = false;        ///< kept only
    bool identicalXData = false; ///< kept only
    bool lassoZoom = true;
    int curveButtons = 2; ///< 0 = a plain legend of the visible curves, otherwise buttons of all
    int followModeButton = 0;   ///< kept only
    int drawMultithreaded = -1; ///< kept only
    bool dockingScales = true;  ///< kept only
    bool colourScales = true;   ///< a black scale that carries one curve takes its colour
    bool breakGaps = true;      ///< no line across more than three times a curve's usual step
    QChar decimalPoint = u'.';  ///< in numbers and times
    QString fontName = QStringLiteral("Verdana");
    double fontScaleFactor = 0.5;   ///< 0.1 to 1.0
    double baseFontPixels = 13;     ///< text size at factor 0.5
    QColor backColor;               ///< invalid = the theme's
    QColor trendBackColor;          ///< of the drawing area; invalid = the theme's
    std::vector<CurveStyle> curves; ///< filled by TrendChart::save()

    /// A text of numbers with decimalPoint in place of their points.
    QString numbers(QString text) const;
};

} // namespace pellam
