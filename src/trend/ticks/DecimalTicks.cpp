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

/// How numbers of up to a largest one are written, all with the same digits: "-0.5e9", "1.0e9".
class NumberForm {
  public:
    NumberForm(double largest, double step)
        : m_step(step),
          m_decimals(std::max(0, -powerOf(step))) {
        if (largest < 1e7 && m_decimals <= 6) return;
        m_exponent = powerOf(std::max(largest, step));
        m_decimals = std::clamp(m_exponent - powerOf(step), 0, 15);
    }

    QString text(double value) const {
        if (std::abs(value) < m_step * 1e-6) value = 0;
        if (m_exponent == 0) return QString::number(value, 'f', m_decimals);
        if (value == 0.0) return QStringLiteral("0");
        const double mantissa = value / std::pow(10.0, m_exponent);
        return QString::number(mantissa, 'f', m_decimals) + u'e' + QString::number(m_exponent);
    }

  private:
    double m_step;
    int m_decimals;
    int m_exponent = 0; ///< 0 = plain
};

} // namespace

double DecimalTicks::step(double min, double max, int labels) {
    return roundStep(min, max, labels).step;
}

QString DecimalTicks::text(double value, double step) {
    return NumberForm(std::abs(value), step).text(value);
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
    const NumberForm form(std::max(std::abs(min), std::abs(max)), round.step);
    for (double index = first; index <= last; ++index) {
        AxisTick tick;
        tick.major = std::fmod(index, divisions) == 0.0;
        tick.value = tick.major ? index / divisions * round.step : index * minor;
        if (tick.major) tick.label = form.text(tick.value);
        ticks.push_back(std::move(tick));
    }
    return ticks;
}

} // namespace pellam
