#pragma once

#include "base/Failure.h"
#include "base/ProgressSink.h"

#include <string>

namespace pellam {

class GridData;

/// Prints the grid to a PDF file of A4 pages in landscape; `fileName` stands in the footer. The
/// target is replaced as a whole. Needs an application object with a (perhaps invisible) screen.
[[nodiscard]] Failure printToPdf(const GridData& grid, const std::string& fileName,
                                 const std::string& path, ProgressSink& progress);

} // namespace pellam
