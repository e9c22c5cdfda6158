#include "replay/load/AxisGrouping.h"

#include "delimited/layout/UnitWords.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace pellam {

namespace {

std::string withoutEmptyBrackets(std::string label) {
    for (std::size_t at; (at = label.find("()")) != std::string::npos;)
        label.erase(at, 2);
    return label;
}

// "Speed, m/s" and "Temp, \xC2\xB0C (S/N: 1024)": what stands behind the last comma before
// brackets.
std::string_view unitsBehindComma(std::string_view label) {
    label = label.substr(0, label.find(" ("));
    const std::size_t comma = label.rfind(", ");
    if (comma == std::string_view::npos) return {};
    const std::string_view units = label.substr(comma + 2);
    return isUnitText(units) ? units : std::string_view();
}

// "Data" for a heading without units; nothing where its brackets are no pair.
std::optional<std::string> unitsOf(const std::string& label) {
    const std::size_t square = label.rfind('[');
    if (square != std::string::npos && label.ends_with(']') && square + 2 < label.size())
        return label.substr(square + 1, label.size() - square - 2);
    if (const std::string_view units = unitsBehindComma(label); !units.empty())
        return std::string(units);
    const std::size_t open = label.find('(');
    if (open == std::string::npos) return std::string("Data");
    const std::size_t close = label.find(')');
    if (close == std::string::npos || close <= open + 1) return std::nullopt;
    return label.substr(open + 1, close - open - 1);
}

} // namespace

void sortAxisByUnits(GridData& grid) {
    std::array<std::string, 6> axes;
    for (int column = 1; column < grid.channelCount(); ++column) {
        const auto units = unitsOf(withoutEmptyBrackets(grid.column(column).label()));
        if (!units) continue;
        for (std::size_t axis = 0; axis < axes.size(); ++axis) {
            if (!axes[axis].empty() && axes[axis] != *units) continue;
            axes[axis] = *units;
            grid.column(column).setAxis(static_cast<int>(axis) + 1);
            break;
        }
    }
    grid.setChanged(true);
}

} // namespace pellam
