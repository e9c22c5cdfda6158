#include "ui/tree/OptionTreeModel.h"

#include <algorithm>

namespace pellam {

namespace {

// An option's index carries its group's number plus one; a group's index carries nothing.
constexpr quintptr kGroupRow = 0;

} // namespace

int OptionTreeModel::groupOf(const QModelIndex& index) {
    return static_cast<int>(index.internalId()) - 1;
}

bool OptionTreeModel::isOption(const QModelIndex& index) const {
    return index.isValid() && index.internalId() != kGroupRow;
}

void OptionTreeModel::clear() {
    beginResetModel();
    m_groups.clear();
    m_checkedCount = 0;
    endResetModel();
}

int OptionTreeModel::addGroup(const QString& title) {
    const int row = groupCount();
    beginInsertRows({}, row, row);
    m_groups.push_back({title, {}});
    endInsertRows();
    return row;
}

void OptionTreeModel::addOptions(int group, std::vector<Option> options) {
    if (group < 0 || group >= groupCount() || options.empty()) return;
    auto& into = m_groups[static_cast<std::size_t>(group)].options;
    const int first = optionCount(group);
    m_checkedCount += static_cast<int>(
        std::count_if(options.begin(), options.end(), [](const Option& o) { return o.checked; }));
    beginInsertRows(index(group, 0), first, first + static_cast<int>(options.size()) - 1);
    into.insert(into.end(), std::make_move_iterator(options.begin()),
                std::make_move_iterator(options.end()));
    endInsertRows();
}

int OptionTreeModel::optionCount(int group) const {
    if (group < 0 || group >= groupCount()) return 0;
    return static_cast<int>(m_groups[static_cast<std::size_t>(group)].options.size());
}

const Option& OptionTreeModel::option(int group, int index) const {
    return m_groups.at(static_cast<std::size_t>(group)).options.at(static_cast<std::size_t>(index));
}

void OptionTreeModel::setChecked(int group, int index, bool checked) {
    if (index < 0 || index >= optionCount(group)) return;
    auto& option =
        m_groups[static_cast<std::size_t>(group)].options[static_cast<std::size_t>(index)];
    if (option.checked == checked) return;
    option.checked = checked;
    m_checkedCount += checked ? 1 : -1;
    const QModelIndex changed = this->index(index, 0, this->index(group, 0));
    Q_EMIT dataChanged(changed, changed, {Qt::CheckStateRole});
    Q_EMIT optionToggled(group, index, checked);
}

QModelIndex OptionTreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent)) return {};
    if (!parent.isValid()) return createIndex(row, column, kGroupRow);
    return createIndex(row, column, static_cast<quintptr>(parent.row()) + 1);
}

QModelIndex OptionTreeModel::parent(const QModelIndex& child) const {
    return isOption(child) ? createIndex(groupOf(child), 0, kGroupRow) : QModelIndex();
}

int OptionTreeModel::rowCount(const QModelIndex& parent) const {
    if (!parent.isValid()) return groupCount();
    return isOption(parent) || parent.column() > 0 ? 0 : optionCount(parent.row());
}

int OptionTreeModel::columnCount(const QModelIndex& /*parent*/) const {
    return 1;
}

QVariant OptionTreeModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    if (!isOption(index)) {
        if (role == Qt::DisplayRole) return m_groups[static_cast<std::size_t>(index.row())].title;
        return {};
    }
    const Option& option = this->option(groupOf(index), index.row());
    if (role == Qt::DisplayRole) return option.text;
    if (role == Qt::CheckStateRole) return option.checked ? Qt::Checked : Qt::Unchecked;
    return {};
}

bool OptionTreeModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole || !isOption(index)) return false;
    setChecked(groupOf(index), index.row(), value.toInt() == Qt::Checked);
    return true;
}

Qt::ItemFlags OptionTreeModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    const Qt::ItemFlags common = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return isOption(index) ? common | Qt::ItemIsUserCheckable | Qt::ItemNeverHasChildren : common;
}

} // namespace pellam
