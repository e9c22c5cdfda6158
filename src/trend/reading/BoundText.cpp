#include "trend/reading/BoundText.h"

#include "trend/reading/TrendReading.h"

#include <cmath>

namespace pellam {

namespace {

constexpr double kSeen = 1e-3; // part of a range that can be told apart

// `resolution`: what is too small to be seen.
QString boundText(double value, double resolution) {
    constexpr int kWritten = 6;
    const double written = QString::number(value, 'g', kWritten).toDouble();
    const bool exact = std::abs(value - written) <= std::abs(value) * 1e-12;
    if (exact || !(resolution > 0) || !std::isfinite(value))
        return TrendReading::valueText(written);
    const double unit = std::pow(10.0, std::floor(std::log10(resolution)));
    const double units = std::round(value / unit);
    // Digits are counted from the text of a number, as products of powers of ten are none.
    const int decimals = std::max(0, static_cast<int>(-std::floor(std::log10(resolution))));
    const double rounded = decimals > 300 || !std::isfinite(units)
                               ? value
                               : QString::number(units * unit, 'f', decimals).toDouble();
    return TrendReading::valueText(rounded);
}

} // namespace

BoundTexts boundTexts(double min, double max, bool logarithmic) {
    const auto text = [&](double value) {
        return boundText(value, std::abs(logarithmic ? value : max - min) * kSeen);
    };
    return {text(min), text(max)};
}

} // namespace pellam
