#pragma once

#include "trend/curves/ScaleMap.h"

#include <QColor>
#include <QString>

namespace pellam {

/// Where a Y scale stands.
struct ScalePosition {
    int side = 0;            ///< 0 = left of the curves, 1 = right
    int column = 0;          ///< 0 = next to the curves
    int position = 0;        ///< order within the column, from the top
    int heightPercent = 100; ///< of the height of the drawing area
    bool visible = true;
};

/// One Y scale: plain values, kept as they were set. map() makes them drawable.
struct TrendScale {
    bool enabled = false;
    QString text; ///< title: the units
    double rangeMin = -1000;
    double rangeMax = 1000;
    double actualMin = -100; ///< what is shown
    double actualMax = 100;
    double dataMin = 0;
    double dataMax = 0;
    double rangeResolution = 0.00001;
    bool logarithmic = false;
    bool userDialogEnabled = true;
    bool dialogLogarithmic = true;
    QColor foreColor = QColor(0, 0, 0);
    ScalePosition position;

    ScaleMap map(double pixelAtMin, double pixelAtMax) const {
        return ScaleMap(actualMin, actualMax, logarithmic, pixelAtMin, pixelAtMax);
    }
};

} // namespace pellam
