#include "views/chart/TrendSetUp.h"

#include "trend/control/TrendOperations.h"
#include "views/series/TrendBuilder.h"
#include "views/text/ScreenText.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>
#include <cmath>

namespace pellam {

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("TrendSetUp", text);
}

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

/// Around a single moment, which spans no time axis, a minute is shown.
void showLoneMoment(TrendOperations& trend) {
    ValueRange shown;
    for (int curve = 0; curve < trend.GetUsedCurveCount(); ++curve) {
        const auto range = trend.GetDataRange(curve);
        if (!range) continue;
        shown.min = std::min(shown.min, range->xFrom);
        shown.max = std::max(shown.max, range->xTo);
    }
    if (shown.min != shown.max) return;
    trend.SetXScActualRangeMin(shown.min - 30);
    trend.SetXScActualRangeMax(shown.max + 30);
}

/// "Left out, sentinel values: Wind 12, Flow 3 and 4 more channels"; empty when nothing was.
QString noteByChannel(const TrendTable& table, const QString& what, std::int64_t LeftOut::*count) {
    constexpr int kNamed = 4;
    QStringList parts;
    int more = 0;
    for (const TrendTable::Curve& curve : table.curves) {
        if (curve.leftOut.*count == 0) continue;
        if (parts.size() == kNamed) {
            ++more;
            continue;
        }
        const QString name = screenText(curve.text).trimmed();
        parts += name + u' ' + QLocale().toString(static_cast<qlonglong>(curve.leftOut.*count));
    }
    if (parts.isEmpty()) return {};
    QString list = parts.join(QStringLiteral(", "));
    if (more == 1) list = tr("%1 and 1 more channel").arg(list);
    if (more > 1) list = tr("%1 and %L2 more channels").arg(list).arg(more);
    return tr("Left out, %1: %2").arg(what, list);
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

TrendRows showTable(TrendOperations& trend, TrendTable& table, Row rowCount) {
    for (int axis = 1; axis <= trendScaleCount; ++axis)
        trend.SetYScEnabled(axis, 0);
    trend.setNotes(leftOutNotes(table));
    const auto times = TrendTimes::create(std::move(table.times));
    const auto capacity = static_cast<std::size_t>(std::max<Row>(64, rowCount));
    int index = 0;
    for (TrendTable::Curve& curve : table.curves) {
        if (index == trend.GetCurveCount()) break;
        showCurve(trend, index, curve, capacity);
        trend.setCurvePoints(index++, times, std::move(curve.values));
    }
    hideEmptyScales(trend);
    showLoneMoment(trend);
    return times ? TrendRows(times, std::move(table.rows)) : TrendRows();
}

namespace {

bool hasValues(const TrendTable& table) {
    const auto known = [](double value) { return std::isfinite(value); };
    return std::any_of(table.curves.begin(), table.curves.end(), [known](const auto& curve) {
        return std::any_of(curve.values.begin(), curve.values.end(), known);
    });
}

} // namespace

QString nothingToDraw(const TrendTable& table, Row rowCount) {
    if (rowCount == 0) return tr("No data is loaded. Open a file to see its channels here.");
    if (table.curves.empty()) {
        return tr("No channel is selected for charting. Channels are selected with the check boxes "
                  "in the headings of the grid.");
    }
    if (table.aborted) return {};
    if (!table.times.empty()) {
        if (hasValues(table)) return {};
        const QString why =
            tr("Attention: The selected channels hold no values, so there is nothing "
               "to draw.");
        return (QStringList(why) + leftOutNotes(table)).join(u'\n');
    }
    if (table.unreadableTimes > 0) {
        return tr("Attention: The times in the first column can't be read, so there is nothing to "
                  "draw. A time looks like 2008/02/25 12:00:00, or like the dates of your system "
                  "settings.");
    }
    if (table.outsideTimes > 0) {
        return tr(
            "Attention: The times in the first column lie before 1970 or after 2106, so there "
            "is nothing to draw.");
    }
    return tr("Attention: The first column holds no times, so there is nothing to draw.");
}

QStringList leftOutNotes(const TrendTable& table) {
    QStringList notes;
    if (table.aborted) notes += tr("Stopped while the chart was loading: later rows are missing");
    if (table.unreadableTimes > 0)
        notes += tr("Rows left out, time not readable: %L1").arg(table.unreadableTimes);
    if (table.outsideTimes > 0)
        notes += tr("Rows left out, before 1970 or after 2106: %L1").arg(table.outsideTimes);
    if (table.emptyTimes > 0) notes += tr("Rows left out, no time: %L1").arg(table.emptyTimes);
    notes += noteByChannel(table, tr("sentinel values"), &LeftOut::sentinels);
    notes += noteByChannel(table, tr("no numbers"), &LeftOut::notNumbers);
    notes += noteByChannel(table, tr("time not later than before"), &LeftOut::notLater);
    if (table.curves.size() > trendCurvePool) {
        notes += tr("Channels left out, the chart holds %L1: %L2")
                     .arg(trendCurvePool)
                     .arg(table.curves.size() - trendCurvePool);
    }
    notes.removeAll(QString());
    return notes;
}

} // namespace pellam
