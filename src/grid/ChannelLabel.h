#pragma once

#include <string_view>

namespace pellam {

/// The parts of a channel's label, as views into it: "A.Temp.Ave(degC)" is the channel
/// "A.Temp.Ave" of schedule A in degC.
struct ChannelLabel {
    /// The label of a grid column. Its units are what stands in the last round brackets that hold
    /// something, brackets within them included; or a known unit in square brackets at the end or
    /// behind a comma.
    explicit ChannelLabel(std::string_view label);

    /// A channel that a large file offers: the label and, in braces, the channel's number within
    /// its schedule, "A.Temp.Ave(degC){0}". Names may hold braces of their own.
    static ChannelLabel numbered(std::string_view channel);

    std::string_view text; ///< the whole label, without the number
    /// What stands before the units when they end the label; else the whole label. Blanks between
    /// the two stay.
    std::string_view name;
    std::string_view units;    ///< without their brackets; empty for none
    bool unitsUnclear = false; ///< no units, though a bracket opens that does not close
    char letter = '\0';        ///< of the schedule: the first character; 0 for an empty label
    int number = -1;           ///< within the schedule; -1 for a label without one
};

} // namespace pellam
