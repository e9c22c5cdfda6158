#pragma once

#include "grid/ChunkPool.h"
#include "grid/TextArena.h"

namespace pellam {

/// The memory that the columns of one grid share.
struct CellStorage {
    explicit CellStorage(char separator) : decimalSeparator(separator) {}

    ChunkPool chunks;
    TextArena texts;
    char decimalSeparator; ///< stands in the numbers of packed cells
};

} // namespace pellam
