#pragma once

#include "grid/Cell.h"
#include "grid/CellStorage.h"

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

/// Gives a chunk back to the pool that it came from.
struct ChunkReturner {
    ChunkPool* pool = nullptr;

    void operator()(Cell* chunk) const { pool->giveBack(chunk); }
};

/// A chunk of cells outside of its column; null stands for empty cells. The grid outlives it.
using SpareChunk = std::unique_ptr<Cell[], ChunkReturner>;

/// One column of the grid: its heading and its cells, in chunks of 16384 rows that exist only once
/// they are written to.
class Column {
  public:
    static constexpr Row kChunkRows = ChunkPool::kChunkCells;

    /// An empty column of a grid; the storage outlives it.
    explicit Column(CellStorage& storage) : m_storage(&storage) {}

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
        const Cell* const chunk = chunkAt(row);
        return chunk ? chunk[row % kChunkRows] : Cell();
    }

    void setCell(Row row, Cell cell) { chunkFor(row)[row % kChunkRows] = cell; }

    /// Text of a cell, written into `buffer` where it is not stored as text. The view is valid
    /// until the buffer or the column changes.
    [[nodiscard]] std::string_view text(Row row, CellBuffer& buffer) const {
        return text(cell(row), buffer);
    }

    [[nodiscard]] std::string_view text(Cell cell, CellBuffer& buffer) const;

    /// Numeric value of a cell; nothing when its text is no decimal number or it is empty.
    [[nodiscard]] std::optional<double> number(Row row) const { return number(cell(row)); }

    [[nodiscard]] std::optional<double> number(Cell cell) const;

    /// Writes the values of rows `first` to `first + out.size() - 1` to `out`; NaN where a cell has
    /// no number.
    void numbers(Row first, std::span<double> out) const;

    /// Packs a text of this column, in black. Texts that no packed form keeps character for
    /// character are copied to the arena.
    [[nodiscard]] Cell pack(std::string_view text);

    /// Cells of the chunk that holds `row`, made when missing: index them with row % kChunkRows.
    [[nodiscard]] Cell* chunkFor(Row row) {
        const auto chunk = static_cast<std::size_t>(row / kChunkRows);
        return chunk < m_chunks.size() && m_chunks[chunk] ? m_chunks[chunk] : makeChunk(chunk);
    }

    /// The same without making it: null for a chunk that no row was written to.
    [[nodiscard]] const Cell* chunkAt(Row row) const {
        const auto chunk = static_cast<std::size_t>(row / kChunkRows);
        return chunk < m_chunks.size() ? m_chunks[chunk] : nullptr;
    }

    /// A chunk of empty cells for exchangeChunk(), or null with `empty`. Throws std::bad_alloc when
    /// memory is exhausted.
    [[nodiscard]] SpareChunk spareChunk(bool empty = false);
    /// Exchanges the cells of the chunk that holds `row` with those of another.
    void exchangeChunk(Row row, SpareChunk& other);

    [[nodiscard]] char decimalSeparator() const { return m_storage->decimalSeparator; }

    [[nodiscard]] const CellStorage& storage() const { return *m_storage; }

    /// Whether one of the grid's first 64 missing texts is a value in this column all the same.
    [[nodiscard]] bool hasAsValue(std::size_t missing) const {
        return missing < 64 && (m_ownValues >> missing & 1) != 0;
    }

    void setAsValue(std::size_t missing) {
        if (missing < 64) m_ownValues |= std::uint64_t{1} << missing;
    }

  private:
    Cell* makeChunk(std::size_t chunk);
    Cell packText(std::string_view text);

    CellStorage* m_storage;
    std::vector<Cell*> m_chunks;
    std::string m_label;
    Cell m_lastText;               ///< the latest arena text: repeated texts are kept once
    std::uint64_t m_ownValues = 0; ///< by missing text
    int m_axis = 1;
    bool m_charted = false;
};

} // namespace pellam
