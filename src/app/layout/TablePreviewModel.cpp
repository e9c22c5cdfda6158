#include "app/layout/TablePreviewModel.h"

#include "views/text/ScreenText.h"

namespace pellam {

void TablePreviewModel::refresh() {
    beginResetModel();
    m_rows = static_cast<int>(m_table.rowCount());
    m_columns = m_table.channelCount() > 0 || m_rows > 0 ? m_table.channelCount() + 1 : 0;
    endResetModel();
}

int TablePreviewModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_rows;
}

int TablePreviewModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_columns;
}

QVariant TablePreviewModel::data(const QModelIndex& index, int role) const {
    const bool number =
        m_table.column(index.column()).cell(index.row()).kind() == Cell::Kind::Decimal;
    if (role == Qt::TextAlignmentRole && number) return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    CellBuffer buffer;
    return screenText(m_table.text(index.column(), index.row(), buffer));
}

QVariant TablePreviewModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical) return role == Qt::DisplayRole ? section + 1 : QVariant();
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return screenText(m_table.column(section).label());
    return {};
}

} // namespace pellam
