#pragma once

#include "delimited/layout/LayoutWishes.h"
#include "delimited/layout/TextLayout.h"
#include "replay/outcome/PassedOver.h"

#include <cstdint>
#include <string>

namespace pellam {

/// What a load did and what it learned of the file.
struct LoadOutcome {
    enum class Kind { Nothing, Data, Alarm, Delimited, Binary, Tagged };

    bool loaded = false;     ///< false: a message was shown and the grid is empty
    bool aborted = false;    ///< stopped by the person: what came before is in the grid
    bool incomplete = false; ///< the database failed: what came before is in the grid
    bool largeFile = false;
    Kind kind = Kind::Nothing;
    std::string path;          ///< the file opened; for a signature file the replay file it names
    std::string converted;     ///< the text that a binary or tagged file was loaded through
    std::int64_t fileSize = 0; ///< bytes
    std::int64_t rows = 0;
    int channels = 0;
    /// Replay lines that failed their check (they are loaded, in dark red); of a binary file its
    /// incomplete records, and the line that names the place where it ends early.
    std::int64_t damagedLines = 0;
    PassedOver passedOver; ///< what of the file stands in no cell
    /// Time of the first row as year/month/day hours:minutes:seconds with its fraction, a time of
    /// day alone or elapsed seconds where the file has no more; empty when it can't be read.
    std::string firstTime;
    std::string lastTime; ///< the same of the last row

    TextLayout layout;   ///< how delimited text is laid out
    LayoutWishes wishes; ///< what was asked for of it, now or earlier

    // Header facts of a replay file; defaults for every other kind.
    int cryptState = 0;
    int contentsType = -1; ///< -1 unknown, 0 data, 1 alarm
    std::string originatorType;
    std::string description;
    std::int64_t lineCount = 0; ///< 999999 for a large file
};

} // namespace pellam
