#pragma once

#include "views/scan/CellArea.h"
#include "views/sheet/GridStep.h"

#include <functional>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace pellam {

class GridModel;

/// New texts for some cells, with the way back. Cell colours stay. Nothing is written before
/// redo(); from then on it only exchanges cells with the store, whole chunks of them at once, so
/// that ten million cells are emptied and brought back without a wait.
class EditCommand : public GridStep {
  public:
    /// `model` must outlive the command.
    EditCommand(GridModel& model, const QString& text);

    /// Adds a cell and its new text (UTF-8); on the axis row an axis number, out of range taken as
    /// 1. Cells that cannot be written are passed over. Each cell once.
    void set(int column, GridRow row, std::string_view utf8);

    /// Adds all cells of an area, which get one text. `goOn` is asked now and then with the cells
    /// looked at since; once it says no, nothing more is added and false comes back. Throws
    /// std::bad_alloc when there is not the memory for the new cells.
    bool fill(const CellArea& area, std::string_view utf8,
              const std::function<bool(std::int64_t)>& goOn);

    /// Nothing would change.
    [[nodiscard]] bool isEmpty() const { return m_changes == 0; }

    void redo() override;
    void undo() override;
    void lookBack(int& column, Row row, std::optional<Cell>& before) const override;
    void addWritten(std::set<int>& columns) const override;

  private:
    /// Cells that are to be exchanged with those of the store: a whole chunk, or some of one.
    struct Block {
        int column;
        Row first;
        std::vector<Cell> cells;
        SpareChunk chunk;
        bool whole = false;

        [[nodiscard]] Row end() const;
        [[nodiscard]] Cell at(Row row) const;
    };

    struct Axis {
        int column;
        int axis;
    };

    void setAxis(int column, std::string_view utf8);
    void addCell(int column, Row row, Cell cell);
    void fillPart(int column, Row first, Row end, Cell cell);
    void addArea(const CellArea& area);
    void exchange(Block& block);
    void exchangeAll();

    GridModel& m_model;
    std::vector<Block> m_blocks; ///< by column and row once the step is done
    std::vector<Axis> m_axes;
    std::unordered_map<int, std::size_t> m_open; ///< block that set() wrote last, by column
    CellArea m_area;                             ///< around all cells
    std::int64_t m_changes = 0;
    bool m_done = false; ///< redo() has run once
};

} // namespace pellam
