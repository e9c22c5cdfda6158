#pragma once

#include "base/FieldScanner.h"
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
    AlarmRows(const LoadContext& context, PassedOver& passedOver);

    /// Gives the grid the seven headings of an alarm file.
    static void DisplayAlarmLabels(GridData& grid);

    /// Takes one line that begins as an alarm does, without its line end; `number` is its number in
    /// the file. The 64 bytes behind the line are readable.
    void DisplayAlarmDetails(std::string_view line, std::int64_t number);

    [[nodiscard]] Row rows() const { return m_rows; }

  private:
    void set(int column, std::string_view text);
    /// Puts the next fields, up to the line's checksum, into the columns from `column` on.
    void placeFields(FieldScanner& fields, int column, std::int64_t number);

    const LoadContext& m_context;
    PassedOver& m_passedOver;
    RowFiller m_filler;
    TimeHead m_timeHead;
    CellColour m_colour;
    std::string m_previousLine;
    Row m_rows = 0;
};

} // namespace pellam
