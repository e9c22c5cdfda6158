#pragma once

#include "replay/load/ChannelChooser.h"

namespace pellam {

/// Takes every channel that a large file offers.
class AllChannels : public ChannelChooser {
  public:
    std::vector<std::string> choose(const std::vector<std::string>& offered) override {
        return offered;
    }
};

} // namespace pellam
