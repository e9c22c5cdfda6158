#include "views/grid/GridSelection.h"

#include "views/sheet/GridModel.h"

#include <QTableView>

#include <algorithm>

namespace pellam {

std::vector<CellArea> GridSelection::areas() const {
    std::vector<CellArea> areas;
    if (m_view.selectionModel() == nullptr) return areas;
    const int last = m_model.lastColumn();
    for (const QItemSelectionRange& range : m_view.selectionModel()->selection()) {
        if (range.left() > last) continue;
        areas.push_back({range.left(), std::min(range.right(), last), range.top(), range.bottom()});
    }
    return areas;
}

void GridSelection::select(const CellArea& area) {
    const auto& cells = *m_view.model();
    const QModelIndex first = cells.index(static_cast<int>(area.firstRow), area.firstColumn);
    const QModelIndex last = cells.index(static_cast<int>(area.lastRow), area.lastColumn);
    m_view.selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    m_view.selectionModel()->select(QItemSelection(first, last),
                                    QItemSelectionModel::ClearAndSelect);
    m_anchor = first;
}

void GridSelection::selectAll() {
    const auto& cells = *m_view.model();
    if (cells.rowCount() < 2) return;
    m_view.selectionModel()->select(
        QItemSelection(cells.index(1, 0), cells.index(cells.rowCount() - 1, m_model.lastColumn())),
        QItemSelectionModel::ClearAndSelect);
}

void GridSelection::selectRow(int row) {
    // The table view's own version takes a Shift that is held for a wish to extend.
    const auto& cells = *m_view.model();
    m_view.selectionModel()->select(
        QItemSelection(cells.index(row, 0), cells.index(row, m_model.lastColumn())),
        QItemSelectionModel::ClearAndSelect);
    m_anchor = m_view.currentIndex();
}

void GridSelection::selectColumn(int column, int row, Qt::KeyboardModifiers modifiers) {
    const auto& cells = *m_view.model();
    if (cells.rowCount() < 2) return;
    const bool extend = (modifiers & Qt::ShiftModifier) && m_anchor.isValid();
    const int other = extend ? m_anchor.column() : column;
    const QItemSelection columns(cells.index(1, std::min(column, other)),
                                 cells.index(cells.rowCount() - 1, std::max(column, other)));
    const QModelIndex current = cells.index(std::max(1, row), column);
    m_view.selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    m_view.selectionModel()->select(columns, modifiers & Qt::ControlModifier
                                                 ? QItemSelectionModel::Toggle
                                                 : QItemSelectionModel::ClearAndSelect);
    if (!extend) m_anchor = current;
}

void GridSelection::moveEnd(const QModelIndex& end) {
    if (!m_anchor.isValid()) m_anchor = m_view.currentIndex();
    m_view.selectionModel()->setCurrentIndex(end, QItemSelectionModel::NoUpdate);
    extendTo(end, false, QItemSelectionModel::ClearAndSelect);
}

void GridSelection::extendTo(const QModelIndex& end, bool begin,
                             QItemSelectionModel::SelectionFlags command) {
    if (!m_anchor.isValid() || begin) m_anchor = end;
    const auto [top, bottom] = std::minmax({m_anchor.row(), end.row()});
    const int column = std::min(end.column(), m_model.lastColumn());
    const auto [left, right] = std::minmax({m_anchor.column(), column});
    const auto& cells = *m_view.model();
    m_view.selectionModel()->select(
        QItemSelection(cells.index(top, left), cells.index(bottom, right)), command);
}

} // namespace pellam
