#pragma once

#include "base/Failure.h"
#include "base/ProgressSink.h"
#include "grid/GridData.h"

#include <string>
#include <vector>

namespace pellam {

/// Writes the grid to a text file: a row of headings, then every loaded row, lines ending in
/// "\r\n". Only columns whose heading is checked are written. Texts stand as they are shown,
/// without quotes or escapes. The target is replaced as a whole once all is written; after a
/// failure or an abort (Failure::Kind::Aborted) it is as it was.
class GridWriter {
  public:
    /// The grid must not change while it is written.
    explicit GridWriter(const GridData& grid);

    /// The list separator stands behind every column but the grid's last.
    [[nodiscard]] Failure writeCsv(const std::string& path, char listSeparator,
                                   ProgressSink& progress) const;

    /// A tab stands behind every heading but that of the grid's last column, and behind every cell,
    /// also that of the last column.
    [[nodiscard]] Failure writeTxt(const std::string& path, ProgressSink& progress) const;

  private:
    struct Layout {
        const char* title; ///< of the progress display
        char separator;
        bool headingEndsInSeparator;
        bool rowEndsInSeparator;
    };

    [[nodiscard]] Failure write(const std::string& path, const Layout& layout,
                                ProgressSink& progress) const;
    [[nodiscard]] std::string headings(const Layout& layout) const;

    const GridData& m_grid;
    std::vector<const Column*> m_columns; ///< those that are written
    bool m_hasLastColumn;                 ///< the grid's last column is one of them
};

} // namespace pellam
