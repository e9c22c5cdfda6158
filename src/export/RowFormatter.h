#pragma once

#include "base/BlockWriter.h"
#include "export/CellText.h"
#include "grid/Column.h"

#include <span>
#include <string_view>
#include <vector>

namespace pellam {

/// Turns rows of cells into lines of delimited text. A field stands as it is shown, in quotes where
/// it needs them.
class RowFormatter {
  public:
    RowFormatter(BlockWriter& file, std::span<const Column* const> columns, char separator,
                 bool rowEndsInSeparator);

    /// Adds the line of headings.
    void appendHeadings(bool endsInSeparator);
    /// Adds the lines of rows `first` up to, not including, `end`, all within one chunk.
    void appendRows(Row first, Row end);

  private:
    void appendLine(std::size_t index);
    char* appendText(std::string_view text);
    [[nodiscard]] bool isSafe(Cell cell) const;

    BlockWriter& m_file;
    std::span<const Column* const> m_columns;
    std::vector<const Cell*> m_cells; ///< per column, the chunk at hand
    std::vector<CellText> m_texts;    ///< per column
    std::size_t m_room;               ///< for a line without the texts of the arena
    char m_separator;
    bool m_rowEndsInSeparator;
    bool m_numbersAreSafe; ///< the separator stands in no number and no time
};

} // namespace pellam
