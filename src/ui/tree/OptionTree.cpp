#include "ui/tree/OptionTree.h"

#include "ui/tree/OptionTreeFilter.h"

#include <QKeyEvent>

#include <QStyledItemDelegate>

namespace pellam {

namespace {

/// Rows with a little air between their check boxes.
class AiryRows : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 5);
    }
};

} // namespace

OptionTree::OptionTree(QWidget* parent)
    : QTreeView(parent),
      m_model(new OptionTreeModel(this)),
      m_filter(new OptionTreeFilter(this)) {
    m_filter->setSourceModel(m_model);
    setModel(m_filter);
    setHeaderHidden(true);
    setItemDelegate(new AiryRows(this));
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTextElideMode(Qt::ElideMiddle);
    connect(m_model, &OptionTreeModel::optionToggled, this, &OptionTree::optionToggled);
}

void OptionTree::clear() {
    m_model->clear();
}

int OptionTree::addGroup(const QString& title) {
    const int group = m_model->addGroup(title);
    setExpanded(m_filter->mapFromSource(m_model->index(group, 0)), true);
    return group;
}

void OptionTree::addOptions(int group, std::vector<Option> options) {
    m_model->addOptions(group, std::move(options));
    // A group without rows does not stay unfolded, so it is unfolded again now.
    setExpanded(m_filter->mapFromSource(m_model->index(group, 0)), true);
}

void OptionTree::addOption(int group, quint32 id, const QString& text, bool checked) {
    addOptions(group, {Option{id, text, checked}});
}

int OptionTree::optionCount(int group) const {
    return m_model->optionCount(group);
}

const Option& OptionTree::option(int group, int index) const {
    return m_model->option(group, index);
}

void OptionTree::setChecked(int group, int index, bool checked) {
    m_model->setChecked(group, index, checked);
}

int OptionTree::checkedCount() const {
    return m_model->checkedCount();
}

void OptionTree::setFilter(const QString& text) {
    m_filter->setText(text);
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
    for (int group = 0; group < m_model->groupCount(); ++group) {
        for (int i = 0; i < m_model->optionCount(group); ++i) {
            if (m_filter->passes(m_model->option(group, i).text))
                m_model->setChecked(group, i, checked);
        }
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
