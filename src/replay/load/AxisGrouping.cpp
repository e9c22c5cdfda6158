#include "replay/load/AxisGrouping.h"

#include "grid/ChannelLabel.h"

#include <array>
#include <string_view>

namespace pellam {

void sortAxisByUnits(GridData& grid) {
    std::array<std::string_view, 6> axes;
    for (int column = 1; column < grid.channelCount(); ++column) {
        const ChannelLabel label(grid.column(column).label());
        if (label.unitsUnclear) continue;
        const std::string_view units = label.units.empty() ? "Data" : label.units;
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
