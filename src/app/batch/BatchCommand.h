#pragma once

#include "app/batch/BatchSession.h"
#include "app/batch/CommandLine.h"
#include "app/batch/PatternChooser.h"
#include "app/batch/TerminalMessages.h"
#include "app/batch/TerminalProgress.h"
#include "base/Failure.h"
#include "base/InternationalSettings.h"
#include "grid/GridData.h"
#include "replay/outcome/LoadOutcome.h"
#include "replay/time/TimeCorrections.h"
#include "settings/SettingsStore.h"

#include <string>

namespace pellam {

/// Exit statuses of the program.
inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;     ///< a failure was reported, or nothing was loaded or written
inline constexpr int kWrongUsage = 2; ///< the command line was not understood

/// Does what a command line asks for without a window: loads the file once and writes every output.
class BatchCommand {
  public:
    explicit BatchCommand(const CommandLine& line);

    /// Returns the exit status.
    int run();

  private:
    bool makeOutputs();
    bool fetchSession();
    bool load();
    void keepChosenColumns();
    bool writeInfo();
    bool convert();
    bool dump();
    bool report(const Failure& failure);
    [[nodiscard]] bool isSource(const std::string& target) const;
    [[nodiscard]] Failure write(const std::string& path);
    [[nodiscard]] Failure print(const std::string& path);
    bool drawCharts();

    const CommandLine& m_line;
    SettingsStore m_settings;
    InternationalSettings m_international;
    GridData m_grid;
    TerminalProgress m_progress;
    TerminalMessages m_messages{m_progress};
    PatternChooser m_chooser;
    TimeCorrections m_corrections;
    BatchSession m_session{m_line.database.request, m_messages, m_progress};
    LoadOutcome m_outcome;
    std::string m_title; ///< of the file or session, on paper and over the chart
};

/// Does everything that needs no window, --help, --version and wrong usage included; for command
/// lines that do not want a window. Returns the exit status.
int runBatch(const CommandLine& line);

} // namespace pellam
