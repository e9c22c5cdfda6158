#include "views/grid/LockedColumn.h"

#include <QAbstractItemDelegate>
#include <QPainter>
#include <QStyleOptionViewItem>
#include <QTableView>

#include <algorithm>

namespace pellam {

void paintLockedColumn(QTableView& table, const QAbstractItemDelegate& delegate,
                       const QStyleOptionViewItem& option) {
    QWidget* const viewport = table.viewport();
    QPainter painter(viewport);
    const auto line = static_cast<QRgb>(
        table.style()->styleHint(QStyle::SH_Table_GridLineColor, &option, &table));
    const int width = table.columnWidth(0);
    painter.fillRect(0, 0, width, viewport->height(), table.palette().base());
    const int rows = table.model()->rowCount();
    for (int row = std::max(0, table.rowAt(0)); row < rows; ++row) {
        const int top = table.rowViewportPosition(row);
        if (top >= viewport->height()) break;
        const int bottom = top + table.rowHeight(row) - 1;
        const QModelIndex index = table.model()->index(row, 0);
        QStyleOptionViewItem cell = option;
        cell.rect = QRect(QPoint(0, top), QPoint(width - 2, bottom - 1));
        cell.index = index;
        if (table.selectionModel()->isSelected(index)) cell.state |= QStyle::State_Selected;
        if (index == table.currentIndex() && table.hasFocus()) cell.state |= QStyle::State_HasFocus;
        if (!table.isActiveWindow()) cell.palette.setCurrentColorGroup(QPalette::Inactive);
        delegate.paint(&painter, cell, index);
        painter.setPen(QColor::fromRgba(line));
        painter.drawLine(0, bottom, width - 1, bottom);
    }
    painter.setPen(table.palette().color(QPalette::Dark));
    painter.drawLine(width - 1, 0, width - 1, viewport->height());
}

} // namespace pellam
