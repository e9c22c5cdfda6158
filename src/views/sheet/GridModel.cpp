#include "views/sheet/GridModel.h"

#include "base/Utf8.h"
#include "views/sheet/EditCommand.h"
#include "views/text/HeadingText.h"
#include "views/text/ScreenText.h"

#include <QBrush>
#include <QLocale>

#include <algorithm>
#include <limits>
#include <memory>

namespace pellam {

namespace {
constexpr QColor kAxisBackground(255, 207, 49);
constexpr QColor kGrey(96, 96, 96);
constexpr QColor kDarkRed(192, 0, 0);
constexpr QColor kGreyOnDark(160, 160, 160);
constexpr QColor kRedOnDark(255, 128, 120);
} // namespace

GridModel::GridModel(GridData& grid, QObject* parent) : QAbstractTableModel(parent), m_grid(grid) {
    endLoad();
}

void GridModel::beginLoad() {
    beginResetModel();
    m_loading = true;
    m_undoStack.clear();
    endResetModel();
}

void GridModel::endLoad() {
    beginResetModel();
    m_loading = false;
    constexpr Row most = std::numeric_limits<int>::max() - 1;
    const Row rows = std::min(m_grid.rowCount(), most);
    m_rows = static_cast<int>(rows > 0 ? rows + 1 : GridData::kInitialRows);
    endResetModel();
    Q_EMIT changedMark(m_grid.changed());
}

void GridModel::setDarkBackground(bool dark) {
    if (dark == m_dark) return;
    m_dark = dark;
    refresh();
}

void GridModel::take(std::unique_ptr<GridStep> step) {
    m_undoStack.push(step.release());
}

std::set<int> GridModel::editedColumns() const {
    std::set<int> columns;
    for (int i = 0; i < m_undoStack.index(); ++i)
        static_cast<const GridStep*>(m_undoStack.command(i))->addWritten(columns);
    return columns;
}

std::optional<QString> GridModel::original(int column, Row row) const {
    const Column& now = m_grid.column(column);
    std::optional<Cell> before;
    for (int i = m_undoStack.index() - 1; i >= 0; --i)
        static_cast<const GridStep*>(m_undoStack.command(i))->lookBack(column, row, before);
    if (!before || *before == now.cell(row)) return std::nullopt;
    CellBuffer buffer;
    QString text = screenText(now.text(*before, buffer));
    if (text == screenText(now.text(row, buffer))) return std::nullopt;
    return text;
}

void GridModel::cellsChanged(const CellArea& area) {
    setChanged(true);
    Q_EMIT dataChanged(index(static_cast<int>(area.firstRow), area.firstColumn),
                       index(static_cast<int>(area.lastRow), area.lastColumn));
}

void GridModel::setAxis(int column, int axis) {
    m_grid.column(column).setAxis(axis);
    cellsChanged({column, column, kAxisRow, kAxisRow});
}

void GridModel::setCharted(int firstColumn, int lastColumn, bool charted) {
    for (int column = firstColumn; column <= lastColumn; ++column) {
        m_grid.column(column).setCharted(charted);
    }
    setChanged(true);
    if (firstColumn <= lastColumn) {
        Q_EMIT headerDataChanged(Qt::Horizontal, firstColumn, lastColumn);
    }
}

void GridModel::setAllCharted(bool charted) {
    const int columns = m_grid.columnCount();
    setCharted(0, (charted ? std::min(m_grid.channelCount(), columns) : columns) - 1, charted);
}

bool GridModel::moveColumn(int from, int to) {
    if (!m_grid.moveColumn(from, to)) return false;
    // Positions keep their identity and change their content: a move signal would make the
    // selection remember every selected row one by one.
    const auto [first, last] = std::minmax(from, to);
    cellsChanged({first, last, kAxisRow, rowCount() - 1});
    Q_EMIT headerDataChanged(Qt::Horizontal, first, last);
    Q_EMIT columnMoved(from, to);
    return true;
}

void GridModel::setChanged(bool changed) {
    const bool was = m_grid.changed();
    m_grid.setChanged(changed);
    if (was != changed) Q_EMIT changedMark(changed);
}

void GridModel::refresh() {
    if (rowCount() == 0) return;
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    Q_EMIT changedMark(m_grid.changed());
}

bool GridModel::isDamaged(GridRow row) const {
    const auto rows = m_grid.damagedRows();
    return row > 0 && std::binary_search(rows.begin(), rows.end(), row - 1);
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || m_loading ? 0 : m_rows;
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() || m_loading ? 0 : m_grid.columnCount();
}

int GridModel::lastColumn() const {
    const int end = m_grid.columnCount() - 1;
    const bool loaded = m_grid.rowCount() > 0 || m_grid.channelCount() > 0;
    return loaded ? std::min(m_grid.channelCount(), end) : end;
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    if (index.column() > lastColumn()) return Qt::ItemNeverHasChildren;
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    const bool empty = index.row() == kAxisRow && index.column() == 0;
    return m_protected || empty ? flags : flags | Qt::ItemIsEditable;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || m_loading) return {};
    if (role == Qt::ToolTipRole) return toolTip(index.column(), index.row());
    if (role == Qt::AccessibleTextRole) return accessibleCell(index.column(), index.row());
    return index.row() == kAxisRow ? axisData(index.column(), role)
                                   : cellData(index.column(), index.row() - 1, role);
}

QVariant GridModel::axisData(int column, int role) const {
    if (column == 0) return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
    case AxisRole:
        return m_grid.column(column).axis();
    case Qt::BackgroundRole:
        return QBrush(kAxisBackground);
    case Qt::ForegroundRole:
        return QBrush(Qt::black);
    default:
        return {};
    }
}

QVariant GridModel::cellData(int column, Row row, int role) const {
    CellBuffer buffer;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return screenText(m_grid.text(column, row, buffer));
    case Qt::ForegroundRole:
        return textColour(m_grid.colour(column, row));
    case Qt::TextAlignmentRole:
        // Numbers below each other are read by their last digits.
        if (!m_grid.column(column).number(row)) return {};
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    case NumberRole:
        return m_grid.column(column).number(row).has_value();
    case EditedRole:
        return original(column, row).has_value();
    default:
        return {};
    }
}

QVariant GridModel::textColour(CellColour colour) const {
    switch (colour) {
    case CellColour::Grey:
        return QBrush(m_dark ? kGreyOnDark : kGrey);
    case CellColour::DarkRed:
        return QBrush(m_dark ? kRedOnDark : kDarkRed);
    case CellColour::Black:
        break;
    }
    return {};
}

QString GridModel::columnName(int column) const {
    const QString heading = HeadingText(m_grid.column(column).label()).inOneLine();
    return heading.isEmpty() ? tr("Column %1").arg(column) : heading;
}

QStringList GridModel::facts(int column, GridRow row) const {
    constexpr qsizetype longest = 200; // characters of a text
    if (m_loading || (row == kAxisRow && column == 0)) return {};
    if (row == kAxisRow) {
        return {tr("%1, axis %2").arg(columnName(column)).arg(m_grid.column(column).axis())};
    }
    CellBuffer buffer;
    QString value = screenText(m_grid.text(column, row - 1, buffer)).simplified();
    if (value.size() > longest) value = value.left(longest) + u'\u2026';
    if (value.isEmpty()) value = tr("empty");
    QStringList facts{columnName(column) + QStringLiteral(": ") + value};
    if (column > 0) facts += screenText(m_grid.text(0, row - 1, buffer));
    return facts;
}

QString GridModel::toolTip(int column, GridRow row) const {
    QString tip = QStringLiteral("Col:%1 Row:%2").arg(column).arg(row);
    if (row == kAxisRow) return tip;
    if (const auto loaded = original(column, row - 1)) {
        tip += tr("\nLoaded as: %1").arg(loaded->isEmpty() ? tr("empty") : *loaded);
    }
    return tip;
}

QString GridModel::accessibleCell(int column, int row) const {
    const QString heading = columnName(column);
    if (row == kAxisRow) {
        return column == 0 ? tr("%1, axis row").arg(heading)
                           : tr("%1, axis: %2").arg(heading).arg(m_grid.column(column).axis());
    }
    CellBuffer buffer;
    const QString text = screenText(m_grid.text(column, row - 1, buffer));
    const QString time = screenText(m_grid.text(0, row - 1, buffer));
    QString place = tr("%1, row %2").arg(heading).arg(row);
    if (column > 0 && !time.isEmpty()) place += QStringLiteral(", ") + time;
    if (isDamaged(row)) place += tr(", damaged line");
    if (original(column, row - 1)) place += tr(", changed");
    return place + QStringLiteral(": ") + (text.isEmpty() ? tr("empty") : text);
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || role != Qt::EditRole || !(flags(index) & Qt::ItemIsEditable)) {
        return false;
    }
    const std::string text = value.toString().toStdString();
    const bool time = index.column() == 0 && index.row() != kAxisRow;
    if (time && m_grid.rowCount() > 0 && !text.empty() && m_timeCheck && !m_timeCheck(text)) {
        Q_EMIT timeRefused(value.toString());
        return false;
    }
    auto command = std::make_unique<EditCommand>(*this, tr("Typing"));
    command->set(index.column(), index.row(), text);
    if (command->isEmpty()) return true;
    take(std::move(command));
    return true;
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (m_loading || section < 0) return {};
    if (orientation == Qt::Vertical) {
        return section < m_rows ? rowHeading(section, role) : QVariant();
    }
    return section < m_grid.columnCount() ? columnHeading(section, role) : QVariant();
}

QVariant GridModel::columnHeading(int column, int role) const {
    const Column& data = m_grid.column(column);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return screenText(data.label());
    case ChartedRole:
        return data.charted();
    case Qt::AccessibleTextRole: {
        return tr("%1, %2").arg(columnName(column),
                                data.charted() ? tr("charted") : tr("not charted"));
    }
    case Qt::AccessibleDescriptionRole:
        return tr("The space bar selects or deselects the channel for charting and export.");
    default:
        return {};
    }
}

QVariant GridModel::rowHeading(int row, int role) const {
    switch (role) {
    case Qt::DisplayRole:
        return row == kAxisRow ? QStringLiteral("  Axis  ") : QString::number(row);
    case Qt::ForegroundRole:
        if (row == kAxisRow) return {};
        return textColour(isDamaged(row) ? CellColour::DarkRed : m_grid.colour(0, row - 1));
    case Qt::AccessibleTextRole:
        if (row == kAxisRow) return tr("Axis numbers");
        return isDamaged(row) ? tr("Row %1, damaged line").arg(row) : tr("Row %1").arg(row);
    default:
        return {};
    }
}

} // namespace pellam
