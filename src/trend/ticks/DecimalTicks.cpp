#include "trend/ticks/DecimalTicks.h"

#include <algorithm>
#include <cmath>

namespace pellam {
namespace {

constexpr int mostTicks = 400; // minor ones included; a guard against steps lost in rounding

struct RoundStep {
    double step = 1;
    int mantissa = 1; // 1, 2 or 5
};

RoundStep roundStep(double min, double max, int labels) {
    const double rough = (max - min) / std::max(1, labels - 1);
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    for (const int mantissa : {1, 2, 5})
        if (mantissa * power >= rough * (1 - 1e-9)) return {mantissa * power, mantissa};
    return {10 * power, 1};
}

// The power of ten of a number's first digit.
int powerOf(double value) {
    return static_cast<int>(std::floor(std::log10(value) + 1e-9));
}

QString textAt(double value, double step, int stepPower) {
    if (std::abs(value) < step * 1e-6) value = 0;
    const double largest = std::max(std::abs(value), step);
    const int decimals = std::max(0, -stepPower);
    if (largest < 1e7 && decimals <= 6) return QString::number(value, 'f', decimals);
    if (value == 0.0) return QStringLiteral("0");
    const int digits = powerOf(std::abs(value)) - stepPower;
    QString text = QString::number(value, 'e', std::clamp(digits, 0, 15));
    // 1.50e+07 is read as 1.5e7
    const qsizetype exponent = text.indexOf(u'e');
    return text.left(exponent) + u'e' + QString::number(text.mid(exponent + 1).toInt());
}

} // namespace

double DecimalTicks::step(double min, double max, int labels) {
    return roundStep(min, max, labels).step;
}

QString DecimalTicks::text(double value, double step) {
    return textAt(value, step, powerOf(step));
}

std::vector<AxisTick> DecimalTicks::find(double min, double max, int labels) {
    std::vector<AxisTick> ticks;
    if (!(min < max)) return ticks;
    const RoundStep round = roundStep(min, max, std::max(2, labels));
    const int divisions = round.mantissa == 2 ? 4 : 5;
    const double minor = round.step / divisions;
    const double slack = minor * 1e-6;
    const double first = std::ceil((min - slack) / minor);
    const double last = std::floor((max + slack) / minor);
    if (!(last - first < mostTicks)) return ticks;
    const int power = powerOf(round.step);
    for (double index = first; index <= last; ++index) {
        AxisTick tick;
        tick.major = std::fmod(index, divisions) == 0.0;
        tick.value = tick.major ? index / divisions * round.step : index * minor;
        if (tick.major) tick.label = textAt(tick.value, round.step, power);
        ticks.push_back(std::move(tick));
    }
    return ticks;
}

} // namespace pellam
