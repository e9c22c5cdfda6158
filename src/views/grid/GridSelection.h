#pragma once

#include "views/scan/CellArea.h"

#include <QItemSelectionModel>
#include <QPersistentModelIndex>

#include <vector>

class QTableView;

namespace pellam {

class GridModel;

/// What is selected on the grid, and where a selection that is being extended began. Rows are grid
/// rows; the axis row is only part of areas that name it.
class GridSelection {
  public:
    /// Both must outlive it, and the view must have the model before anything is selected.
    GridSelection(QTableView& view, const GridModel& model) : m_view(view), m_model(model) {}

    /// The selection, in areas that do not overlap; columns without data are left out.
    [[nodiscard]] std::vector<CellArea> areas() const;
    /// Selects one area alone and makes its first cell the current one.
    void select(const CellArea& area);
    /// Every data cell.
    void selectAll();
    /// One row, without the columns behind the last channel; the current cell stays.
    void selectRow(int row);
    /// The data cells of one column; with Shift up to it from where the selection began, with
    /// Control in addition to the rest. The current cell becomes one of `row`, at least row 1.
    void selectColumn(int column, int row, Qt::KeyboardModifiers modifiers);
    /// Selects up to `end` from where the selection began, or begins it there.
    void extendTo(const QModelIndex& end, bool begin, QItemSelectionModel::SelectionFlags command);
    /// Makes `end` the current cell and selects up to it from where the selection began.
    void moveEnd(const QModelIndex& end);

    /// The next extension begins at this cell.
    void beginAt(const QModelIndex& cell) { m_anchor = cell; }

  private:
    QTableView& m_view;
    const GridModel& m_model;
    QPersistentModelIndex m_anchor;
};

} // namespace pellam
