#pragma once

#include "grid/ChunkPool.h"
#include "grid/MissingText.h"
#include "grid/TextArena.h"

#include <vector>

namespace pellam {

/// What the columns of one grid share: their memory, and how their cells are to be understood.
struct CellStorage {
    explicit CellStorage(char separator) : decimalSeparator(separator) {}

    ChunkPool chunks;
    TextArena texts;
    char decimalSeparator; ///< stands in the numbers of packed cells
    std::vector<MissingText> missing;
    bool missingAsNumbers = false; ///< numbers among them count as values all the same
};

} // namespace pellam
