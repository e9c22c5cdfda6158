#pragma once

#include "base/FieldScanner.h"
#include "base/LineReader.h"
#include "grid/RowFiller.h"
#include "replay/load/FileLoader.h"
#include "replay/load/LoadOutcome.h"

#include <string>
#include <string_view>

namespace pellam {

/// Loads delimited text (CSV, tab-separated) into an empty grid: the first line that is not blank
/// gives the headings, every further line a row.
class DelimitedLoader {
  public:
    DelimitedLoader(const LoadContext& context, char separator)
        : m_context(context),
          m_separator(separator),
          m_decimal(context.grid.decimalSeparator()) {}

    /// Reads the file. A failure, or that there is nothing in the file, is shown and the outcome
    /// says not loaded.
    LoadOutcome ReadDelimFile(const std::string& path);

  private:
    [[nodiscard]] bool firstLine(LineReader& reader, std::string_view& line) const;
    void readRows(LineReader& reader, std::string_view line, LoadOutcome& outcome);
    /// Finds out how a file is written whose first line does not have the expected separator.
    void adaptSeparators(LineReader& reader);
    [[nodiscard]] bool hasDecimalComma(std::string_view line) const;
    void DisplayDelimLabels(std::string_view line);
    void DisplayDelimDetails(std::string_view line, RowFiller& filler);
    Cell fieldCell(std::string_view field, int column);
    [[nodiscard]] bool isDiscontinuity(std::string_view line) const;
    [[nodiscard]] FieldScanner::Quotes quotesOf(std::string_view line) const;

    const LoadContext& m_context;
    char m_separator;
    char m_decimal;        ///< stands in the file's numbers
    int m_columnCount = 0; ///< columns with a heading, the time column included
    Row m_rows = 0;
    std::string m_previousLine;
};

} // namespace pellam
