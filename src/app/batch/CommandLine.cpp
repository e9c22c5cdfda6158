#include "app/batch/CommandLine.h"

#include "app/batch/CommandOption.h"
#include "app/batch/CommandReader.h"

namespace pellam {

CommandLine CommandLine::parse(int argc, const char* const* argv) {
    return CommandReader(argc, argv).read();
}

bool CommandLine::hasOutput() const {
    return info || !exports.empty() || !prints.empty() || !charts.empty();
}

bool CommandLine::wantsWindow() const {
    return error.empty() && !help && !version && !hasOutput() && convert.empty() && dump.empty() &&
           database.request.dataSource.empty();
}

std::string CommandLine::usage() {
    return "usage: pellam [OPTIONS] [FILE]; pellam --help lists the options";
}

std::string CommandLine::statusText() {
    return "0 done\n"
           "1 a failure was reported, or nothing could be loaded or written\n"
           "2 wrong usage\n";
}

std::string CommandLine::helpText() {
    return "pellam [OPTIONS] [FILE]        opens the window, and FILE in it when named\n\n" +
           commandHelp() +
           "\nSeveral of these may be given in one call; FILE or the session is loaded once.\n"
           "\nExit status:\n" +
           statusText();
}

} // namespace pellam
