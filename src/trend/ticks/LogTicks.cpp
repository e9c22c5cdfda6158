#include "trend/ticks/LogTicks.h"

#include "trend/ticks/DecimalTicks.h"

#include <algorithm>
#include <cmath>

namespace pellam {
namespace {

QString superscript(int number) {
    static constexpr char16_t digits[] = u"⁰¹²³⁴⁵⁶⁷⁸⁹";
    QString text = number < 0 ? QStringLiteral("⁻") : QString();
    for (const QChar digit : QString::number(std::abs(number)))
        text += digits[digit.digitValue()];
    return text;
}

double power(int exponent) {
    return std::pow(10.0, exponent);
}

// Labels at 1, 2 and 5 when they find room, else at 1 only.
void addDecade(std::vector<AxisTick>& ticks, int exponent, bool withTwoAndFive, bool powers) {
    for (int mantissa = 1; mantissa <= 9; ++mantissa) {
        AxisTick tick;
        tick.value = mantissa * power(exponent);
        tick.major = mantissa == 1 || (withTwoAndFive && (mantissa == 2 || mantissa == 5));
        if (tick.major) tick.label = LogTicks::text(mantissa, exponent, powers);
        ticks.push_back(std::move(tick));
    }
}

} // namespace

QString LogTicks::text(int mantissa, int exponent, bool powers) {
    if (exponent == 0 || (!powers && exponent > 0))
        return QString::number(mantissa) + QString(exponent, QLatin1Char('0'));
    if (!powers)
        return QStringLiteral("0.") + QString(-exponent - 1, QLatin1Char('0')) +
               QString::number(mantissa);
    const QString ten = QStringLiteral("10") + superscript(exponent);
    return mantissa == 1 ? ten : QString::number(mantissa) + QStringLiteral("·") + ten;
}

std::vector<AxisTick> LogTicks::find(double min, double max, int labels) {
    if (!(min > 0.0) || !(min < max)) return {};
    labels = std::max(2, labels);
    const double decades = std::log10(max / min);
    if (decades < 0.7) return DecimalTicks::find(min, max, labels);

    const int first = static_cast<int>(std::floor(std::log10(min) + 1e-9));
    const int last = static_cast<int>(std::floor(std::log10(max) + 1e-9));
    int stride = std::max(1, static_cast<int>(std::ceil(decades / labels)));
    // Every power between labels has a mark while there is room for it.
    const int minor = stride < 10 ? 1 : (stride + 4) / 5;
    stride = (stride + minor - 1) / minor * minor;
    // One form for all labels of an axis.
    const bool powers = min < 0.0009 || max > 1.1e6;
    std::vector<AxisTick> ticks;
    if (stride == 1) {
        const bool withTwoAndFive = decades * 3 <= labels || decades < 1.5;
        for (int exponent = first; exponent <= last; ++exponent)
            addDecade(ticks, exponent, withTwoAndFive, powers);
    } else {
        for (int exponent = first; exponent <= last; ++exponent) {
            if (exponent % minor != 0) continue;
            const bool major = exponent % stride == 0;
            ticks.push_back(
                {power(exponent), major, major ? text(1, exponent, powers) : QString(), {}});
        }
    }
    std::erase_if(ticks, [&](const AxisTick& tick) {
        return tick.value < min * (1 - 1e-9) || tick.value > max * (1 + 1e-9);
    });
    return ticks;
}

} // namespace pellam
