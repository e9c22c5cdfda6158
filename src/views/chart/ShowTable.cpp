#include "views/chart/ShowTable.h"

#include "trend/control/TrendOperations.h"
#include "trend/curves/ScaleFit.h"
#include "views/chart/LeftOutNotes.h"
#include "views/series/TrendTableReader.h"
#include "views/text/ScreenText.h"

#include <algorithm>
#include <cmath>

namespace pellam {

namespace {

void setUpCurve(TrendOperations& trend, int curve) {
    trend.SetCurveRelatedScale(curve, 0);
    trend.SetCurveVisible(curve, 1);
    trend.SetCurveDispRangeComp(curve, 0);
    trend.SetCurveDispAverageComp(curve, 0);
}

void setUpScale(TrendOperations& trend, int axis) {
    trend.SetYScUserDialogEnabled(axis, 1);
    trend.SetYScDlgLogarithmic(axis, 1);
    trend.SetYScLogarithmic(axis, 0);
    trend.SetYScRangeRes(axis, 0.00001);
    trend.SetYScRangeMin(axis, -1000);
    trend.SetYScRangeMax(axis, 1000);
    trend.SetYScActualRangeMin(axis, -100);
    trend.SetYScActualRangeMax(axis, 100);
    trend.SetYScForeColor(axis, QColor(0, 0, 0));
}

void showCurve(TrendOperations& trend, int index, const TrendTable::Curve& curve,
               std::size_t capacity) {
    trend.SetCurveVisible(index, 1);
    trend.SetCurveMaxDataSets(index, capacity);
    trend.SetCurveRelatedScale(index, curve.axis);
    trend.SetYScEnabled(curve.axis, 1);
    trend.SetCurveSymbol(index, -1);
    trend.SetCurveDispRangeComp(index, 0);
    trend.SetCurveDispAverageComp(index, 0);
    trend.SetCurveText(index, screenText(curve.text));
    trend.SetYScText(curve.axis, curve.units.empty() ? QStringLiteral("Data %1").arg(curve.axis)
                                                     : screenText(curve.units));
}

/// A scale of curves without any value would only show bounds that mean nothing.
void hideEmptyScales(TrendOperations& trend) {
    for (int axis = 1; axis <= trendScaleCount; ++axis) {
        bool used = false;
        for (int curve = 0; curve < trend.GetUsedCurveCount() && !used; ++curve)
            used = trend.GetCurveRelatedScale(curve) == axis && trend.GetDataRange(curve);
        if (!used) trend.SetYScEnabled(axis, 0);
    }
}

/// Around a single moment, which automatic scaling leaves alone, a little is shown.
void showTimes(TrendOperations& trend) {
    const auto shown = timesOfAll(trend.chart());
    if (!shown) return;
    trend.SetXScActualRangeMin(shown->min);
    trend.SetXScActualRangeMax(shown->max);
}

} // namespace

void setUpTrend(TrendOperations& trend) {
    trend.SetRotated(0);
    trend.SetIdenticalXData(0);
    trend.SetLassoZoom(1);
    trend.SetCurveButtons(2);
    trend.SetFollowModeButton(0);
    trend.SetDrawMultithreaded(-1);
    trend.GetFont().SetName(QStringLiteral("Verdana"));
    trend.SetFontScaleFactor(0.5);
    const QColor colours[] = {QColor(255, 255, 0), QColor(255, 128, 0), QColor(128, 128, 255),
                              QColor(255, 0, 128), QColor(0, 128, 0),   QColor(0, 0, 0)};
    constexpr int kFirst = 6; // the six before keep the control's own
    int curve = 0;
    for (; curve < kFirst; ++curve)
        setUpCurve(trend, curve);
    for (const QColor& colour : colours) {
        setUpCurve(trend, curve);
        trend.SetCurveColor(curve++, colour);
    }
    for (int axis = 1; axis <= trendScaleCount; ++axis)
        setUpScale(trend, axis);
}

void resetTrend(TrendOperations& trend) {
    trend.SetLockUpdate(1);
    for (int curve = 0; curve < trend.GetUsedCurveCount(); ++curve) {
        trend.DeleteData(curve);
        trend.SetCurveText(curve, {});
        trend.SetCurveRelatedScale(curve, 0);
        trend.SetCurveVisible(curve, 0);
    }
    trend.SetLockUpdate(0);
}

RowsByTime showTable(TrendOperations& trend, TrendTable& table, Row rowCount) {
    for (int axis = 1; axis <= trendScaleCount; ++axis)
        trend.SetYScEnabled(axis, 0);
    trend.setNotes(leftOutNotes(table));
    trend.setPaperNotes(missingNumbersNote(table));
    trend.setXAxis(table.xAxis);
    trend.setUtcOffset(table.utcOffset ? std::optional(static_cast<int>(*table.utcOffset))
                                       : std::nullopt);
    const auto times = TrendTimes::create(std::move(table.times));
    const auto capacity = static_cast<std::size_t>(std::max<Row>(64, rowCount));
    int index = 0;
    for (TrendTable::Curve& curve : table.curves) {
        if (index == trend.GetCurveCount()) break;
        showCurve(trend, index, curve, capacity);
        trend.setCurvePoints(index++, times, std::move(curve.values), std::move(curve.gaps));
    }
    hideEmptyScales(trend);
    showTimes(trend);
    return times ? RowsByTime(times, std::move(table.rows)) : RowsByTime();
}

} // namespace pellam
