#include "ui/dialogs/OptionTree.h"

#include <QKeyEvent>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QStyledItemDelegate>

namespace pellam {

namespace {

constexpr int kIdRole = Qt::UserRole;

/// Rows with a little air between their check boxes.
class AiryRows : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 5);
    }
};

QStandardItem* itemOf(const Option& option) {
    auto* item = new QStandardItem(option.text);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable |
                   Qt::ItemNeverHasChildren);
    item->setCheckState(option.checked ? Qt::Checked : Qt::Unchecked);
    item->setData(option.id, kIdRole);
    return item;
}

} // namespace

OptionTree::OptionTree(QWidget* parent)
    : QTreeView(parent),
      m_model(new QStandardItemModel(this)),
      m_filter(new QSortFilterProxyModel(this)) {
    m_filter->setSourceModel(m_model);
    m_filter->setRecursiveFilteringEnabled(true);
    m_filter->setFilterCaseSensitivity(Qt::CaseInsensitive);
    setModel(m_filter);
    setHeaderHidden(true);
    setItemDelegate(new AiryRows(this));
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTextElideMode(Qt::ElideMiddle);
    connect(m_model, &QStandardItemModel::itemChanged, this, &OptionTree::report);
}

void OptionTree::clear() {
    m_model->clear();
    m_checkedCount = 0;
}

int OptionTree::addGroup(const QString& title) {
    auto* group = new QStandardItem(title);
    group->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    m_model->appendRow(group);
    return m_model->rowCount() - 1;
}

void OptionTree::addOptions(int group, const std::vector<Option>& options) {
    QList<QStandardItem*> rows;
    for (const Option& option : options) {
        rows += itemOf(option);
        m_checkedCount += option.checked ? 1 : 0;
    }
    m_model->item(group)->appendRows(rows);
    expandAll();
}

Option OptionTree::option(int group, int index) const {
    const QStandardItem* const item = m_model->item(group)->child(index);
    return {item->data(kIdRole).toUInt(), item->text(), item->checkState() == Qt::Checked};
}

void OptionTree::setChecked(int group, int index, bool checked) {
    m_model->item(group)->child(index)->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
}

void OptionTree::report(const QStandardItem* option) {
    const bool checked = option->checkState() == Qt::Checked;
    m_checkedCount += checked ? 1 : -1;
    Q_EMIT optionToggled(option->parent()->row(), option->row(), checked);
}

void OptionTree::setFilter(const QString& text) {
    m_filter->setFilterFixedString(text);
    expandAll();
}

void OptionTree::focusFirstOption() {
    setFocus(Qt::OtherFocusReason);
    for (int group = 0; group < m_filter->rowCount(); ++group) {
        const QModelIndex first = m_filter->index(0, 0, m_filter->index(group, 0));
        if (first.isValid()) return setCurrentIndex(first);
    }
}

int OptionTree::visibleCount() const {
    int count = 0;
    for (int group = 0; group < m_filter->rowCount(); ++group)
        count += m_filter->rowCount(m_filter->index(group, 0));
    return count;
}

void OptionTree::setVisibleChecked(bool checked) {
    for (int group = 0; group < m_filter->rowCount(); ++group) {
        const QModelIndex parent = m_filter->index(group, 0);
        for (int i = 0; i < m_filter->rowCount(parent); ++i)
            m_filter->setData(m_filter->index(i, 0, parent), checked ? Qt::Checked : Qt::Unchecked,
                              Qt::CheckStateRole);
    }
}

void OptionTree::keyPressEvent(QKeyEvent* event) {
    const QModelIndex current = currentIndex();
    if (event->key() != Qt::Key_Space || !(current.flags() & Qt::ItemIsUserCheckable)) {
        QTreeView::keyPressEvent(event);
        return;
    }
    const auto state =
        current.data(Qt::CheckStateRole).toInt() == Qt::Checked ? Qt::Unchecked : Qt::Checked;
    QModelIndexList rows = selectionModel()->selectedRows();
    if (!rows.contains(current)) rows = {current};
    for (const QModelIndex& row : rows)
        if (row.flags() & Qt::ItemIsUserCheckable)
            m_filter->setData(row, state, Qt::CheckStateRole);
    event->accept();
}

} // namespace pellam
