#include "replay/load/AxisGrouping.h"

#include <array>
#include <string>

namespace pellam {

namespace {

std::string withoutEmptyBrackets(std::string label) {
    for (std::size_t at; (at = label.find("()")) != std::string::npos;)
        label.erase(at, 2);
    return label;
}

} // namespace

void sortAxisByUnits(GridData& grid) {
    std::array<std::string, 6> axes;
    std::string units;
    for (int column = 1; column < grid.channelCount(); ++column) {
        const std::string label = withoutEmptyBrackets(grid.column(column).label());
        const std::size_t open = label.find('(');
        if (open == std::string::npos) {
            units = "Data";
        } else {
            const std::size_t close = label.find(')');
            if (close == std::string::npos || close <= open + 1) continue;
            units = label.substr(open + 1, close - open - 1);
        }
        for (std::size_t axis = 0; axis < axes.size(); ++axis) {
            if (!axes[axis].empty() && axes[axis] != units) continue;
            axes[axis] = units;
            grid.column(column).setAxis(static_cast<int>(axis) + 1);
            break;
        }
    }
    grid.setChanged(true);
}

} // namespace pellam
