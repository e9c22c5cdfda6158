#include "views/chart/StripLayout.h"

#include "trend/control/TrendOperations.h"

namespace pellam {

namespace {

constexpr int kScalesInColumn = 4;

} // namespace

int enabledScales(const TrendOperations& trend) {
    int count = 0;
    for (int axis = 1; axis <= trendScaleCount; ++axis)
        count += trend.GetYScEnabled(axis) != 0 ? 1 : 0;
    return count;
}

void stackScales(TrendOperations& trend) {
    const int count = enabledScales(trend);
    if (count == 0) return;
    ScalePosition place;
    place.heightPercent = 100 / count;
    for (int axis = 1; axis <= trendScaleCount; ++axis) {
        if (!trend.GetYScEnabled(axis)) continue;
        trend.YScSetPosition(axis, place);
        if (++place.position < kScalesInColumn) continue;
        place.position = 0;
        ++place.column;
    }
}

void overlayScales(TrendOperations& trend) {
    int count = 0;
    for (int axis = 1; axis <= trendScaleCount; ++axis) {
        if (!trend.GetYScEnabled(axis)) continue;
        ScalePosition place;
        place.side = count % 2;
        place.column = count / 2;
        trend.YScSetPosition(axis, place);
        ++count;
    }
}

} // namespace pellam
