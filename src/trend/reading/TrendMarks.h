#pragma once

#include <QPointF>
#include <array>
#include <optional>

namespace pellam {

/// What lies over the curves: chosen with pointer and keys, never part of an image or printout.
struct TrendMarks {
    std::optional<double> crosshair;              ///< time
    std::array<std::optional<double>, 2> cursors; ///< times of A and B
    int activeCursor = -1;                        ///< the one set or moved last: 0 = A, 1 = B
    std::optional<double> current;                ///< time of the table's current row
    std::optional<QPointF> pointer; ///< where the mouse is, when it moves the crosshair
    int legendFocus = -1; ///< legend entry that has the keyboard, else the drawing area has it
    bool focused = false; ///< the control has the keyboard

    bool measuring() const { return cursors[0].has_value() || cursors[1].has_value(); }
};

} // namespace pellam
