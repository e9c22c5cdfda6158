#pragma once

#include <cstdint>

namespace pellam {

/// Text colour of a cell.
enum class CellColour : std::uint8_t {
    Black = 0,
    Grey = 1,    ///< RGB(96, 96, 96): rows that are protected against editing
    DarkRed = 2, ///< RGB(192, 0, 0): the line failed its checksum
};

} // namespace pellam
