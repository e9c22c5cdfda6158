#pragma once

#include "trend/curves/ScaleMap.h"
#include "trend/ticks/TimeTicks.h"

#include <QFont>
#include <QRectF>
#include <vector>

namespace pellam {

struct TrendChart;

/// A text of an axis at its place.
struct AxisLabel {
    QRectF rect;
    QString text;
    bool context = false; ///< second line of the time axis
};

/// A Y scale that is drawn.
struct ScaleBand {
    int axis = 0; ///< 1 to 6
    bool right = false;
    QRectF rect;       ///< ticks, labels and title; empty where the scale is not shown
    QRectF title;      ///< where the title stands, read from below
    QRectF band;       ///< the part of the drawing area that the scale's curves use
    ScaleMap map;      ///< value to y
    bool idle = false; ///< all its curves are hidden, and so are its ticks
    std::vector<AxisTick> ticks;
    std::vector<AxisLabel> labels; ///< those of the ticks that find room
    QString titleText;             ///< shortened to fit
};

/// A curve's entry in the legend.
struct LegendItem {
    int curve = 0;
    QRectF rect;   ///< what a click hits
    QRectF swatch; ///< sample of the line
    QRectF textRect;
    QString text; ///< shortened to fit
};

/// Which part of the chart is at a point.
enum class TrendPart { Nothing, Plot, TimeAxis, Scale, Legend, LegendMore };

struct TrendHit {
    TrendPart part = TrendPart::Nothing;
    int index = 0; ///< axis 1 to 6 of a scale, curve of a legend entry
};

/// Where everything on a chart of a given size lies, in logical pixels. Knows no painter.
class TrendLayout {
  public:
    /// Lays a chart out; the time axis gets its marks from `times`.
    static TrendLayout compute(const TrendChart& chart, const QSizeF& size, const TimeTicks& times);

    QSizeF size;
    QFont font;
    QFont titleFont;
    QRectF title;    ///< empty without one
    QRectF plot;     ///< the drawing area
    QRectF timeAxis; ///< below it
    QRectF legend;
    QRectF notes;
    QStringList noteLines; ///< shortened to fit
    ScaleMap timeMap;      ///< time to x
    TimeMarks timeMarks;
    std::vector<AxisLabel> timeLabels;
    std::vector<ScaleBand> scales;
    std::vector<LegendItem> legendItems;
    std::vector<int> legendLeftOut; ///< curves for which the legend has no room
    QRectF legendMore;              ///< where their number stands; a button for their menu

    /// The band of an axis (1 to 6); null when it is not drawn.
    const ScaleBand* scale(int axis) const;
    TrendHit hit(const QPointF& point) const;

    /// "+ 12": how many curves the legend has no room for.
    QString moreText() const { return QStringLiteral("+ %1").arg(legendLeftOut.size()); }
};

} // namespace pellam
