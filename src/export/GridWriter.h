#pragma once

#include "base/Failure.h"
#include "base/ProgressSink.h"
#include "grid/GridData.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// Writes the grid to a text file: a row of headings, then every loaded row, lines ending in
/// "\r\n". Only columns whose heading is checked are written. Texts stand as they are shown; those
/// that hold the separator, a quote or a line end stand in quotes, with the quotes in them doubled.
/// The target is replaced as a whole once all is written; after a failure or an abort
/// (Failure::Kind::Aborted) it is as it was.
class GridWriter {
  public:
    enum class Form { Csv, Txt };

    /// The form that an extension (without the point, with its case) stands for: "csv" or "txt".
    static std::optional<Form> formOf(std::string_view extension);

    /// The grid must not change while it is written.
    explicit GridWriter(const GridData& grid);

    /// As CSV, the list separator stands behind every column but the grid's last. As TXT, a tab
    /// stands behind every heading but that of the grid's last column, and behind every cell, also
    /// that of the last column.
    [[nodiscard]] Failure write(const std::string& path, Form form, char listSeparator,
                                ProgressSink& progress) const;

  private:
    const GridData& m_grid;
    std::vector<const Column*> m_columns; ///< those that are written
    bool m_hasLastColumn;                 ///< the grid's last column is one of them
};

} // namespace pellam
