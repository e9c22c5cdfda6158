#include "export/GridWriter.h"

#include "base/AtomicFile.h"
#include "export/RowFormatter.h"

#include <algorithm>

namespace pellam {

namespace {

constexpr Row kRowsPerStep = 4096; // a quarter of a chunk: a step never crosses chunks
static_assert(Column::kChunkRows % kRowsPerStep == 0);

bool stopped(ProgressSink& progress, Row row) {
    progress.addString("Loaded " + std::to_string(row) + " Lines");
    progress.setPosition(row);
    return progress.aborted();
}

} // namespace

GridWriter::GridWriter(const GridData& grid) : m_grid(grid) {
    for (int i = 0; i < grid.columnCount(); ++i) {
        if (grid.column(i).charted()) m_columns.push_back(&grid.column(i));
    }
    m_hasLastColumn = grid.columnCount() > 0 && grid.column(grid.columnCount() - 1).charted();
}

Failure GridWriter::writeCsv(const std::string& path, char listSeparator,
                             ProgressSink& progress) const {
    return write(path, {"Exporting Data as CSV", listSeparator, !m_hasLastColumn, !m_hasLastColumn},
                 progress);
}

Failure GridWriter::writeTxt(const std::string& path, ProgressSink& progress) const {
    return write(path, {"Exporting Data as Text", '\t', !m_hasLastColumn, true}, progress);
}

std::string GridWriter::headings(const Layout& layout) const {
    std::string line;
    for (const Column* const column : m_columns)
        line += column->label() + layout.separator;
    if (!layout.headingEndsInSeparator && !line.empty()) line.pop_back();
    return line + "\r\n";
}

Failure GridWriter::write(const std::string& path, const Layout& layout,
                          ProgressSink& progress) const {
    AtomicFile file;
    if (Failure failure = file.create(path)) return failure;
    const ProgressScope scope(progress, layout.title, "Exporting...", 1, m_grid.rowCount());
    RowFormatter rows(file, m_columns, layout.separator, layout.rowEndsInSeparator);
    if (Failure failure = rows.append(headings(layout))) return failure;
    for (Row row = 0; row < m_grid.rowCount(); row += kRowsPerStep) {
        if (stopped(progress, row)) return {Failure::Kind::Aborted, path, -1, {}};
        const Row end = std::min(row + kRowsPerStep, m_grid.rowCount());
        if (Failure failure = rows.appendRows(row, end)) return failure;
    }
    if (Failure failure = rows.flush()) return failure;
    if (progress.aborted()) return {Failure::Kind::Aborted, path, -1, {}};
    return file.commit();
}

} // namespace pellam
