#pragma once

#include "base/FieldScanner.h"
#include "grid/RowFiller.h"
#include "replay/load/ColumnMap.h"
#include "replay/load/FileLoader.h"
#include "replay/load/TimeHead.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// Puts reading lines onto the grid: lines with one time share a row, each writes the columns of
/// its schedule.
class ReadingRows {
  public:
    /// What a file's size changes: lines that begin with '<' and schedules without a chosen
    /// channel make no rows in a large one.
    enum class Mode { WholeFile, ChosenChannels };

    ReadingRows(const LoadContext& context, const ColumnMap& columns, Mode mode,
                PassedOver& passedOver);

    /// Whether a line begins as readings do in such a file.
    [[nodiscard]] bool isReading(std::string_view line) const;

    /// Takes one line that isReading(), without line end or prefix; `number` is its number in the
    /// file. `ok`: the line passed its check. The 64 bytes behind the line are readable.
    void DisplayDetails(std::string_view line, std::int64_t number, bool ok);

    [[nodiscard]] Row rows() const { return m_rows; }

    [[nodiscard]] std::int64_t damagedLines() const { return m_damagedLines; }

  private:
    /// The columns of a schedule from one of its channels on.
    using Columns = std::span<const int>;

    void passOver(PassedOver::Cause cause) { m_passedOver.add(cause, m_line); }

    [[nodiscard]] Columns columnsFrom(Columns columns, std::string_view offset);
    [[nodiscard]] bool isFree(int column) const;
    [[nodiscard]] bool sharesRow(std::string_view time, Columns columns, FieldScanner fields) const;
    void enterRow(std::string_view time, bool newRow, bool ok);
    void placeValues(FieldScanner& fields, Columns columns);
    void placeOther(std::string_view field, bool last, Columns& columns);
    /// A plain number of a numeric channel, the usual case; false for all else.
    bool placeNumber(const char* begin, const char* end, int column);
    /// A value of any kind.
    void placeValue(std::string_view value, int column);
    Cell numberCell(std::string_view value, int column);

    const LoadContext& m_context;
    const ColumnMap& m_columns;
    Mode m_mode;
    PassedOver& m_passedOver;
    RowFiller m_filler;
    TimeHead m_timeHead;
    std::string m_previousLine;
    std::string m_previousTime;
    std::vector<int> m_emptyTexts; ///< columns where the row holds a text without characters
    std::int64_t m_line = 0;       ///< number of the line that is being taken
    Row m_rows = 0;
    std::int64_t m_damagedLines = 0;
    CellColour m_colour = CellColour::Black;
};

} // namespace pellam
