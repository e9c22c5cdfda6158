#pragma once

#include "base/FieldScanner.h"
#include "grid/RowFiller.h"
#include "replay/load/DelimitedColumns.h"
#include "replay/load/FileLoader.h"
#include "replay/outcome/PassedOver.h"
#include "times/TimeReader.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// Puts the records of a delimited text on the grid, one a row, as its layout says.
class DelimitedRows {
  public:
    DelimitedRows(const LoadContext& context, const TextLayout& layout, DelimitedColumns& columns);

    /// Takes a record without its line end, and its first line; LineReader::kSlack bytes around the
    /// record are readable.
    /// Records that repeat the one before or the headings, blank ones, comments and notes of a
    /// discontinuity make no row.
    void DisplayDelimDetails(std::string_view record, std::int64_t line);

    [[nodiscard]] Row rows() const { return m_rows; }

    /// Lines of rows that look like headings of further tables, up to 20 of them.
    [[nodiscard]] const std::vector<std::int64_t>& furtherHeadings() const {
        return m_furtherHeadings;
    }

    [[nodiscard]] const PassedOver& passedOver() const { return m_passedOver; }

  private:
    [[nodiscard]] std::optional<PassedOver::Cause> passedOverFor(std::string_view record) const;
    [[nodiscard]] bool isBlank(std::string_view record) const;
    void placePlain(std::string_view record);
    void placeAny(std::string_view record);
    void placeField(std::size_t field, std::string_view text, bool quoted);
    void placeTime();
    [[nodiscard]] int columnFor(std::size_t field);
    Cell textCell(std::string_view field, int column);
    Cell numberCell(std::string_view number, Column& column);
    void watchHeadings(std::string_view record, std::int64_t line);

    const LoadContext& m_context;
    const TextLayout& m_layout;
    DelimitedColumns& m_columns;
    RowFiller m_filler;
    TimeReader m_times;
    std::vector<int> m_timePlaces;             ///< by field: its place in the time, or -1
    std::vector<std::string_view> m_timeTexts; ///< of the record at hand
    std::string m_previous;
    std::vector<std::int64_t> m_furtherHeadings;
    PassedOver m_passedOver;
    std::int64_t m_line = 0; ///< first line of the record at hand
    Row m_rows = 0;
    CellColour m_colour;
    bool m_simple;          ///< FieldScanner knows the dialect
    bool m_watchesHeadings; ///< rows begin with a time: one that doesn't may be of headings
};

} // namespace pellam
