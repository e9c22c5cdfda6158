#pragma once

class QAbstractItemDelegate;
class QStyleOptionViewItem;
class QTableView;

namespace pellam {

/// Paints the rows in view of column 0 at the left edge of a table, over the cells that have
/// scrolled under it. `option` is the table's own for its cells. Only while its viewport is
/// painted.
void paintLockedColumn(QTableView& table, const QAbstractItemDelegate& delegate,
                       const QStyleOptionViewItem& option);

} // namespace pellam
