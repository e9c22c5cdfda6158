#include "trend/control/TrendOperations.h"

namespace pellam {

const TrendScale& TrendOperations::scaleOrNew(int axis) const {
    static const TrendScale fresh;
    const TrendScale* const found = m_chart.scale(axis);
    return found ? *found : fresh;
}

template <typename Edit>
void TrendOperations::editScale(int axis, Edit edit, Change change) {
    TrendScale* const found = m_chart.scale(axis);
    if (!found) return;
    edit(*found);
    chartChanged(change);
}

void TrendOperations::SetYScEnabled(int axis, int on) {
    editScale(axis, [&](TrendScale& scale) { scale.enabled = on != 0; });
}

int TrendOperations::GetYScEnabled(int axis) const {
    return scaleOrNew(axis).enabled ? 1 : 0;
}

void TrendOperations::SetYScText(int axis, const QString& text) {
    editScale(axis, [&](TrendScale& scale) { scale.text = text; });
}

QString TrendOperations::GetYScText(int axis) const {
    return scaleOrNew(axis).text;
}

void TrendOperations::SetYScUserDialogEnabled(int axis, int on) {
    editScale(axis, [&](TrendScale& scale) { scale.userDialogEnabled = on != 0; });
}

void TrendOperations::SetYScDlgLogarithmic(int axis, int on) {
    editScale(axis, [&](TrendScale& scale) { scale.dialogLogarithmic = on != 0; });
}

void TrendOperations::SetYScLogarithmic(int axis, int on) {
    editScale(axis, [&](TrendScale& scale) { scale.logarithmic = on != 0; });
}

int TrendOperations::GetYScLogarithmic(int axis) const {
    return scaleOrNew(axis).logarithmic ? 1 : 0;
}

void TrendOperations::SetYScRangeRes(int axis, double resolution) {
    editScale(axis, [&](TrendScale& scale) { scale.rangeResolution = resolution; });
}

double TrendOperations::GetYScRangeRes(int axis) const {
    return scaleOrNew(axis).rangeResolution;
}

void TrendOperations::SetYScRangeMin(int axis, double value) {
    editScale(axis, [&](TrendScale& scale) { scale.rangeMin = value; });
}

double TrendOperations::GetYScRangeMin(int axis) const {
    return scaleOrNew(axis).rangeMin;
}

void TrendOperations::SetYScRangeMax(int axis, double value) {
    editScale(axis, [&](TrendScale& scale) { scale.rangeMax = value; });
}

double TrendOperations::GetYScRangeMax(int axis) const {
    return scaleOrNew(axis).rangeMax;
}

void TrendOperations::SetYScActualRangeMin(int axis, double value) {
    const auto edit = [&](TrendScale& scale) { scale.actualMin = value; };
    editScale(axis, edit, Change::Range);
}

double TrendOperations::GetYScActualRangeMin(int axis) const {
    return scaleOrNew(axis).actualMin;
}

void TrendOperations::SetYScActualRangeMax(int axis, double value) {
    const auto edit = [&](TrendScale& scale) { scale.actualMax = value; };
    editScale(axis, edit, Change::Range);
}

double TrendOperations::GetYScActualRangeMax(int axis) const {
    return scaleOrNew(axis).actualMax;
}

void TrendOperations::SetYScDataRangeMin(int axis, double value) {
    editScale(axis, [&](TrendScale& scale) { scale.dataMin = value; });
}

double TrendOperations::GetYScDataRangeMin(int axis) const {
    return scaleOrNew(axis).dataMin;
}

void TrendOperations::SetYScDataRangeMax(int axis, double value) {
    editScale(axis, [&](TrendScale& scale) { scale.dataMax = value; });
}

double TrendOperations::GetYScDataRangeMax(int axis) const {
    return scaleOrNew(axis).dataMax;
}

void TrendOperations::SetYScForeColor(int axis, const QColor& colour) {
    editScale(axis, [&](TrendScale& scale) { scale.foreColor = colour; });
}

void TrendOperations::YScSetPosition(int axis, const ScalePosition& position) {
    editScale(axis, [&](TrendScale& scale) { scale.position = position; });
}

} // namespace pellam
