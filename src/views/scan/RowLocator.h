#pragma once

#include "grid/TimeColumn.h"
#include "times/SoughtTime.h"

#include <cstdint>
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

    /// `wanted` is a row number from 1, also as "row 12", or a time or the beginning of one: see
    /// SoughtTime. A text that is neither is looked for as the beginning of a row's time. A time of
    /// day alone is sought from row `from` on, and then from the first row to there. `grid` must
    /// outlive the locator.
    RowLocator(const GridData& grid, const InternationalSettings& settings, std::string_view wanted,
               Row from = 0);

    /// Looks at up to `rows` rows more.
    State step(std::int64_t rows);

    [[nodiscard]] State state() const { return m_state; }

    /// The data row found: of that number, or the first one at or after that time.
    [[nodiscard]] Row row() const { return m_row; }

  private:
    void findNumber();
    bool matches();

    const GridData& m_grid;
    TimeColumn m_column;
    std::string m_prefix;
    std::optional<SoughtTime> m_sought;
    std::optional<SoughtTime> m_target; ///< what is sought, once the first row's time is known
    Row m_row = 0;
    Row m_left; ///< rows that were not looked at yet
    State m_state = State::Searching;
};

} // namespace pellam
