#include "views/grid/GridKeys.h"

#include "ui/commands/CommandSet.h"
#include "views/grid/MyCug.h"
#include "views/sheet/GridModel.h"

#include <QKeyEvent>

namespace pellam {

bool GridKeys::handle(QKeyEvent& event) {
    if (m_cug.commands().press(event)) return true;
    if (event.keyCombination() == QKeyCombination(Qt::CTRL | Qt::SHIFT, Qt::Key_A)) {
        m_cug.selectAll();
        return true;
    }
    if (event.matches(QKeySequence::SelectAll)) return true; // it is the channels' shortcut
    return m_cug.currentIndex().isValid() && (select(event) || jumpToEdge(event));
}

bool GridKeys::select(const QKeyEvent& event) {
    const QModelIndex current = m_cug.currentIndex();
    if (event.key() == Qt::Key_Space) {
        if (event.modifiers() == Qt::ControlModifier)
            m_cug.selectColumn(current.column(), {});
        else if (event.modifiers() == Qt::ShiftModifier)
            m_cug.selectRow(current.row());
        else
            m_cug.toggleCharted(current.column());
        return true;
    }
    if (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter) return false;
    const int row = current.row() + (event.modifiers() & Qt::ShiftModifier ? -1 : 1);
    if (row >= 0 && row < m_cug.gridModel().rowCount()) {
        m_cug.selectArea({current.column(), current.column(), row, row});
    }
    return true;
}

bool GridKeys::jumpToEdge(const QKeyEvent& event) {
    if (event.modifiers() != Qt::ControlModifier) return false;
    const GridModel& model = m_cug.gridModel();
    const int channels = model.grid().channelCount();
    int row = m_cug.currentIndex().row();
    int column = m_cug.currentIndex().column();
    switch (event.key()) {
    case Qt::Key_Up:
        row = 1;
        break;
    case Qt::Key_Down:
        row = model.rowCount() - 1;
        break;
    case Qt::Key_Left:
        column = 0;
        break;
    case Qt::Key_Right:
        column = channels > 0 ? channels : model.columnCount() - 1;
        break;
    default:
        return false;
    }
    m_cug.selectArea({column, column, row, row});
    return true;
}

} // namespace pellam
