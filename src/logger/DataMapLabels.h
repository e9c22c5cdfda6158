#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// The label lines of a data map, in its order, without line ends: "A.Temp1.Ave(degC)"; a channel
/// that is not logged ends in ",NL". A schedule whose letter has been listed before is left out:
/// its values could not be told apart. The dialect follows from the originator type and the map.
/// Empty when no dialect fits or the map cannot be read.
[[nodiscard]] std::vector<std::string> convertDataMap(std::string_view originatorType,
                                                      std::string_view map);

/// Whether a label line is of a channel that is not logged: it has no values in data lines.
[[nodiscard]] bool isNotLogged(std::string_view label);

} // namespace pellam
