#pragma once

#include "delimited/sample/SampleRecords.h"
#include "delimited/sample/SampleTable.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pellam {

/// The rows of a table in which its time is looked for: some consecutive ones from its first, and
/// some of the file's end.
class TimeRows {
  public:
    /// All that is handed in outlives this. `names` of the columns, none without headings.
    TimeRows(const SampleRecords& head, const SampleRecords& tail, const SampleTable& table,
             const std::vector<std::string>& names);

    [[nodiscard]] bool empty() const { return m_rows.empty(); }

    /// Rows that follow each other, from the first.
    [[nodiscard]] std::size_t consecutive() const { return m_consecutive; }

    [[nodiscard]] std::size_t columns() const { return m_table.kinds.size(); }

    [[nodiscard]] FieldKind kind(std::size_t column) const { return m_table.kind(column); }

    [[nodiscard]] bool hasNames() const { return !m_names.empty(); }

    /// A column's heading; empty where it has none.
    [[nodiscard]] std::string_view name(std::size_t column) const {
        return column < m_names.size() ? std::string_view(m_names[column]) : std::string_view();
    }

    /// A field of the first row.
    [[nodiscard]] std::string_view firstText(std::size_t column) const {
        return textAt(m_rows.front(), column);
    }

    /// The joined texts of all rows; see joinedTime().
    [[nodiscard]] std::vector<std::string> texts(const std::vector<std::size_t>& columns,
                                                 int padded = -1) const;

    /// The least and the greatest number of a column of whole numbers; NaN for any other.
    [[nodiscard]] std::pair<double, double> range(std::size_t column) const;

    /// Whether a column's last two digits may be minutes.
    [[nodiscard]] bool minutesFit(std::size_t column) const;

    /// Whether a column is of numbers of so many digits before their decimals.
    [[nodiscard]] bool isDigits(std::size_t column, std::size_t digits) const;

    /// Whether a column is of times of day such as "18.00.00".
    [[nodiscard]] bool isPointClock(std::size_t column) const;

    /// Whether year, day of the year, month and day stand side by side and name one day.
    [[nodiscard]] bool daysAgree(std::size_t year) const;

    /// Whether a column counts the rows from 1.
    [[nodiscard]] bool counts(std::size_t column) const;

    /// Whether most numbers of a column are no less than those before them.
    [[nodiscard]] bool rises(std::size_t column) const;

    /// Whether they rise by about the same step, which is no whole number: a count of rows rises
    /// evenly, too, but by whole ones.
    [[nodiscard]] bool risesEvenly(std::size_t column) const;

  private:
    using Fields = std::span<const SampleField>;

    [[nodiscard]] static std::string_view textAt(Fields row, std::size_t column) {
        return column < row.size() ? row[column].text : std::string_view();
    }

    [[nodiscard]] std::vector<double> values(std::size_t column) const;

    const SampleTable& m_table;
    const std::vector<std::string>& m_names;
    std::vector<Fields> m_rows;
    std::size_t m_consecutive = 0;
};

} // namespace pellam
