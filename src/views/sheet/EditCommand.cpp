#include "views/sheet/EditCommand.h"

#include "base/Utf8.h"
#include "views/sheet/AxisNumber.h"
#include "views/sheet/GridModel.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace pellam {

namespace {

std::optional<int> typedAxis(std::string_view text) {
    while (text.starts_with(' '))
        text.remove_prefix(1);
    while (text.ends_with(' '))
        text.remove_suffix(1);
    if (text.empty()) return std::nullopt;
    long long number = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec == std::errc::invalid_argument || read.ptr != end) return std::nullopt;
    return axisFromTyped(read.ec == std::errc() ? number : 0);
}

Cell axisCell(int axis) {
    return Cell::decimal(false, 0, static_cast<std::uint64_t>(axis));
}

} // namespace

EditCommand::EditCommand(GridModel& model, const QString& text)
    : QUndoCommand(text),
      m_model(model) {}

bool EditCommand::plan(GridModel& model, std::string_view utf8, Change& change) {
    GridData& grid = model.grid();
    if (change.row == 0) {
        const std::optional<int> axis = typedAxis(utf8);
        if (change.column == 0 || !axis) return false;
        change.before = axisCell(grid.column(change.column).axis());
        change.after = axisCell(*axis);
    } else {
        Column& column = grid.column(change.column);
        change.before = column.cell(change.row - 1);
        CellBuffer buffer;
        if (toUtf8(column.text(change.before, buffer)) == utf8) return false;
        change.after = column.pack(utf8).withColour(change.before.colour());
    }
    return change.before != change.after;
}

void EditCommand::apply(GridModel& model, const Change& change, Cell cell) {
    Column& column = model.grid().column(change.column);
    if (change.row == 0)
        column.setAxis(static_cast<int>(cell.mantissa()));
    else
        column.setCell(change.row - 1, cell);
}

void EditCommand::set(int column, GridRow row, std::string_view utf8) {
    Change change{column, row, {}, {}};
    if (!plan(m_model, utf8, change)) return;
    m_area =
        m_changes.empty()
            ? CellArea{column, column, row, row}
            : CellArea{std::min(m_area.firstColumn, column), std::max(m_area.lastColumn, column),
                       std::min(m_area.firstRow, row), std::max(m_area.lastRow, row)};
    m_changes.push_back(change);
}

void EditCommand::write(GridModel& model, int column, GridRow row, std::string_view utf8) {
    Change change{column, row, {}, {}};
    if (plan(model, utf8, change)) apply(model, change, change.after);
}

void EditCommand::applyAll(bool forward) {
    for (const Change& change : m_changes) {
        apply(m_model, change, forward ? change.after : change.before);
    }
    m_model.cellsChanged(m_area);
}

void EditCommand::redo() {
    applyAll(true);
}

void EditCommand::undo() {
    applyAll(false);
}

} // namespace pellam
