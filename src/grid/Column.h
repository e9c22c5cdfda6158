#pragma once

#include "grid/Cell.h"
#include "grid/CellColour.h"
#include "grid/ChunkPool.h"
#include "grid/TextArena.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// A data row, counted from 0.
using Row = std::int64_t;

/// One column of the grid: its heading and its cells, in chunks of 16384 rows that exist only once
/// they are written to.
class Column {
  public:
    static constexpr Row kChunkRows = ChunkPool::kChunkCells;

    Column(std::shared_ptr<ChunkPool> pool, char decimalSeparator);
    ~Column();
    Column(const Column&) = delete;
    Column& operator=(const Column&) = delete;

    /// Heading text: the channel's name followed by its units in round brackets.
    [[nodiscard]] const std::string& label() const { return m_label; }
    void setLabel(std::string_view label) { m_label = label; }

    /// Whether the heading's check box is set: the channel is charted and exported.
    [[nodiscard]] bool charted() const { return m_charted; }
    void setCharted(bool charted) { m_charted = charted; }

    /// Chart axis, 1 to 6.
    [[nodiscard]] int axis() const { return m_axis; }
    void setAxis(int axis) { m_axis = axis; }

    /// The packed cell; an empty one for rows never written.
    [[nodiscard]] Cell cell(Row row) const {
        const auto chunk = static_cast<std::size_t>(row / kChunkRows);
        if (chunk >= m_chunks.size() || !m_chunks[chunk]) return {};
        return m_chunks[chunk][row % kChunkRows];
    }

    /// Text of a cell, written into `buffer` where it is not stored as text.
    [[nodiscard]] std::string_view text(Row row, CellBuffer& buffer) const {
        return text(cell(row), buffer);
    }
    [[nodiscard]] std::string_view text(Cell cell, CellBuffer& buffer) const;

    /// Numeric value of a cell; nothing when it is empty or its text is no decimal number.
    [[nodiscard]] std::optional<double> number(Row row) const { return number(cell(row)); }
    [[nodiscard]] std::optional<double> number(Cell cell) const;

    /// Writes the values of rows `first` to `first + out.size() - 1` to `out`; NaN where a cell has
    /// no number.
    void numbers(Row first, std::span<double> out) const;

    void setText(Row row, std::string_view text, CellColour colour);
    /// Packs a text for this column; its colour is black. Texts that no packed form keeps
    /// character for character go to the column's arena.
    [[nodiscard]] Cell pack(std::string_view text);

    /// Cells of the chunk that holds `row`, made when missing: index them with row % kChunkRows.
    [[nodiscard]] Cell* chunkFor(Row row);
    /// The same without making it: null for a chunk that no row was written to.
    [[nodiscard]] const Cell* chunkAt(Row row) const;

    /// Drops all cells and texts; heading, check box and axis stay.
    void clear();

    [[nodiscard]] char decimalSeparator() const { return m_decimalSeparator; }

  private:
    std::shared_ptr<ChunkPool> m_pool;
    std::vector<Cell*> m_chunks;
    TextArena m_texts;
    std::string m_label;
    int m_axis = 1;
    bool m_charted = false;
    char m_decimalSeparator;
};

} // namespace pellam
