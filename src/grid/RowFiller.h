#pragma once

#include "grid/GridData.h"

#include <cstddef>
#include <vector>

namespace pellam {

/// Writes rows one after the other into a grid whose columns stay as they are meanwhile.
class RowFiller {
  public:
    explicit RowFiller(GridData& grid)
        : m_grid(grid),
          m_chunks(static_cast<std::size_t>(grid.columnCount()), nullptr) {}

    /// The row that the next cells go to.
    void startRow(Row row) {
        m_row = row;
        m_inChunk = static_cast<std::size_t>(row % Column::kChunkRows);
        if (m_inChunk == 0 || row / Column::kChunkRows != m_chunk) enterChunk();
    }

    /// Takes notice of columns that were added to the grid.
    void columnsAdded() {
        m_chunks.resize(static_cast<std::size_t>(m_grid.columnCount()), nullptr);
    }

    [[nodiscard]] Row row() const { return m_row; }

    void set(int column, Cell cell) { slot(column) = cell; }

    [[nodiscard]] Cell& slot(int column) {
        Cell*& chunk = m_chunks[static_cast<std::size_t>(column)];
        if (!chunk) chunk = m_grid.column(column).chunkFor(m_row);
        return chunk[m_inChunk];
    }

    /// Whether the row has no text in a column; sets nothing up for a column that is never written.
    [[nodiscard]] bool isEmpty(int column) const {
        const Cell* const chunk = m_chunks[static_cast<std::size_t>(column)];
        return (chunk ? chunk[m_inChunk] : m_grid.column(column).cell(m_row)).isEmpty();
    }

    [[nodiscard]] GridData& grid() { return m_grid; }

  private:
    void enterChunk() {
        m_chunk = m_row / Column::kChunkRows;
        m_chunks.assign(m_chunks.size(), nullptr);
    }

    GridData& m_grid;
    std::vector<Cell*> m_chunks; ///< by column; null until the row's chunk is written to
    Row m_row = 0;
    Row m_chunk = -1;
    std::size_t m_inChunk = 0;
};

} // namespace pellam
