#include "GridText.h"

#include <algorithm>
#include <sstream>

namespace pellam {

namespace {

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? ""
                                      : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

} // namespace

void fillGrid(GridData& grid, std::string_view text) {
    grid.reset();
    std::istringstream lines{std::string(text)};
    std::string line;
    Row row = -1;
    int columns = 0;
    for (; std::getline(lines, line); ++row) {
        std::istringstream cells(line);
        std::string cell;
        int column = 0;
        for (; std::getline(cells, cell, '|'); ++column) {
            if (row < 0)
                grid.column(column).setLabel(trimmed(cell));
            else
                grid.setText(column, row, trimmed(cell));
        }
        columns = std::max(columns, column);
    }
    grid.setRowCount(row);
    grid.setColumnCount(columns);
    grid.setChannelCount(columns - 1);
}

std::string gridText(const GridData& grid) {
    std::string text;
    CellBuffer buffer;
    for (Row row = 0; row < grid.rowCount(); ++row) {
        for (int column = 0; column <= grid.channelCount(); ++column) {
            if (column > 0) text += '|';
            text += grid.text(column, row, buffer);
        }
        text += '\n';
    }
    return text;
}

} // namespace pellam
