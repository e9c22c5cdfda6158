#pragma once

#include "app/batch/CommandOption.h"

#include <span>
#include <string>

namespace pellam {

/// The completion of this program's options, of the words that their values can be, and of file
/// names: a function for bash, with nothing but bash's own `complete`.
std::string bashCompletion(std::span<const CommandOption> options);

/// The same as an autoloaded function of zsh.
std::string zshCompletion(std::span<const CommandOption> options);

} // namespace pellam
