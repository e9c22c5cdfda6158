#pragma once

#include "grid/GridData.h"
#include "replay/load/LoadOutcome.h"

#include <string>

namespace pellam {

/// Where the data came from when it was no file; texts empty when it was.
struct StoredSession {
    std::string dsn;
    std::string session;
};

/// The facts of a loaded file or session, one "key: value" a line, and one "channel: LABEL" for
/// each of its channels in the order of the grid. Line breaks within a value are blanks; all
/// is UTF-8, whatever the file is in.
std::string fileInfoText(const LoadOutcome& outcome, const GridData& grid,
                         const StoredSession& stored = {});

} // namespace pellam
