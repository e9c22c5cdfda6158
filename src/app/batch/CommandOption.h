#pragma once

#include <span>
#include <string>
#include <string_view>

namespace pellam {

class CommandReader;

/// One option of the command line: what reads it, checks it and tells of it. All texts stay.
struct CommandOption {
    std::string_view name;  ///< "--export"; empty for a heading, which is its `help`
    std::string_view value; ///< of its value, "OUT.csv|OUT.txt"; empty when it takes none
    std::string_view needs; ///< one of these must be given too, "--export or --info"; empty: none
    std::string_view help;  ///< what it does, without line breaks
    void (*read)(CommandReader&) = nullptr;
    std::string_view letter = {}; ///< "-h"; empty for most
};

/// Every option of the program, in the order that --help tells of them.
std::span<const CommandOption> commandOptions();

/// The options as lines of at most 80 columns.
std::string commandHelp();

} // namespace pellam
