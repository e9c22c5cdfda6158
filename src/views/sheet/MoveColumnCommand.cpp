#include "views/sheet/MoveColumnCommand.h"

#include "views/sheet/GridModel.h"

#include <QCoreApplication>

namespace pellam {

namespace {

/// Where a column ends when the one at `from` moves to `to`.
int moved(int column, int from, int to) {
    if (column == from) return to;
    if (from < column && column <= to) return column - 1;
    if (to <= column && column < from) return column + 1;
    return column;
}

} // namespace

MoveColumnCommand::MoveColumnCommand(GridModel& model, int from, int to)
    : GridStep(QCoreApplication::translate("MoveColumnCommand", "Move Column")),
      m_model(model),
      m_from(from),
      m_to(to) {}

void MoveColumnCommand::redo() {
    setObsolete(!m_model.moveColumn(m_from, m_to));
}

void MoveColumnCommand::undo() {
    m_model.moveColumn(m_to, m_from);
}

void MoveColumnCommand::lookBack(int& column, Row, std::optional<Cell>&) const {
    column = moved(column, m_to, m_from);
}

void MoveColumnCommand::addWritten(std::set<int>& columns) const {
    std::set<int> after;
    for (const int column : columns)
        after.insert(moved(column, m_from, m_to));
    columns = std::move(after);
}

} // namespace pellam
