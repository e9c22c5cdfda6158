#include "trend/ticks/TimeTicks.h"

#include "trend/ticks/CalendarSteps.h"

#include <QLocale>
#include <algorithm>
#include <chrono>
#include <cmath>

namespace pellam {
namespace {

constexpr std::int64_t daySeconds = 86400;

// A moment on the local clock.
struct LocalTime {
    int year = 1970;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int microsecond = 0;
};

LocalTime localTime(double utc, std::int64_t offset) {
    using namespace std::chrono;
    const double whole = std::floor(utc);
    auto micro = static_cast<std::int64_t>(std::llround((utc - whole) * 1e6));
    auto seconds = static_cast<std::int64_t>(whole) + offset;
    if (micro >= 1000000) {
        micro -= 1000000;
        ++seconds;
    }
    const auto days =
        static_cast<std::int64_t>(std::floor(static_cast<double>(seconds) / daySeconds));
    const year_month_day date{sys_days(std::chrono::days(days))};
    const int rest = static_cast<int>(seconds - days * daySeconds);
    return {int(date.year()),
            int(unsigned(date.month())),
            int(unsigned(date.day())),
            rest / 3600,
            rest / 60 % 60,
            rest % 60,
            int(micro)};
}

QString padded(int number, int width) {
    return QString::number(number).rightJustified(width, QLatin1Char('0'));
}

QString clock(const LocalTime& time) {
    return padded(time.hour, 2) + u':' + padded(time.minute, 2);
}

QString monthName(const LocalTime& time) {
    return QLocale().standaloneMonthName(time.month, QLocale::ShortFormat);
}

QString date(const LocalTime& time) {
    return QString::number(time.day) + u' ' + monthName(time) + u' ' + QString::number(time.year);
}

QString fraction(int microsecond, int digits) {
    return digits == 0 ? QString() : u'.' + padded(microsecond, 6).left(digits);
}

int fractionDigits(const CalendarStep& step) {
    int digits = 6;
    for (std::int64_t count = step.count; digits > 0 && count % 10 == 0; count /= 10)
        --digits;
    return digits;
}

QString label(const LocalTime& time, const CalendarStep& step) {
    switch (step.unit) {
    case CalendarUnit::Microsecond:
        return padded(time.second, 2) + fraction(time.microsecond, fractionDigits(step));
    case CalendarUnit::Second:
        return step.count < 60 ? clock(time) + u':' + padded(time.second, 2) : clock(time);
    case CalendarUnit::Day:
        return QString::number(time.day) + u' ' + monthName(time);
    case CalendarUnit::Month:
        return monthName(time);
    case CalendarUnit::Year:
        return QString::number(time.year);
    }
    return {};
}

QString context(const LocalTime& time, const CalendarStep& step) {
    switch (step.unit) {
    case CalendarUnit::Microsecond:
        return date(time) + u' ' + clock(time);
    case CalendarUnit::Second:
        return date(time);
    case CalendarUnit::Day:
    case CalendarUnit::Month:
        return QString::number(time.year);
    case CalendarUnit::Year:
        break;
    }
    return {};
}

QString stepText(const CalendarStep& step) {
    const auto text = [](double count, const char* unit) {
        return QString::number(count) + u' ' + QString::fromUtf8(unit);
    };
    const auto count = static_cast<double>(step.count);
    switch (step.unit) {
    case CalendarUnit::Microsecond:
        return step.count < 1000 ? text(count, "µs") : text(count / 1000, "ms");
    case CalendarUnit::Second:
        return step.count < 60     ? text(count, "s")
               : step.count < 3600 ? text(count / 60, "min")
                                   : text(count / 3600, "h");
    case CalendarUnit::Day:
        return text(count, "d");
    case CalendarUnit::Month:
        return text(count, "mo");
    case CalendarUnit::Year:
        return text(count, "y");
    }
    return {};
}

const ZoneStretch& stretchAt(double time, const std::vector<ZoneStretch>& stretches) {
    for (const ZoneStretch& stretch : stretches)
        if (time < stretch.to) return stretch;
    return stretches.back();
}

// Whether the local clock shows a moment's time once more, before or after it.
bool comesTwice(double time, const std::vector<ZoneStretch>& stretches) {
    for (std::size_t i = 1; i < stretches.size(); ++i) {
        const auto back = static_cast<double>(stretches[i - 1].offset - stretches[i].offset);
        if (time >= stretches[i].from - back && time < stretches[i].from + back) return true;
    }
    return false;
}

QString changeLabel(std::int64_t seconds, const QString& abbreviation) {
    const std::int64_t minutes = std::abs(seconds) / 60;
    QString text = seconds < 0 ? QStringLiteral("−") : QStringLiteral("+");
    text += minutes % 60 == 0 ? QStringLiteral("%1 h").arg(minutes / 60)
                              : QStringLiteral("%1 min").arg(minutes);
    return text + u' ' + abbreviation;
}

std::vector<ClockChange> clockChanges(double from, double to,
                                      const std::vector<ZoneStretch>& stretches) {
    std::vector<ClockChange> changes;
    for (std::size_t i = 1; i < stretches.size(); ++i) {
        const ZoneStretch& stretch = stretches[i];
        if (stretch.from < from || stretch.from > to) continue;
        const std::int64_t jump = stretch.offset - stretches[i - 1].offset;
        changes.push_back({stretch.from, int(jump), changeLabel(jump, stretch.abbreviation)});
    }
    return changes;
}

} // namespace

void TimeTicks::setUtcOffset(std::optional<int> offset) {
    if (offset == m_utcOffset) return;
    m_utcOffset = offset;
    m_offsets = ZoneOffsets(offset ? QTimeZone(*offset) : m_zone);
}

TimeMarks TimeTicks::find(double from, double to, int labels) const {
    TimeMarks marks;
    from = std::max(from, -61e9); // the years of four digits
    to = std::min(to, 252e9);
    if (!(from < to)) return marks;
    const CalendarStep step = calendarStep(to - from, labels);
    // A mark before the span may decide on a local midnight inside it.
    const auto stretches = m_offsets.stretches(from - 2 * daySeconds, to + 2 * daySeconds);
    const auto majors = calendarMarks(step.unit, step.count, from, to, stretches);
    const auto minors = calendarMarks(step.minorUnit, step.minorCount, from, to, stretches);
    for (const double time : minors)
        if (!std::binary_search(majors.begin(), majors.end(), time))
            marks.ticks.push_back({time, false, {}, {}});

    marks.start = context(localTime(from, stretchAt(from, stretches).offset), step);
    marks.step = stepText(step);
    QString lastContext;
    const ZoneStretch* lastStretch = nullptr;
    for (const double time : majors) {
        const ZoneStretch& stretch = stretchAt(time, stretches);
        const LocalTime local = localTime(time, stretch.offset);
        AxisTick tick{time, true, label(local, step), context(local, step)};
        if (tick.context == lastContext) {
            const bool changed = step.isClock() && lastStretch && lastStretch != &stretch;
            tick.context = changed ? stretch.abbreviation : QString();
        } else {
            lastContext = tick.context;
        }
        lastStretch = &stretch;
        marks.ticks.push_back(std::move(tick));
    }
    std::sort(marks.ticks.begin(), marks.ticks.end(),
              [](const AxisTick& a, const AxisTick& b) { return a.value < b.value; });
    if (step.isClock()) marks.changes = clockChanges(from, to, stretches);
    return marks;
}

QString TimeTicks::fullText(double time, int digits) const {
    if (!std::isfinite(time) || std::abs(time) > 2e11) return {};
    digits = std::clamp(digits, 0, 6);
    const double unit = std::pow(10.0, digits);
    const double whole = std::floor(time);
    const double rounded = whole + std::round((time - whole) * unit) / unit;
    const auto stretches = m_offsets.stretches(rounded - daySeconds, rounded + daySeconds);
    const ZoneStretch& stretch = stretchAt(rounded, stretches);
    const LocalTime local = localTime(rounded, stretch.offset);
    return padded(local.year, 4) + u'-' + padded(local.month, 2) + u'-' + padded(local.day, 2) +
           u' ' + clock(local) + u':' + padded(local.second, 2) +
           fraction(local.microsecond, digits) +
           (comesTwice(rounded, stretches) ? u' ' + stretch.abbreviation : QString());
}

QString TimeTicks::spanText(double seconds, int digits) {
    if (!std::isfinite(seconds) || std::abs(seconds) > 2e11) return {};
    digits = std::clamp(digits, 0, 6);
    const double unit = std::pow(10.0, digits);
    const double rounded = std::round(std::abs(seconds) * unit) / unit;
    const QString sign = seconds < 0 && rounded > 0 ? QStringLiteral("−") : QString();
    if (rounded < 60) return sign + QString::number(rounded, 'f', digits) + QStringLiteral(" s");
    const auto days = static_cast<std::int64_t>(rounded / daySeconds);
    const LocalTime local = localTime(rounded - static_cast<double>(days * daySeconds), 0);
    const QString time =
        clock(local) + u':' + padded(local.second, 2) + fraction(local.microsecond, digits);
    return sign + (days == 0 ? time : QStringLiteral("%1 d ").arg(days) + time);
}

QString TimeTicks::sampleLabel(double span, int labels) {
    LocalTime widest{2000, 1, 28, 20, 0, 0, 0};
    const CalendarStep step = calendarStep(span, labels);
    if (step.isClock() || step.unit == CalendarUnit::Year) return label(widest, step);
    QString result;
    for (widest.month = 1; widest.month <= 12; ++widest.month) {
        const QString text = label(widest, step);
        if (text.size() > result.size()) result = text;
    }
    return result;
}

} // namespace pellam
