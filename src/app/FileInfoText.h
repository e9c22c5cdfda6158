#pragma once

#include "grid/GridData.h"
#include "replay/LoadOutcome.h"

#include <string>

namespace pellam {

/// The facts of a loaded file, one "key: value" a line, and one "channel: LABEL" for each of its
/// channels in the order of the grid. Line breaks within a value are blanks.
std::string fileInfoText(const LoadOutcome& outcome, const GridData& grid);

} // namespace pellam
