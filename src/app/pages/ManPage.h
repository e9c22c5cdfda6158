#pragma once

#include "app/batch/CommandOption.h"

#include <span>
#include <string>
#include <string_view>

namespace pellam {

/// The manual page pellam(1) in the macros of man(7), with these options. `date` is that of the
/// release, "2026-11-22".
std::string manPage(std::span<const CommandOption> options, std::string_view version,
                    std::string_view date);

} // namespace pellam
