#pragma once

#include "app/batch/CommandLine.h"
#include "app/batch/CommandOption.h"
#include "logger/CDumpDBD.h"

#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// Goes through the arguments of a command line once. File names are bytes here, as a system's
/// names need not be text in its locale.
class CommandReader {
  public:
    /// The first argument is the program's name. All must outlive the reader.
    CommandReader(int argc, const char* const* argv) : m_argv(argv), m_argc(argc) {}

    /// Reads all arguments; the result has the first error.
    CommandLine read();

    // For the options, which have these take the value at hand into its place:

    CommandLine& line() { return m_line; }

    SessionRequest& request() { return m_line.database.request; }

    /// A text that may be given once.
    void takeText(std::string& text);
    /// One of several files, with an extension that the value's name has.
    void takeOutput(std::vector<std::string>& outputs);
    /// A file to export to, or a stream: "-" for standard output, anything below /dev.
    void takeExport();
    /// A file to write the binary data file to, or a stream.
    void takeDump();
    /// The form of exports whose name does not tell it.
    void takeFormat();
    void takeTime(CTime& time);
    /// What the window asks for; one of these alone.
    void takeDialog(FirstDialog dialog);
    /// The size of the chart.
    void takeSize();
    /// Something of a text's layout.
    void takeLayout(std::string (*put)(std::string_view, LayoutWishes&));

  private:
    [[nodiscard]] bool finished() const;
    void fail(std::string_view option, std::string_view why);
    void takeFile(std::string_view file);
    void takeArgument(std::string_view argument);
    void takeOption(const CommandOption& option);
    bool takeValue();
    [[nodiscard]] bool isGiven(std::string_view option) const;
    bool isFirst();
    void checkNeeds();
    void checkSession();
    void checkDialog();
    void checkFile();

    CommandLine m_line;
    const char* const* m_argv;
    int m_argc;
    int m_next = 1;
    bool m_onlyFiles = false;
    std::vector<const CommandOption*> m_given;
    std::string_view m_name;  ///< of the option at hand, as it was given
    std::string_view m_value; ///< its value
    bool m_assigned = false;  ///< it came as --option=value
};

} // namespace pellam
