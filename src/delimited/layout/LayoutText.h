#pragma once

#include "delimited/layout/TextLayout.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pellam {

/// What is out of the ordinary in a layout, as one line for a person: "Headings from line 5, time
/// from columns 1 and 2, decimal comma". Empty where there is nothing to tell of a plain layout.
[[nodiscard]] std::string layoutSummary(const TextLayout& layout);

/// The layout as keys and values, in the words of the options that change it; lines and columns
/// count from 1.
[[nodiscard]] std::vector<std::pair<std::string, std::string>>
layoutFacts(const TextLayout& layout);

/// The word for a separator: "comma", "semicolon", "tab", "bar", "blanks", or the character.
[[nodiscard]] std::string separatorName(char separator);

/// The separator that a word or a character names; '\0' for none.
[[nodiscard]] char separatorOf(std::string_view name);

} // namespace pellam
