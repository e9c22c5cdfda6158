#include "views/grid/GridKeys.h"

#include "ui/commands/CommandSet.h"
#include "views/grid/MyCug.h"
#include "views/sheet/GridModel.h"

#include <QKeyEvent>

#include <algorithm>

namespace pellam {

bool GridKeys::handle(QKeyEvent& event) {
    if (m_cug.commands().press(event)) return true;
    if (event.keyCombination() == QKeyCombination(Qt::CTRL | Qt::SHIFT, Qt::Key_A)) {
        m_cug.selectAll();
        return true;
    }
    if (event.matches(QKeySequence::SelectAll)) return true; // it is the channels' shortcut
    return m_cug.currentIndex().isValid() &&
           (select(event) || move(event.key(), event.modifiers()));
}

bool GridKeys::select(const QKeyEvent& event) {
    if (event.key() != Qt::Key_Space) return false;
    const QModelIndex current = m_cug.currentIndex();
    if (event.modifiers() == Qt::ControlModifier)
        m_cug.selectColumn(current.column(), {});
    else if (event.modifiers() == Qt::ShiftModifier)
        m_cug.selectRow(current.row());
    else
        m_cug.toggleCharted(current.column());
    return true;
}

int GridKeys::rowsInView() const {
    const int last = m_cug.rowAt(m_cug.viewport()->height() - 1);
    return std::max(1, (last < 0 ? m_cug.model()->rowCount() - 1 : last) - m_cug.rowAt(0) - 1);
}

bool GridKeys::step(bool forward) {
    const GridModel& model = m_cug.gridModel();
    int column = m_cug.currentIndex().column() + (forward ? 1 : -1);
    int row = m_cug.currentIndex().row();
    if (column < 0 || column > model.lastColumn()) {
        column = forward ? 0 : model.lastColumn();
        row += forward ? 1 : -1;
    }
    if (row < 0 || row >= model.rowCount()) return false;
    m_cug.moveTo(column, row, false);
    return true;
}

bool GridKeys::move(int key, Qt::KeyboardModifiers modifiers) {
    modifiers &= ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    if (modifiers & ~(Qt::ControlModifier | Qt::ShiftModifier)) return false;
    const bool far = modifiers.testFlag(Qt::ControlModifier);
    bool extend = modifiers.testFlag(Qt::ShiftModifier);
    const GridModel& model = m_cug.gridModel();
    const int lastRow = model.rowCount() - 1;
    int row = m_cug.currentIndex().row();
    int column = m_cug.currentIndex().column();
    // Only steps of one row lead to the axis row.
    const int firstRow = std::min(row, 1);
    switch (key) {
    case Qt::Key_Up:
        row = far ? firstRow : row - 1;
        break;
    case Qt::Key_Down:
        row = far ? lastRow : row + 1;
        break;
    case Qt::Key_Left:
        column = far ? 0 : column - 1;
        break;
    case Qt::Key_Right:
        column = far ? model.lastColumn() : column + 1;
        break;
    case Qt::Key_Home:
        column = 0;
        if (far) row = 1;
        break;
    case Qt::Key_End:
        column = model.lastColumn();
        if (far) row = lastRow;
        break;
    case Qt::Key_PageUp:
        row = std::max(firstRow, row - rowsInView());
        break;
    case Qt::Key_PageDown:
        row += rowsInView();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        row += extend ? -1 : 1;
        extend = false;
        break;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return step(key == Qt::Key_Tab && !extend);
    default:
        return false;
    }
    m_cug.moveTo(std::clamp(column, 0, model.lastColumn()), std::clamp(row, 0, lastRow), extend);
    return true;
}

} // namespace pellam
