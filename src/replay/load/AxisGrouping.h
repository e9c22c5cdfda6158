#pragma once

#include "grid/GridData.h"

namespace pellam {

/// Gives channels with the same units the same chart axis, in the order in which units first occur.
/// Units are the text between the first '(' and the first ')' of a heading, or what stands in '['
/// and
/// ']' at its end, or behind its last comma where that is a unit; headings without share the units
/// "Data". The last channel keeps its axis, and so does a channel whose
/// units find all six axes taken.
void sortAxisByUnits(GridData& grid);

} // namespace pellam
