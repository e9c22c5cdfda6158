#include "export/RowFormatter.h"

#include <algorithm>

namespace pellam {

namespace {

constexpr std::size_t kBlock = std::size_t{256} << 10; // stays in the cache between the two sides

/// Stands in for chunks that no row was written to.
const std::vector<Cell>& emptyChunk() {
    static const std::vector<Cell> cells(static_cast<std::size_t>(Column::kChunkRows));
    return cells;
}

} // namespace

RowFormatter::RowFormatter(AtomicFile& file, std::span<const Column* const> columns, char separator,
                           bool rowEndsInSeparator)
    : m_file(file),
      m_columns(columns),
      m_cells(columns.size()),
      m_separator(separator),
      m_rowEndsInSeparator(rowEndsInSeparator) {
    for (const Column* const column : columns)
        m_texts.emplace_back(column->decimalSeparator());
    m_buffer.resize(kBlock + columns.size() * (CellText::kRoom + 1) + 2);
    m_out = m_buffer.data();
    m_full = m_buffer.data() + kBlock;
}

Failure RowFormatter::append(std::string_view text) {
    appendLongText(text);
    return m_failure;
}

Failure RowFormatter::appendRows(Row first, Row end) {
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const Cell* const chunk = m_columns[i]->chunkAt(first);
        m_cells[i] = chunk != nullptr ? chunk : emptyChunk().data();
    }
    for (Row row = first; row < end; ++row) {
        if (!appendLine(static_cast<std::size_t>(row % Column::kChunkRows))) break;
    }
    return m_failure;
}

bool RowFormatter::appendLine(std::size_t index) {
    char* out = m_out;
    for (std::size_t i = 0; i < m_cells.size(); ++i) {
        const Cell cell = m_cells[i][index];
        if (cell.kind() == Cell::Kind::Arena) {
            CellBuffer unused;
            m_out = out;
            appendLongText(m_columns[i]->text(cell, unused));
            out = m_out;
        } else {
            out = m_texts[i].write(cell, out);
        }
        *out++ = m_separator;
    }
    if (!m_rowEndsInSeparator && !m_cells.empty()) --out;
    *out++ = '\r';
    *out++ = '\n';
    m_out = out;
    if (m_out >= m_full) m_failure = flush();
    return !m_failure;
}

/// Keeps the room for the rest of a line free behind the text.
void RowFormatter::appendLongText(std::string_view text) {
    const auto room = m_full > m_out ? static_cast<std::size_t>(m_full - m_out) : 0;
    if (text.size() > room && !m_failure) m_failure = flush();
    if (m_failure) return;
    if (text.size() > kBlock) {
        m_failure = m_file.write(text);
        return;
    }
    m_out = std::copy(text.begin(), text.end(), m_out);
}

Failure RowFormatter::flush() {
    const auto size = static_cast<std::size_t>(m_out - m_buffer.data());
    m_out = m_buffer.data();
    return m_file.write({m_buffer.data(), size});
}

} // namespace pellam
