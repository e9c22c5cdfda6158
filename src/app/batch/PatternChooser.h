#pragma once

#include "replay/load/ChannelChooser.h"

#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// Chooses channels by patterns: '*' stands for any characters, '?' for one, and letters count with
/// their case.
class PatternChooser : public ChannelChooser {
  public:
    /// `patterns` are separated by commas; none, or "all", choose every channel.
    explicit PatternChooser(std::string_view patterns);

    /// A channel fits with its number "{n}" or without it.
    std::vector<std::string> choose(const std::vector<std::string>& offered) override;

    /// Whether a label is chosen as it stands.
    [[nodiscard]] bool matches(std::string_view label) const;

    /// Whether every channel is chosen, whatever it is called.
    [[nodiscard]] bool choosesAll() const { return m_all; }

  private:
    std::vector<std::string> m_patterns;
    bool m_all;
};

/// Whether all of `text` fits a pattern with the wildcards '*' and '?'.
[[nodiscard]] bool matchesWildcards(std::string_view pattern, std::string_view text);

} // namespace pellam
