#pragma once

#include <string>
#include <vector>

namespace pellam {

/// Asks which channels of a large file are wanted. The window shows COptionTreeDlg, batch mode
/// applies its --channels patterns, tests answer from a table.
class ChannelChooser {
  public:
    virtual ~ChannelChooser() = default;

    /// `offered` are the channel labels with their number in the schedule, "A.Temp.Ave(degC){0}",
    /// in the order of the file. Returns those chosen, in the same order; none when the person
    /// chose nothing or cancelled.
    virtual std::vector<std::string> choose(const std::vector<std::string>& offered) = 0;
};

/// Takes every channel that a large file offers.
class AllChannels : public ChannelChooser {
  public:
    std::vector<std::string> choose(const std::vector<std::string>& offered) override {
        return offered;
    }
};

} // namespace pellam
