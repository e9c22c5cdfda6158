#pragma once

#include "grid/GridData.h"

namespace pellam {

/// Gives channels with the same units the same chart axis, in the order in which units first occur.
/// Channels without units share the units "Data". The last channel keeps its axis, and so does a
/// channel whose units are unclear or find all six axes taken.
void sortAxisByUnits(GridData& grid);

} // namespace pellam
