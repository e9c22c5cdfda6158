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

std::optional<GridWriter::Form> GridWriter::formOf(std::string_view extension) {
    if (extension == "csv") return Form::Csv;
    if (extension == "txt") return Form::Txt;
    return std::nullopt;
}

Failure GridWriter::write(const std::string& path, Form form, char listSeparator,
                          ProgressSink& progress) const {
    const bool tabs = form == Form::Txt;
    const ProgressScope scope(progress, tabs ? "Exporting Data as Text" : "Exporting Data as CSV",
                              "Exporting...", 1, m_grid.rowCount());
    AtomicFile file;
    if (Failure failure = file.create(path, &progress)) return failure;
    RowFormatter rows(file, m_columns, tabs ? '\t' : listSeparator, tabs || !m_hasLastColumn);
    rows.appendHeadings(!m_hasLastColumn);
    for (Row row = 0; row < m_grid.rowCount() && !file.failed(); row += kRowsPerStep) {
        if (stopped(progress, row)) return {Failure::Kind::Aborted, path, -1, {}};
        rows.appendRows(row, std::min(row + kRowsPerStep, m_grid.rowCount()));
    }
    if (!file.failed() && progress.aborted()) return {Failure::Kind::Aborted, path, -1, {}};
    return file.commit();
}

} // namespace pellam
