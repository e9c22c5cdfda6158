#pragma once

#include <algorithm>
#include <cstdint>

namespace pellam {

/// A row of the grid as the user sees it: 0 is the axis row, data row r of the store is r + 1.
using GridRow = std::int64_t;

/// A rectangle of cells; all ends are inclusive.
struct CellArea {
    int firstColumn = 0;
    int lastColumn = -1;
    GridRow firstRow = 0;
    GridRow lastRow = -1;

    [[nodiscard]] bool isEmpty() const { return lastColumn < firstColumn || lastRow < firstRow; }

    [[nodiscard]] std::int64_t columns() const { return lastColumn - firstColumn + 1; }

    [[nodiscard]] std::int64_t rows() const { return lastRow - firstRow + 1; }

    [[nodiscard]] std::int64_t cells() const { return isEmpty() ? 0 : columns() * rows(); }

    friend bool operator==(const CellArea&, const CellArea&) = default;
};

} // namespace pellam
