#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// The channels that a large file offers, in the order of its data map: "A.Temp.Ave(degC){0}", the
/// label and the channel's number within its schedule, which starts at 0 with every change of
/// letter. A channel that is not logged has no values and is neither offered nor counted.
[[nodiscard]] std::vector<std::string> offeredChannels(std::string_view originatorType,
                                                       std::string_view dataMap);

/// The grid column (1 for the first entry) of the chosen channel of a schedule letter with a number
/// within its schedule; -1 when it is not among them.
[[nodiscard]] int FindColumnFromArray(const std::vector<std::string>& channels, char letter,
                                      int number);

} // namespace pellam
