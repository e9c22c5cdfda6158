#pragma once

#include "database/sessions/SessionRequest.h"
#include "delimited/layout/LayoutWishes.h"

#include <string>
#include <vector>

namespace pellam {

/// A session of a database instead of a file.
struct SessionOptions {
    SessionRequest request;           ///< empty where nothing was given; '*' and '?' are wildcards
    bool list = false;                ///< print the sessions
    std::vector<std::string> replays; ///< files to keep the replay text in, ".dlr"
};

/// What a window asks for as soon as it is open.
enum class FirstDialog { None, File, Session };

/// What the person asked for when the program was started.
struct CommandLine {
    std::string error; ///< why the usage is wrong, one sentence; empty when it is right
    bool help = false;
    bool version = false;
    bool info = false;
    FirstDialog dialog = FirstDialog::None;
    std::string file;                 ///< the file to load; empty when none is named
    std::string settings;             ///< settings file to use; empty for the user's own
    std::string channels;             ///< patterns separated by commas; empty for all channels
    std::string convert;              ///< tagged download to convert; empty when none
    std::string dump;                 ///< text to write the binary data file to; empty when none
    unsigned dumpOptions = 0;         ///< what of it, as CDumpDBD::Option
    std::vector<std::string> exports; ///< files to export to, ".csv" or ".txt", and streams
    std::string format;               ///< "csv" or "txt", of exports to streams; empty for CSV
    std::vector<std::string> prints;  ///< PDF files to print to
    std::vector<std::string> charts;  ///< files to draw the chart to, ".png", ".svg" or ".pdf"
    int chartWidth = 1280;            ///< of a chart, pixels (96 to the inch)
    int chartHeight = 720;
    SessionOptions database;
    LayoutWishes layout; ///< of a delimited text

    /// Reads the arguments; the first is the program's name. Arguments behind a wrong one, behind
    /// --help and behind --version are not looked at.
    static CommandLine parse(int argc, const char* const* argv);

    /// Whether a window is to open: nothing is asked for that is done without one.
    [[nodiscard]] bool wantsWindow() const;
    /// Whether something is asked for that needs the content of the file or session on the grid.
    [[nodiscard]] bool hasOutput() const;

    /// One line: how the program is called.
    static std::string usage();
    /// What the program's exit status tells, a meaning a line: "0 done".
    static std::string statusText();
    /// All options, for --help.
    static std::string helpText();
};

} // namespace pellam
