#pragma once

#include "grid/Column.h"

#include <QUndoCommand>

#include <optional>
#include <set>

namespace pellam {

/// A step that can be taken back on the grid, and knows what it did to whom. Columns and rows are
/// those of the store.
class GridStep : public QUndoCommand {
  public:
    using QUndoCommand::QUndoCommand;

    /// Follows a cell back over this step, which is done: `column` becomes the one where the cell
    /// was before, `before` what it held then, if the step wrote to it.
    virtual void lookBack(int& column, Row row, std::optional<Cell>& before) const = 0;
    /// Follows columns forward over this step, and adds those whose data cells it wrote to.
    virtual void addWritten(std::set<int>& columns) const = 0;
};

} // namespace pellam
