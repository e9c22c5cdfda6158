#pragma once

#include "grid/Cell.h"
#include "views/scan/CellArea.h"

#include <QUndoCommand>

#include <string_view>
#include <vector>

namespace pellam {

class GridModel;

/// New texts for some cells, with the way back. Cell colours stay.
class EditCommand : public QUndoCommand {
  public:
    /// As many cells are kept for undoing at most; larger edits are done without.
    static constexpr std::int64_t kMaximumCells = 1'000'000;

    /// `model` must outlive the command.
    EditCommand(GridModel& model, const QString& text);

    /// Adds a cell and its new text (UTF-8); on the axis row an axis number, out of range taken as
    /// 1. Cells that cannot be written, or hold this text already, are passed over.
    void set(int column, GridRow row, std::string_view utf8);

    /// Nothing would change.
    [[nodiscard]] bool isEmpty() const { return m_changes.empty(); }

    /// Sets a text at once, without a way back; the same rules as set().
    static void write(GridModel& model, int column, GridRow row, std::string_view utf8);

    void redo() override;
    void undo() override;

  private:
    struct Change {
        int column;
        GridRow row;
        Cell before; ///< an axis number is a decimal cell
        Cell after;
    };

    static bool plan(GridModel& model, std::string_view utf8, Change& change);
    static void apply(GridModel& model, const Change& change, Cell cell);
    void applyAll(bool forward);

    GridModel& m_model;
    std::vector<Change> m_changes;
    CellArea m_area;
};

} // namespace pellam
