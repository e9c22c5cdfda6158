#pragma once

#include <chrono>
#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace pellam {

template <class T>
concept SecondsNumber = std::integral<T> || std::floating_point<T>;

/// A date and time of day as days since 1899-12-30 in local time. Before that day the time of day
/// still counts forward (-1.25 is 1899-12-29 06:00).
struct OleDate {
    double days = 0;
};

/// 100-ns ticks since 1601-01-01 00:00:00 UTC in two halves.
struct FileTime {
    std::uint32_t low = 0;
    std::uint32_t high = 0;
};

/// The program's time stamp: whole seconds since 1970-01-01 00:00:00 UTC, as an unsigned 32-bit
/// count (1970 to 2106; anything else wraps), and microseconds. This program's rule: the
/// microseconds are never normalised, arithmetic and parsing may leave 1,000,000 or more there.
class CMyTime {
  public:
    using CalendarTime = std::chrono::sys_seconds;

    constexpr CMyTime() = default;
    explicit CMyTime(CalendarTime time);
    /// Seconds; a fraction is rounded to microseconds. Not a number counts as 0.
    template <SecondsNumber Number>
    explicit CMyTime(Number seconds);
    /// Local time, daylight saving as the zone decides; both fields 0 when it is not a date
    /// of the years 1970 to 2106. A fraction of a second is lost.
    explicit CMyTime(OleDate date);

    template <SecondsNumber Number>
    CMyTime& operator=(Number seconds) {
        return *this = CMyTime(seconds);
    }

    CMyTime& operator=(CalendarTime time) { return *this = CMyTime(time); }

    CMyTime& operator=(OleDate date) { return *this = CMyTime(date); }

    [[nodiscard]] std::int64_t GetTime() const { return m_seconds; }

    [[nodiscard]] std::uint32_t GetTotalSeconds() const { return m_seconds; }

    [[nodiscard]] std::uint32_t GetMicroSecond() const { return m_microseconds; }

    /// Seconds with their fraction.
    [[nodiscard]] double GetMyTime() const;
    /// The chart's time axis value: seconds + microseconds / 1,000. This program's rule.
    [[nodiscard]] double GetTrendTime() const;

    [[nodiscard]] std::uint32_t GetTotalDays() const { return m_seconds / kSecondsPerDay; }

    /// Seconds since midnight UTC.
    [[nodiscard]] std::uint32_t GetSecondsSinceMidnight() const {
        return m_seconds % kSecondsPerDay;
    }

    [[nodiscard]] int GetYear() const;

    /// The local year. This program's rule: for the month ask Format().
    [[nodiscard]] int GetMonth() const { return GetYear(); }

    /// The local year. This program's rule: for the day ask Format().
    [[nodiscard]] int GetDay() const { return GetYear(); }

    [[nodiscard]] int GetHour() const;
    [[nodiscard]] int GetMinute() const;
    [[nodiscard]] int GetSecond() const;
    /// Whether local time has daylight saving in force at this moment.
    [[nodiscard]] bool IsDaylightTime() const;
    /// Local time with the fraction of a second.
    [[nodiscard]] OleDate GetOLEDateTime() const;
    [[nodiscard]] FileTime GetFILETIME() const;

    /// Now, in seconds, plus the clock's milliseconds / 1,000,000. This program's rule.
    static double GetTickCount();
    /// Now, in seconds with milliseconds.
    static double GetTrendCurrentTime();

    // Both fields are added and subtracted each by itself, without carry or borrow.
    CMyTime& operator+=(const CMyTime& other);
    CMyTime& operator-=(const CMyTime& other);
    // A number counts as whole seconds; the microseconds stay.
    template <SecondsNumber Number>
    CMyTime& operator+=(Number seconds);
    template <SecondsNumber Number>
    CMyTime& operator-=(Number seconds);

    CMyTime& operator+=(CalendarTime time) { return *this += time.time_since_epoch().count(); }

    CMyTime& operator-=(CalendarTime time) { return *this -= time.time_since_epoch().count(); }

    template <class Other>
    friend CMyTime operator+(CMyTime left, const Other& right) {
        return left += right;
    }

    template <class Other>
    friend CMyTime operator-(CMyTime left, const Other& right) {
        return left -= right;
    }

    friend constexpr auto operator<=>(const CMyTime&, const CMyTime&) = default;
    friend constexpr bool operator==(const CMyTime&, const CMyTime&) = default;

    friend bool operator!=(const CMyTime& left, CalendarTime right) {
        return left.m_seconds != CMyTime(right).m_seconds;
    }

    /// This program's rule: the fraction of `right` counts as 0.
    template <SecondsNumber Number>
    friend bool operator!=(const CMyTime& left, Number right) {
        return left.m_seconds != wholeSeconds(right) || left.m_microseconds != 0;
    }

    template <SecondsNumber Number>
    friend bool operator<(const CMyTime& left, Number right) {
        return left.m_seconds < wholeSeconds(right);
    }

    template <SecondsNumber Number>
    friend bool operator>(const CMyTime& left, Number right) {
        return left.m_seconds > wholeSeconds(right);
    }

    template <SecondsNumber Number>
    friend bool operator<=(const CMyTime& left, Number right) {
        return left.m_seconds <= wholeSeconds(right);
    }

    /// This program's rule: this one comparison takes both sides as signed 32-bit numbers.
    template <SecondsNumber Number>
    friend bool operator>=(const CMyTime& left, Number right) {
        return static_cast<std::int32_t>(left.m_seconds) >=
               static_cast<std::int32_t>(wholeSeconds(right));
    }

    // Readers of a logger's own texts, in local time without daylight saving and with the quirks
    // that replay files are written for. Time columns are read by TimeReader.

    /// Reads year, month, day, hour, minute, second, separated by '/', ',', ':' or ' ', as local
    /// time without daylight saving. 1, or 0 and no change for fewer than six pieces.
    int ParseDateTime(std::string_view text);

    int ParseDateTime(const char* text) { return text ? ParseDateTime(std::string_view(text)) : 0; }

    /// Reads "yyyy/MM/dd" at the start of the text: its local midnight without daylight saving.
    /// 1, or 0 and no change.
    int ParseDate(std::string_view text);
    /// Reads "HH:mm:ss" or "HH:mm:ss.ffffff" at the start of the text and adds it to the seconds;
    /// the fraction replaces the microseconds. 1, or 0 and no change.
    int ParseTime(std::string_view text);
    /// Adds a sub-second field such as "0.000488", which the rest of its line may follow. This
    /// program's rule: the digits after the first '.' anywhere in the text are added to the
    /// microseconds unscaled. 1, or 0 and no change.
    int SetDateTimeOffset(std::string_view text);

    /// Local time by strftime(); empty when that takes more than 127 characters. A pattern with
    /// "%s" is followed by '.' and the milliseconds when there are microseconds.
    [[nodiscard]] std::string Format(const char* pattern) const;
    /// As Format, an hour earlier where daylight saving is in force; a pattern with "%X" is
    /// followed by '.' and the microseconds without trailing zeros.
    [[nodiscard]] std::string FormatLocalNoDST(const char* pattern) const;

  private:
    static constexpr std::uint32_t kSecondsPerDay = 86'400;

    static std::uint32_t wholeSeconds(double seconds);

    template <std::integral Number>
    static std::uint32_t wholeSeconds(Number seconds) {
        return static_cast<std::uint32_t>(seconds);
    }

    void setFloating(double seconds);

    std::uint32_t m_seconds = 0;
    std::uint32_t m_microseconds = 0;
};

template <SecondsNumber Number>
CMyTime::CMyTime(Number seconds) {
    if constexpr (std::floating_point<Number>) {
        setFloating(static_cast<double>(seconds));
    } else {
        m_seconds = wholeSeconds(seconds);
    }
}

template <SecondsNumber Number>
CMyTime& CMyTime::operator+=(Number seconds) {
    m_seconds += wholeSeconds(seconds);
    return *this;
}

template <SecondsNumber Number>
CMyTime& CMyTime::operator-=(Number seconds) {
    m_seconds -= wholeSeconds(seconds);
    return *this;
}

} // namespace pellam
