#pragma once

#include "base/FieldScanner.h"
#include "grid/RowFiller.h"
#include "replay/load/ColumnMap.h"
#include "replay/load/FileLoader.h"
#include "replay/load/TimeHead.h"

#include <string>
#include <string_view>

namespace pellam {

/// Puts reading lines onto the grid: lines with one time share a row, each writes the columns of
/// its schedule.
class ReadingRows {
  public:
    /// What a file's size changes: lines that begin with '<' and schedules without a chosen
    /// channel make no rows in a large one.
    enum class Mode { WholeFile, ChosenChannels };

    ReadingRows(const LoadContext& context, const ColumnMap& columns, Mode mode);

    /// Takes one line without line end, prefix or suffix characters; other lines than readings are
    /// passed over. `ok`: the line passed its check. The 64 bytes behind the line are readable.
    void DisplayDetails(std::string_view line, bool ok);

    [[nodiscard]] Row rows() const { return m_rows; }

    [[nodiscard]] std::int64_t damagedLines() const { return m_damagedLines; }

  private:
    [[nodiscard]] bool sharesRow(std::string_view time, std::span<const int> columns);
    void enterRow(std::string_view time, std::span<const int> columns, bool ok);
    void placeValues(FieldScanner& fields, std::span<const int> columns, std::size_t number);
    /// A plain number of a numeric channel, the usual case; false for all else.
    bool placeNumber(const char* begin, const char* end, int column);
    /// Any value; false for what is none and takes no channel.
    bool placeValue(std::string_view value, int column);
    Cell numberCell(std::string_view value, int column);

    const LoadContext& m_context;
    const ColumnMap& m_columns;
    Mode m_mode;
    RowFiller m_filler;
    TimeHead m_timeHead;
    std::string m_previousLine;
    std::string m_previousTime;
    Row m_rows = 0;
    std::int64_t m_damagedLines = 0;
    CellColour m_colour = CellColour::Black;
};

} // namespace pellam
