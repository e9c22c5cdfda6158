#pragma once

#include "times/TimeForm.h"

#include <span>
#include <string_view>

namespace pellam {

/// The form of plain numbers that are epochs or decimal years, by where they lie and how they rise;
/// none for other numbers and texts. None of the samples is blank.
[[nodiscard]] TimeForm countForm(std::span<const std::string_view> samples);

} // namespace pellam
