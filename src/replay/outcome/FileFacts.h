#pragma once

#include "grid/GridData.h"
#include "replay/outcome/LoadOutcome.h"

#include <string>
#include <vector>

namespace pellam {

/// Where the data came from when it was no file; texts empty when it was.
struct StoredSession {
    std::string dsn;
    std::string session;
};

/// One thing that is known of a loaded file: "line count" and "1200".
struct FileFact {
    std::string name; ///< in small letters
    std::string value;
};

/// The facts of a loaded file or session, what was passed over by its causes, and one "channel"
/// for each of its channels in the order of the grid. Line breaks within a value are blanks.
[[nodiscard]] std::vector<FileFact> fileFacts(const LoadOutcome& outcome, const GridData& grid,
                                              const StoredSession& stored = {});

} // namespace pellam
