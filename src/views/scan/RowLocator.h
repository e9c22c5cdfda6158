#pragma once

#include "grid/GridData.h"

#include <optional>
#include <string>
#include <string_view>

namespace pellam {

/// Finds the row that a person asks for by number or by time, in steps of bounded work.
class RowLocator {
  public:
    enum class State {
        Searching,
        Found,
        NotUnderstood, ///< neither a row number nor a time
        NoSuchRow,     ///< no row of this number
        NoRowAtOrAfter ///< every row is earlier than this time
    };

    /// `wanted` is a row number from 1, or the beginning of a time, year first:
    /// "2008/02/25 12", "2008-2-25T12:30". A text that is neither is looked for as the beginning of
    /// a row's time. `grid` must outlive the locator.
    RowLocator(const GridData& grid, std::string_view wanted);

    /// Looks at up to `rows` rows more.
    State step(std::int64_t rows);

    [[nodiscard]] State state() const { return m_state; }

    /// The data row found: of that number, or the first one at or after that time.
    [[nodiscard]] Row row() const { return m_row; }

    /// Orders times: year, month, day, hour, minute, second and fraction, missing ones counting as
    /// the least there are. Nothing for a text that does not begin with a year of four digits and a
    /// separator.
    struct TimeKey {
        std::int64_t second = 0;     ///< yyyyMMddHHmmss as one number
        std::int64_t nanosecond = 0; ///< 0 to 999999999; further digits are dropped
        friend auto operator<=>(const TimeKey&, const TimeKey&) = default;
    };

    static std::optional<TimeKey> timeKey(std::string_view text);

  private:
    [[nodiscard]] bool matches(std::string_view time) const;

    const GridData& m_grid;
    std::string m_prefix;
    std::optional<TimeKey> m_key;
    Row m_row = 0;
    State m_state = State::Searching;
};

} // namespace pellam
