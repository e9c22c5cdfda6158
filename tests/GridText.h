#pragma once

#include "grid/GridData.h"

#include <algorithm>
#include <sstream>
#include <string>

namespace pellam {

/// Fills a grid from lines of cells separated by '|', the first line being the headings; cells are
/// taken without the blanks around them.
inline void fillGrid(GridData& grid, const std::string& text) {
    grid.reset();
    std::istringstream lines(text);
    Row row = -1;
    int columns = 0;
    for (std::string line; std::getline(lines, line); ++row) {
        std::istringstream cells(line);
        int column = 0;
        for (std::string cell; std::getline(cells, cell, '|'); ++column) {
            cell.erase(0, cell.find_first_not_of(' '));
            cell.erase(cell.find_last_not_of(' ') + 1);
            row < 0 ? grid.column(column).setLabel(cell) : grid.setText(column, row, cell);
        }
        columns = std::max(columns, column);
    }
    grid.setRowCount(row);
    grid.setColumnCount(columns);
    grid.setChannelCount(columns - 1);
}

/// Headings and rows as lines of cells between bars; '!' marks dark red text, '~' grey text.
inline std::string gridText(const GridData& grid) {
    std::string all;
    CellBuffer buffer;
    for (Row row = -1; row < grid.rowCount(); ++row) {
        if (row >= 0) all += '\n';
        for (int c = 0; c <= grid.channelCount(); ++c) {
            all += c ? "|" : "";
            const CellColour colour = row < 0 ? CellColour::Black : grid.colour(c, row);
            all += colour == CellColour::DarkRed ? "!" : colour == CellColour::Grey ? "~" : "";
            all += row < 0 ? std::string_view(grid.column(c).label()) : grid.text(c, row, buffer);
        }
    }
    return all;
}

/// The rows of gridText() alone.
inline std::string gridRows(const GridData& grid) {
    const std::string all = gridText(grid);
    const std::size_t end = all.find('\n');
    return end == std::string::npos ? "" : all.substr(end + 1);
}

} // namespace pellam
