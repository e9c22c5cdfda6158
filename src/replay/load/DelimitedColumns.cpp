#include "replay/load/DelimitedColumns.h"

#include <algorithm>
#include <span>

namespace pellam {

namespace {

std::string timeLabel(const TextLayout& layout) {
    if (layout.timeColumns.empty()) return "Row";
    std::string label;
    for (const std::size_t column : layout.timeColumns) {
        const std::string name =
            column < layout.names.size() ? layout.names[column] : std::string();
        if (!name.empty()) label += (label.empty() ? "" : " ") + name;
    }
    return label.empty() ? "Time" : label;
}

} // namespace

DelimitedColumns::DelimitedColumns(GridData& grid, const TextLayout& layout) : m_grid(grid) {
    m_columns.assign(layout.columns, 0);
    grid.setColumnCount(static_cast<int>(layout.columns) + 1);
    addColumn(timeLabel(layout), true);
    const auto& times = layout.timeColumns;
    for (const std::size_t field : layout.emptyColumns)
        m_columns[field] = kNone;
    for (std::size_t field = 0; field < layout.columns; ++field) {
        const bool time = std::find(times.begin(), times.end(), field) != times.end();
        if (time) m_columns[field] = 0;
        if (!time && m_columns[field] != kNone)
            m_columns[field] = addColumn(labelOf(layout, field), true);
    }
    for (const std::size_t field : times) {
        if (layout.timeParts) m_columns[field] = addColumn(labelOf(layout, field), false);
    }
    m_plain = times.size() == 1 && times[0] == 0 && !layout.timeParts;
}

DelimitedColumns::DelimitedColumns(GridData& grid, const std::vector<std::string>& labels)
    : m_grid(grid) {
    const auto count = std::min<std::size_t>(labels.size(), GridData::kMaximumColumns);
    grid.setColumnCount(static_cast<int>(count));
    for (const std::string& label : std::span(labels).first(count))
        m_columns.push_back(addColumn(label, true));
}

int DelimitedColumns::addColumn(std::string_view label, bool checked) {
    const int index = m_count++;
    if (m_count > m_grid.columnCount()) m_grid.setColumnCount(m_count);
    m_grid.setChannelCount(m_count - 1);
    Column& column = m_grid.column(index);
    column.setLabel(label);
    column.setCharted(checked);
    return index;
}

void DelimitedColumns::add(std::size_t field) {
    const auto label = [](std::size_t n) { return "Column " + std::to_string(n + 1); };
    if (field < m_columns.size()) m_columns[field] = addColumn(label(field), true);
    while (m_columns.size() <= field)
        m_columns.push_back(addColumn(label(m_columns.size()), true));
}

std::string DelimitedColumns::labelOf(const TextLayout& layout, std::size_t field) {
    std::string label = field < layout.names.size() ? layout.names[field] : std::string();
    if (label.empty()) label = "Column " + std::to_string(field + 1);
    const std::string units = field < layout.units.size() ? layout.units[field] : std::string();
    const bool named = label.ends_with(')') || label.ends_with(']');
    return units.empty() || named ? label : label + " (" + units + ')';
}

} // namespace pellam
