#include "export/RowFormatter.h"

#include "base/QuotedField.h"

#include <algorithm>

namespace pellam {

namespace {

// In quotes, with the separator and the line's end.
constexpr std::size_t kFieldRoom = 2 * CellText::kRoom + 4;

/// Stands in for chunks that no row was written to.
const std::vector<Cell>& emptyChunk() {
    static const std::vector<Cell> cells(static_cast<std::size_t>(Column::kChunkRows));
    return cells;
}

} // namespace

RowFormatter::RowFormatter(BlockWriter& file, std::span<const Column* const> columns,
                           char separator, bool rowEndsInSeparator)
    : m_file(file),
      m_columns(columns),
      m_cells(columns.size()),
      m_room(kFieldRoom * (columns.size() + 1)),
      m_separator(separator),
      m_rowEndsInSeparator(rowEndsInSeparator),
      m_numbersAreSafe(std::string_view("0123456789+-.:/ T").find(separator) ==
                       std::string_view::npos) {
    for (const Column* const column : columns) {
        m_texts.emplace_back(column->decimalSeparator());
        if (column->decimalSeparator() == separator) m_numbersAreSafe = false;
    }
}

void RowFormatter::appendHeadings(bool endsInSeparator) {
    for (const Column* const column : m_columns) {
        char* out = appendText(column->label());
        if (endsInSeparator || column != m_columns.back()) *out++ = m_separator;
        m_file.advance(out);
    }
    m_file.append("\r\n");
}

void RowFormatter::appendRows(Row first, Row end) {
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const Cell* const chunk = m_columns[i]->chunkAt(first);
        m_cells[i] = chunk != nullptr ? chunk : emptyChunk().data();
    }
    for (Row row = first; row < end && !m_file.failed(); ++row)
        appendLine(static_cast<std::size_t>(row % Column::kChunkRows));
}

void RowFormatter::appendLine(std::size_t index) {
    char* out = m_file.room(m_room);
    for (std::size_t i = 0; i < m_cells.size(); ++i) {
        const Cell cell = m_cells[i][index];
        if (cell.kind() == Cell::Kind::Arena) {
            CellBuffer unused;
            m_file.advance(out);
            out = appendText(m_columns[i]->text(cell, unused));
        } else {
            char* const begin = out;
            out = m_texts[i].write(cell, begin);
            if (!isSafe(cell)) {
                CellBuffer copy;
                char* const end = std::copy(begin, out, copy.data());
                const std::string_view text(copy.data(),
                                            static_cast<std::size_t>(end - copy.data()));
                if (needsQuotes(text, m_separator)) out = writeQuoted(text, begin);
            }
        }
        *out++ = m_separator;
    }
    if (!m_rowEndsInSeparator && !m_cells.empty()) --out;
    *out++ = '\r';
    *out++ = '\n';
    m_file.advance(out);
}

/// Whether the text of a packed cell needs no quotes, as far as its kind tells.
bool RowFormatter::isSafe(Cell cell) const {
    if (cell.kind() == Cell::Kind::Short || TimeCell::hasComma(cell)) return false;
    return m_numbersAreSafe || cell.isEmpty();
}

/// Gives where the line goes on, with room for the rest of it.
char* RowFormatter::appendText(std::string_view text) {
    if (needsQuotes(text, m_separator))
        m_file.advance(writeQuoted(text, m_file.room(2 * text.size() + 2)));
    else
        m_file.append(text);
    return m_file.room(m_room);
}

} // namespace pellam
