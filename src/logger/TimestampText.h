#pragma once

#include <cstddef>
#include <cstdint>

namespace pellam {

/// Texts of the times in a binary data file, counted in microseconds.
class TimestampText {
  public:
    /// Room that any text needs, its closing NUL included.
    static constexpr std::size_t kRoom = 60;

    /// `decimal` stands before the microseconds.
    explicit TimestampText(char decimal) : m_decimal(decimal) {}

    /// Writes a time since 1989-01-01 00:00:00 UTC as "2008/02/25 13:45:10.000250", in UTC; returns
    /// the end. Quick when the times of one day follow each other.
    char* write(std::uint64_t microseconds, char* out);

    /// Writes an interval; returns the end. The loggers' readers agree on this form: day of the
    /// year (from 0, as if the interval began in 1970), hour and minute, then the character whose
    /// code is the second, then the code of the decimal separator in six digits. Like any text of
    /// this kind it ends before a character of code 0, so at a full minute behind the minute.
    char* writeInterval(std::uint64_t microseconds, char* out) const;

  private:
    void setDay(std::uint64_t day);

    std::uint64_t m_day = ~std::uint64_t{0}; ///< the day that m_date shows, since 1970
    char m_date[32] = {};
    std::size_t m_dateSize = 0;
    char m_decimal;
};

} // namespace pellam
