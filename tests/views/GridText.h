#pragma once

#include "grid/GridData.h"

#include <string>
#include <string_view>

namespace pellam {

/// Fills a grid from lines of cells separated by '|', the first line being the headings; cells are
/// taken without the blanks around them.
void fillGrid(GridData& grid, std::string_view text);

/// The loaded cells in the same form, without blanks and headings.
std::string gridText(const GridData& grid);

} // namespace pellam
