#include "trend/control/TrendOperations.h"

#include <limits>

namespace pellam {

TrendCurve* TrendOperations::writable(int curve) {
    return curve >= 0 && curve < trendCurvePool ? &m_chart.curve(curve) : nullptr;
}

const TrendCurve* TrendOperations::find(int curve) const {
    return curve >= 0 && curve < GetUsedCurveCount()
               ? &m_chart.curves[static_cast<std::size_t>(curve)]
               : nullptr;
}

TrendOperations::CurveExtras& TrendOperations::extras(int curve) {
    const auto index = static_cast<std::size_t>(curve);
    if (m_extras.size() <= index) m_extras.resize(index + 1);
    return m_extras[index];
}

template <typename Edit>
void TrendOperations::editCurve(int curve, Edit edit) {
    TrendCurve* const found = writable(curve);
    if (!found) return;
    edit(*found);
    chartChanged(Change::Display);
}

void TrendOperations::SetCurveRelatedScale(int curve, int axis) {
    if (axis < 0 || axis > trendScaleCount) return;
    editCurve(curve, [axis](TrendCurve& found) { found.style().relatedScale = axis; });
}

int TrendOperations::GetCurveRelatedScale(int curve) const {
    const TrendCurve* const found = find(curve);
    return found ? found->style().relatedScale : 0;
}

void TrendOperations::SetCurveVisible(int curve, int visible) {
    editCurve(curve, [visible](TrendCurve& found) { found.style().visible = visible != 0; });
}

int TrendOperations::GetCurveVisible(int curve) const {
    const TrendCurve* const found = find(curve);
    return !found || found->style().visible ? 1 : 0;
}

void TrendOperations::SetCurveDispRangeComp(int curve, int on) {
    if (writable(curve)) extras(curve).rangeCompression = on;
}

void TrendOperations::SetCurveDispAverageComp(int curve, int on) {
    if (writable(curve)) extras(curve).averageCompression = on;
}

void TrendOperations::SetCurveColor(int curve, const QColor& colour) {
    editCurve(curve, [&colour](TrendCurve& found) { found.style().colour = colour; });
}

void TrendOperations::SetCurveMaxDataSets(int curve, std::size_t count) {
    TrendCurve* const found = writable(curve);
    if (!found) return;
    found->setMaxDataSets(count);
    chartChanged(Change::Data);
}

void TrendOperations::SetCurveSymbol(int curve, int symbol) {
    editCurve(curve, [symbol](TrendCurve& found) { found.style().symbol = symbol; });
}

void TrendOperations::SetCurveText(int curve, const QString& text) {
    editCurve(curve, [&text](TrendCurve& found) { found.setText(text); });
}

QString TrendOperations::GetCurveText(int curve) const {
    const TrendCurve* const found = find(curve);
    return found ? found->text() : QString();
}

void TrendOperations::SetCurveYValue(int curve, double y) {
    if (writable(curve)) extras(curve).nextY = y;
}

void TrendOperations::SetCurveXValue(int curve, double x) {
    TrendCurve* const found = writable(curve);
    if (found && found->append(x, extras(curve).nextY)) chartChanged(Change::Data);
}

double TrendOperations::GetCurveXValue(int curve) const {
    const TrendCurve* const found = find(curve);
    return !found || found->empty() ? -std::numeric_limits<double>::infinity()
                                    : found->times()->last();
}

void TrendOperations::DeleteData(int curve) {
    TrendCurve* const found = writable(curve);
    if (!found || found->empty()) return;
    found->deleteData();
    chartChanged(Change::Data);
}

bool TrendOperations::setCurvePoints(int curve, std::shared_ptr<const TrendTimes> times,
                                     std::vector<double>&& values,
                                     std::vector<std::uint32_t>&& gaps) {
    TrendCurve* const found = writable(curve);
    if (!found) return false;
    bool taken = times != nullptr;
    if (taken) {
        taken = found->setPoints(std::move(times), std::move(values), std::move(gaps));
    } else {
        found->deleteData();
    }
    chartChanged(Change::Data);
    return taken;
}

std::optional<CurveDataRange> TrendOperations::GetDataRange(int curve) const {
    const TrendCurve* const found = find(curve);
    if (!found) return std::nullopt;
    const ValueRange times = found->timeRange();
    const ValueRange values = found->valueRange();
    if (times.empty() || values.empty()) return std::nullopt;
    return CurveDataRange{times.min, times.max, values.min, values.max};
}

} // namespace pellam
