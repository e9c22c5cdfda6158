#pragma once

#include "base/LineReader.h"
#include "delimited/layout/TextLayout.h"
#include "replay/load/DelimitedColumns.h"
#include "replay/load/FileLoader.h"
#include "replay/outcome/LoadOutcome.h"

#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// Loads delimited text (CSV, tab-separated) into an empty grid, as its layout says.
class DelimitedLoader {
  public:
    DelimitedLoader(const LoadContext& context, TextLayout layout)
        : m_context(context),
          m_layout(std::move(layout)) {}

    /// A loader of text that has its headings in the first line that is not blank, its times in the
    /// first column, and the user's decimal separator.
    DelimitedLoader(const LoadContext& context, char separator);

    /// Reads the file. A failure, that there is nothing in the file, or that it is no table, is
    /// shown and the outcome says not loaded.
    LoadOutcome ReadDelimFile(const std::string& path);

  private:
    [[nodiscard]] bool refuse(const std::string& path) const;
    [[nodiscard]] bool firstLine(LineReader& reader, std::string_view& line);
    [[nodiscard]] DelimitedColumns plainColumns(std::string_view line) const;
    [[nodiscard]] std::vector<std::string> plainLabels(std::string_view line) const;
    void takeMissing(const DelimitedColumns& columns) const;
    void readRows(LineReader& reader, DelimitedColumns& columns, std::string_view first,
                  LoadOutcome& outcome);

    const LoadContext& m_context;
    TextLayout m_layout;
    std::int64_t m_line = 0; ///< lines read before the rows
};

} // namespace pellam
