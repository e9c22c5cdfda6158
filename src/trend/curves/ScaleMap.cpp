#include "trend/curves/ScaleMap.h"

#include <algorithm>
#include <cmath>

namespace pellam {
ScaleMap::ScaleMap(double min, double max, bool logarithmic, double pixelAtMin, double pixelAtMax)
    : m_logarithmic(logarithmic),
      m_pixelAtMin(pixelAtMin),
      m_pixelAtMax(pixelAtMax) {
    if (min > max) std::swap(min, max);
    if (logarithmic) {
        setLogarithmic(min, max);
        m_origin = std::log(m_min);
        m_factor = (pixelAtMax - pixelAtMin) / (std::log(m_max) - m_origin);
    } else {
        setLinear(min, max);
        m_origin = m_min;
        m_factor = (pixelAtMax - pixelAtMin) / (m_max - m_min);
    }
}

void ScaleMap::setLinear(double min, double max) {
    // Halves of the largest double, so that differences stay finite.
    constexpr double bound = 8e307;
    if (std::isnan(min) || std::isnan(max)) {
        min = std::isnan(min) ? std::isnan(max) ? 0.0 : max : min;
        max = min == 0.0 ? 1.0 : min;
    }
    min = std::clamp(min, -bound, bound);
    max = std::clamp(max, -bound, bound);
    // A range narrower than doubles can tell apart has no ticks, one of denormals no pixels a unit.
    const double narrowest = std::max({std::abs(min) * 1e-14, std::abs(max) * 1e-14, 1e-300});
    if (max - min <= narrowest) {
        const double half = std::abs(min) <= 1e-300 ? 1.0 : std::abs(min) * 0.05;
        min -= half;
        max += half;
    }
    m_min = min;
    m_max = max > min ? max : min + 1.0;
}

void ScaleMap::setLogarithmic(double min, double max) {
    if (!std::isfinite(max) || max <= 0.0) max = std::isfinite(min) && min > 0.0 ? min * 10 : 10.0;
    if (!std::isfinite(min) || min <= 0.0) min = max / 1000;
    min = std::clamp(min, 1e-300, 1e300);
    max = std::clamp(max, 1e-300, 1e300);
    if (max <= min * (1 + 1e-9)) {
        min /= 2;
        max *= 2;
    }
    m_min = min;
    m_max = max;
}

ScaleMap ScaleMap::over(double pixelAtMin, double pixelAtMax) const {
    return {m_min, m_max, m_logarithmic, pixelAtMin, pixelAtMax};
}

double ScaleMap::logarithmicPixel(double value) const {
    if (value <= 0.0) return m_pixelAtMin + (m_pixelAtMin < m_pixelAtMax ? -farPixel : farPixel);
    return bounded(m_pixelAtMin + (std::log(value) - m_origin) * m_factor);
}

double ScaleMap::toValue(double pixel) const {
    if (m_factor == 0.0) return m_min;
    const double part = m_origin + (pixel - m_pixelAtMin) / m_factor;
    return m_logarithmic ? std::exp(part) : part;
}

ScaleMap::Bounds ScaleMap::zoomed(double factor, double aroundPixel) const {
    const auto away = [&](double pixel) { return aroundPixel + (pixel - aroundPixel) * factor; };
    return {toValue(away(m_pixelAtMin)), toValue(away(m_pixelAtMax))};
}

ScaleMap::Bounds ScaleMap::moved(double pixels) const {
    return {toValue(m_pixelAtMin + pixels), toValue(m_pixelAtMax + pixels)};
}

} // namespace pellam
