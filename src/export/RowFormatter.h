#pragma once

#include "base/AtomicFile.h"
#include "export/CellText.h"
#include "grid/Column.h"

#include <span>
#include <string_view>
#include <vector>

namespace pellam {

/// Turns rows of cells into lines of text and hands them to a file in large blocks.
class RowFormatter {
  public:
    /// Writes to `file`, which must be open.
    RowFormatter(AtomicFile& file, std::span<const Column* const> columns, char separator,
                 bool rowEndsInSeparator);

    /// Adds a text as it stands.
    [[nodiscard]] Failure append(std::string_view text);
    /// Adds the lines of rows `first` up to, not including, `end`, all within one chunk.
    [[nodiscard]] Failure appendRows(Row first, Row end);
    /// Hands what is left to the file.
    [[nodiscard]] Failure flush();

  private:
    bool appendLine(std::size_t index);
    void appendLongText(std::string_view text);

    AtomicFile& m_file;
    std::span<const Column* const> m_columns;
    std::vector<const Cell*> m_cells; ///< per column, the chunk at hand
    std::vector<CellText> m_texts;    ///< per column
    std::vector<char> m_buffer;
    char* m_out;
    char* m_full; ///< past here a line may not fit
    Failure m_failure;
    char m_separator;
    bool m_rowEndsInSeparator;
};

} // namespace pellam
