#include "trend/ticks/XAxisTicks.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pellam {
namespace {

constexpr double kDay = 86400;
constexpr double kMostValue = 1e15;

struct Step {
    double major;
    double minor;
};

// From a second to a day; shorter and longer ones are 1, 2 or 5 times a power of ten.
constexpr std::array<Step, 18> kClockSteps = {{{1, 0.2},
                                               {2, 0.5},
                                               {5, 1},
                                               {10, 2},
                                               {15, 5},
                                               {30, 10},
                                               {60, 15},
                                               {120, 30},
                                               {300, 60},
                                               {600, 120},
                                               {900, 300},
                                               {1800, 600},
                                               {3600, 900},
                                               {7200, 1800},
                                               {10800, 3600},
                                               {21600, 3600},
                                               {43200, 10800},
                                               {kDay, 21600}}};

bool fits(double step, double span, int labels) {
    return std::floor(span / step + 1e-9) + 1 <= labels;
}

Step decimalStep(double span, int labels, double least) {
    double power = std::pow(10.0, std::floor(std::log10(span / std::max(labels, 1))));
    for (;; power *= 10) {
        for (const auto& [major, minor] : {Step{1, 0.2}, Step{2, 0.5}, Step{5, 1}}) {
            const Step step{major * power, std::max(minor * power, least)};
            if (step.major >= least * (1 - 1e-9) && fits(step.major, span, labels)) return step;
        }
    }
}

Step stepOf(const XAxis& axis, double span, int labels) {
    labels = std::max(labels, 1);
    if (axis.kind == XAxis::Kind::Rows) return decimalStep(span, labels, 1);
    const Step decimal = decimalStep(span, labels, 0);
    if (axis.unit != 0 || decimal.major < 0.9) return decimal;
    for (const Step& step : kClockSteps) {
        if (fits(step.major, span, labels)) return step;
    }
    const Step days = decimalStep(span / kDay, labels, 1);
    return {days.major * kDay, days.minor * kDay};
}

// All multiples of a step; those of parts of a second are quotients, so that they are as exact as a
// number can be.
std::vector<double> multiples(double step, double from, double to) {
    std::vector<double> values;
    const double parts = step < 1 ? std::round(1 / step) : 0;
    const double last = std::floor(to / step + 1e-9);
    for (double k = std::ceil(from / step - 1e-9); k <= last; ++k)
        values.push_back(parts > 0 ? k / parts : k * step);
    return values;
}

QString minusOf(double value) {
    return value < 0 ? QStringLiteral("−") : QString();
}

QString padded(std::int64_t number, int width) {
    return QString::number(number).rightJustified(width, u'0');
}

double roundedTo(double value, int digits) {
    const double unit = std::pow(10.0, digits);
    return std::round(value * unit) / unit;
}

// "26:03:04.5" of a time from 0 on that is rounded already.
QString clockText(double seconds, int digits) {
    const auto whole = static_cast<std::int64_t>(seconds);
    QString text = QStringLiteral("%1:%2:%3")
                       .arg(whole / 3600)
                       .arg(padded(whole / 60 % 60, 2), padded(whole % 60, 2));
    if (digits > 0)
        text += QString::number(seconds - static_cast<double>(whole), 'f', digits).mid(1);
    return text;
}

QString unitText(double value, int unit, int digits) {
    const QString name = unit == -3   ? QStringLiteral("ms")
                         : unit == -6 ? QStringLiteral("µs")
                                      : QStringLiteral("ns");
    const double rounded = roundedTo(value * std::pow(10.0, -unit), std::max(0, digits + unit));
    return minusOf(rounded) + QString::number(std::abs(rounded), 'f', std::max(0, digits + unit)) +
           u' ' + name;
}

QString elapsedText(double value, int unit, int digits) {
    if (unit != 0) return unitText(value, unit, digits);
    const double rounded = roundedTo(value, digits);
    const double size = std::abs(rounded);
    const double days = std::floor(size / kDay);
    QString text = minusOf(rounded);
    if (days > 0) text += QStringLiteral("%1 d ").arg(static_cast<std::int64_t>(days));
    return text + clockText(size - days * kDay, digits);
}

// Fraction digits of a second in which a step is whole.
int digitsOf(double step) {
    return std::clamp(static_cast<int>(std::ceil(-std::log10(step) - 1e-9)), 0, 12);
}

QString daysText(double days) {
    return minusOf(days) + QStringLiteral("%1 d").arg(static_cast<std::int64_t>(std::abs(days)));
}

QString rowText(double row) {
    return QStringLiteral("row %1").arg(std::llround(row));
}

} // namespace

AxisTick XAxisTicks::majorTick(double value, double step, bool days) const {
    if (m_axis.kind == XAxis::Kind::Rows) return {value, true, rowText(value), {}};
    if (m_axis.unit != 0) return {value, true, unitText(value, m_axis.unit, digitsOf(step)), {}};
    if (step >= kDay) return {value, true, daysText(std::round(value / kDay)), {}};
    if (!days) return {value, true, elapsedText(value, 0, digitsOf(step)), {}};
    // The days stand below the time, as dates do.
    const double day = std::trunc(value / kDay + std::copysign(1e-9, value));
    return {value, true, elapsedText(value - day * kDay, 0, digitsOf(step)), daysText(day)};
}

TimeMarks XAxisTicks::find(double from, double to, int labels) const {
    if (m_axis.kind == XAxis::Kind::Calendar) return m_times.find(from, to, labels);
    TimeMarks marks;
    from = std::max(from, -kMostValue);
    to = std::min(to, kMostValue);
    if (m_axis.kind == XAxis::Kind::Rows) from = std::max(from, 1.0);
    if (!(from < to)) return marks;
    const Step step = stepOf(m_axis, to - from, labels);
    marks.step = spanText(step.major, digitsOf(step.major));
    const std::vector<double> majors = multiples(step.major, from, to);
    for (const double value : multiples(step.minor, from, to)) {
        const double off = std::abs(value / step.major - std::round(value / step.major));
        if (off > 1e-6) marks.ticks.push_back({value, false, {}, {}});
    }
    const bool days = std::max(std::abs(from), std::abs(to)) >= kDay;
    QString context;
    for (const double value : majors) {
        AxisTick tick = majorTick(value, step.major, days);
        if (tick.context == context)
            tick.context.clear();
        else
            context = tick.context;
        marks.ticks.push_back(std::move(tick));
    }
    std::sort(marks.ticks.begin(), marks.ticks.end(),
              [](const AxisTick& a, const AxisTick& b) { return a.value < b.value; });
    return marks;
}

QString XAxisTicks::fullText(double value, int digits) const {
    if (m_axis.kind == XAxis::Kind::Calendar) return m_times.fullText(value, digits);
    if (!(std::abs(value) < kMostValue)) return {};
    if (m_axis.kind == XAxis::Kind::Rows) return rowText(value);
    return elapsedText(value, m_axis.unit, std::clamp(digits, 0, m_axis.mostDigits()));
}

QString XAxisTicks::spanText(double span, int digits) const {
    if (m_axis.kind == XAxis::Kind::Calendar) return TimeTicks::spanText(span, digits);
    if (m_axis.kind != XAxis::Kind::Rows || !(std::abs(span) < kMostValue))
        return fullText(span, digits);
    const std::int64_t rows = std::llround(span);
    return minusOf(static_cast<double>(rows)) +
           (std::abs(rows) == 1 ? QStringLiteral("1 row")
                                : QStringLiteral("%1 rows").arg(std::abs(rows)));
}

QString XAxisTicks::sampleLabel(double from, double to, int labels) const {
    if (m_axis.kind == XAxis::Kind::Calendar) return TimeTicks::sampleLabel(to - from, labels);
    if (!(from < to)) return {};
    const double step = stepOf(m_axis, to - from, labels).major;
    const bool days = std::max(std::abs(from), std::abs(to)) >= kDay;
    const QString first = majorTick(std::floor(from / step) * step, step, days).label;
    const QString last = majorTick(std::ceil(to / step) * step, step, days).label;
    return first.size() > last.size() ? first : last;
}

} // namespace pellam
