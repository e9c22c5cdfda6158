#include "trend/control/TrendZoom.h"

#include <algorithm>
#include <cmath>

namespace pellam {

namespace {

constexpr double kEarliest = -62135596800; // year 1
constexpr double kLatest = 253402300800;   // year 10000
// Part of a time below which doubles leave too few steps to tell marks and curves apart: 34
// microseconds today. Maps show less than half of that as something else.
constexpr double kFinest = 2e-14;
constexpr double kLargestValue = 1e300;

double shortestSpan(const XAxis& axis) {
    if (axis.kind == XAxis::Kind::Rows) return 1;
    return 2 * std::pow(10.0, -axis.mostDigits());
}

} // namespace

bool TrendZoom::setTime(double min, double max) {
    min = std::max(min, kEarliest);
    max = std::min(max, kLatest);
    if (!(max - min >= std::max(shortestSpan(m_state.xAxis), std::abs(max) * kFinest)))
        return false;
    if (m_state.timeMin == min && m_state.timeMax == max) return false;
    m_state.timeMin = min;
    m_state.timeMax = max;
    return true;
}

bool TrendZoom::setScale(int axis, double min, double max) {
    TrendScale& scale = m_state.scales[static_cast<std::size_t>(axis - 1)];
    const double largest = std::max(std::abs(min), std::abs(max));
    if (!(largest < kLargestValue) || !(max - min > largest * 1e-12)) return false;
    if (scale.logarithmic && !(max > min * (1 + 1e-9))) return false;
    if (scale.actualMin == min && scale.actualMax == max) return false;
    scale.actualMin = min;
    scale.actualMax = max;
    return true;
}

template <typename Bounds>
bool TrendZoom::editScales(double y, int axis, Bounds bounds) {
    bool changed = false;
    for (const ScaleBand& band : m_layout.scales) {
        const bool chosen =
            axis == 0 ? y >= band.band.top() && y <= band.band.bottom() : band.axis == axis;
        if (!chosen) continue;
        const ScaleMap::Bounds next = bounds(band.map);
        changed |= setScale(band.axis, next.min, next.max);
    }
    return changed;
}

bool TrendZoom::zoomTime(double factor, double x) {
    const ScaleMap::Bounds next = m_layout.timeMap.zoomed(factor, x);
    return setTime(next.min, next.max);
}

bool TrendZoom::zoomValues(double factor, double y, int axis) {
    return editScales(y, axis, [&](const ScaleMap& map) { return map.zoomed(factor, y); });
}

bool TrendZoom::panTime(double pixels) {
    const ScaleMap::Bounds next = m_layout.timeMap.moved(-pixels);
    if (next.min < kEarliest || next.max > kLatest) return false;
    return setTime(next.min, next.max);
}

bool TrendZoom::panValues(double pixels, double y, int axis) {
    return editScales(y, axis, [&](const ScaleMap& map) { return map.moved(-pixels); });
}

bool TrendZoom::zoomTo(const QRectF& rect, bool time, bool values) {
    bool changed = false;
    if (time)
        changed =
            setTime(m_layout.timeMap.toValue(rect.left()), m_layout.timeMap.toValue(rect.right()));
    if (!values) return changed;
    for (const ScaleBand& band : m_layout.scales) {
        const double top = std::max(rect.top(), band.band.top());
        const double bottom = std::min(rect.bottom(), band.band.bottom());
        if (bottom - top >= 1)
            changed |= setScale(band.axis, band.map.toValue(bottom), band.map.toValue(top));
    }
    return changed;
}

} // namespace pellam
