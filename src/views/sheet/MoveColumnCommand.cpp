#include "views/sheet/MoveColumnCommand.h"

#include "views/sheet/GridModel.h"

#include <QCoreApplication>

namespace pellam {

MoveColumnCommand::MoveColumnCommand(GridModel& model, int from, int to)
    : QUndoCommand(QCoreApplication::translate("MoveColumnCommand", "Move Column")),
      m_model(model),
      m_from(from),
      m_to(to) {}

void MoveColumnCommand::redo() {
    setObsolete(!m_model.moveColumn(m_from, m_to));
}

void MoveColumnCommand::undo() {
    m_model.moveColumn(m_to, m_from);
}

} // namespace pellam
