#pragma once

#include "delimited/layout/TextLayout.h"
#include "grid/GridData.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// Which field of a delimited text goes to which column of the grid: the time to column 0, the
/// other fields to the columns behind it in their order, and last, unchecked, fields that only make
/// up a time that is written anew.
class DelimitedColumns {
  public:
    static constexpr int kNone = -1;

    /// Gives the grid the columns of the layout.
    DelimitedColumns(GridData& grid, const TextLayout& layout);

    /// Gives the grid columns of these headings; the first is the time's.
    DelimitedColumns(GridData& grid, const std::vector<std::string>& labels);

    /// The column of a field; 0 where it is a part of the time and has none, kNone where no value
    /// was expected.
    [[nodiscard]] int ofField(std::size_t field) const { return m_columns[field]; }

    /// Fields that have a column or are the time's.
    [[nodiscard]] std::size_t fields() const { return m_columns.size(); }

    /// Whether field n goes to column n throughout.
    [[nodiscard]] bool isPlain() const { return m_plain; }

    /// Adds "Column n" for a field that has none, and for those before it.
    void add(std::size_t field);

    /// "name (units)", or the name alone where it has the units already.
    [[nodiscard]] static std::string labelOf(const TextLayout& layout, std::size_t field);

  private:
    int addColumn(std::string_view label, bool checked);

    GridData& m_grid;
    std::vector<int> m_columns; ///< by field
    int m_count = 0;            ///< columns so far
    bool m_plain = true;
};

} // namespace pellam
