#pragma once

#include <string_view>

namespace pellam {

/// Whether a field names a unit of measurement, or how a time is written, rather than a quantity:
/// "degC", "(V)", "[m/s]", "%", "W/m^2", "yyyy-mm-dd".
[[nodiscard]] bool isUnitText(std::string_view field);

/// Whether a field names how readings were gathered: "Avg", "Max", "Smp".
[[nodiscard]] bool isStatisticText(std::string_view field);

} // namespace pellam
