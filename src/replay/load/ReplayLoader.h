#pragma once

#include "replay/file/CReplayFile.h"
#include "replay/load/ColumnMap.h"
#include "replay/load/FileLoader.h"
#include "replay/outcome/LoadOutcome.h"

#include <optional>
#include <string>
#include <string_view>

namespace pellam {

/// Loads replay text into an empty grid: readings, or the alarms of an alarm file.
class ReplayLoader {
  public:
    explicit ReplayLoader(const LoadContext& context) : m_context(context) {}

    /// Opens and reads the file. Refusals are shown and leave the grid empty; a damaged line is
    /// loaded in dark red.
    LoadOutcome ReadReplayFile(const std::string& path);

    /// A line without its line end and trailing blanks.
    static std::string_view withoutBlanks(std::string_view line);
    /// A data line as its row is made from: also without one trailing ':'.
    static std::string_view trimmed(std::string_view line);
    /// The line behind its prefix in square brackets, if it has one.
    static std::string_view withoutPrefix(std::string_view line);

  private:
    void readFacts(CReplayFile& file, LoadOutcome& outcome) const;
    std::optional<ColumnMap> readLabels(CReplayFile& file, LoadOutcome& outcome) const;
    std::optional<ColumnMap> chooseLabels(const CReplayFile& file) const;
    void readReadings(CReplayFile& file, const ColumnMap& columns, LoadOutcome& outcome) const;
    void readAlarms(CReplayFile& file, LoadOutcome& outcome) const;

    const LoadContext& m_context;
};

} // namespace pellam
