#pragma once

#include "grid/GridData.h"
#include "views/scan/CellArea.h"

#include <optional>
#include <string>
#include <string_view>

namespace pellam {

/// What to look for.
struct FindQuery {
    static constexpr int kAllColumns = -1;

    std::string text; ///< UTF-8
    int column = kAllColumns;
    bool caseSensitive = false;
    bool wholeCell = false; ///< the text is all of the cell, not a part of it
    bool forward = true;
};

/// Looks for a text in the data cells, row by row, in steps of bounded work. Starts beside a cell,
/// goes on at the other end of the grid and ends with that cell itself.
class FindScan {
  public:
    struct Place {
        int column = 0;
        Row row = 0; ///< data row
        friend bool operator==(const Place&, const Place&) = default;
    };
    enum class State { Searching, Found, NotFound };

    /// Searches `grid`, which must outlive the scan; `from` is the current cell, row -1 when that
    /// is above the data.
    FindScan(const GridData& grid, FindQuery query, Place from);

    /// Looks at up to `cells` cells more.
    State step(std::int64_t cells);

    [[nodiscard]] State state() const { return m_state; }

    /// Where the text was found.
    [[nodiscard]] Place place() const { return m_place; }

    /// Whether the search went on at the other end.
    [[nodiscard]] bool wrapped() const { return m_wrapped; }

    /// Share of the cells looked at, 0 to 1.
    [[nodiscard]] double progress() const;

    /// Whether one text, as stored, matches the query.
    [[nodiscard]] bool matches(std::string_view stored);

  private:
    void advance();

    const GridData& m_grid;
    FindQuery m_query;
    std::string m_needle;
    std::string m_folded;
    Place m_place;
    int m_firstColumn = 0;
    int m_lastColumn = 0;
    std::int64_t m_total = 0;
    std::int64_t m_left = 0;
    State m_state = State::Searching;
    bool m_wrapped = false;
};

} // namespace pellam
