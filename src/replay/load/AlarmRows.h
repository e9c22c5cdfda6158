#pragma once

#include "grid/RowFiller.h"
#include "replay/load/FileLoader.h"
#include "replay/load/TimeHead.h"

#include <string>
#include <string_view>

namespace pellam {

/// Puts alarm lines onto the grid: time, job, schedule, real-time flag, alarm number, type and
/// message, a row each.
class AlarmRows {
  public:
    explicit AlarmRows(const LoadContext& context);

    /// Gives the grid the seven headings of an alarm file.
    static void DisplayAlarmLabels(GridData& grid);

    /// Takes one line without its line end; other lines than alarms are passed over. The 64 bytes
    /// behind the line are readable.
    void DisplayAlarmDetails(std::string_view line);

    [[nodiscard]] Row rows() const { return m_rows; }

  private:
    void set(int column, std::string_view text);
    void setWithoutQuotes(int column, std::string_view text);

    const LoadContext& m_context;
    RowFiller m_filler;
    TimeHead m_timeHead;
    CellColour m_colour;
    std::string m_previousLine;
    Row m_rows = 0;
};

} // namespace pellam
