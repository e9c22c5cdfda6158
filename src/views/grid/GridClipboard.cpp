#include "views/grid/GridClipboard.h"

#include "views/grid/MyCug.h"
#include "views/sheet/EditCommand.h"
#include "views/sheet/GridModel.h"

#include <QApplication>
#include <QClipboard>
#include <QLocale>
#include <QMimeData>
#include <QProgressDialog>

#include <algorithm>
#include <memory>
#include <utility>

namespace pellam {

GridClipboard::GridClipboard(MyCug& cug) : QObject(&cug), m_cug(cug) {}

void GridClipboard::watch() {
    if (std::exchange(m_watches, true)) return;
    const auto look = [this] {
        const auto* content = QApplication::clipboard()->mimeData();
        m_hasText = content && content->hasText();
    };
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this, look);
    look();
}

void GridClipboard::setQuestion(std::function<bool(const QString&)> question) {
    m_question = std::move(question);
}

bool GridClipboard::buildText(const ClipboardTable::Block& block, std::string& text) {
    constexpr std::int64_t cellsPerTurn = 50'000;
    const GridData& grid = m_cug.gridModel().grid();
    const auto rowsPerTurn =
        std::max<std::int64_t>(1, cellsPerTurn / static_cast<std::int64_t>(block.columns.size()));
    QProgressDialog progress(tr("Copying…"), tr("Cancel"), 0, 1000, &m_cug);
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(400);
    const std::int64_t rows = block.rows();
    std::int64_t done = 0;
    for (const CellArea& band : block.bands) {
        for (GridRow row = band.firstRow; row <= band.lastRow; ++row, ++done) {
            if (done > 0) text += '\n';
            ClipboardTable::appendRow(grid, block, row, text);
            if (done % rowsPerTurn != rowsPerTurn - 1) continue;
            progress.setValue(static_cast<int>(done * 1000 / rows));
            if (progress.wasCanceled()) return false;
        }
    }
    return true;
}

bool GridClipboard::copy(bool withHeadings) {
    const GridData& grid = m_cug.gridModel().grid();
    const auto block = ClipboardTable::block(m_cug.selectedAreas());
    if (block.columns.empty()) {
        Q_EMIT refused(tr("These areas can't be copied together: they do not make up whole rows "
                          "and columns."));
        return false;
    }
    const std::int64_t bytes = ClipboardTable::estimateBytes(grid, block);
    if (bytes > ClipboardTable::kMaximumBytes) {
        Q_EMIT refused(tr("The selection is too large for the clipboard: about %1, where %2 is the "
                          "most. Select fewer cells, or export the data to a file.")
                           .arg(QLocale().formattedDataSize(bytes, 1),
                                QLocale().formattedDataSize(ClipboardTable::kMaximumBytes, 0)));
        return false;
    }
    std::string text;
    text.reserve(static_cast<std::size_t>(bytes) + 64);
    if (withHeadings) {
        ClipboardTable::appendHeadings(grid, block, text);
        text += '\n';
    }
    if (!buildText(block, text)) return false;
    auto* mime = new QMimeData;
    mime->setData(QStringLiteral("text/plain"),
                  QByteArray(text.data(), static_cast<qsizetype>(text.size())));
    QApplication::clipboard()->setMimeData(mime);
    Q_EMIT notice(block.cells() == 1 ? tr("1 cell copied")
                                     : tr("%L1 cells copied").arg(block.cells()));
    return true;
}

bool GridClipboard::writable() {
    if (m_cug.enableProtection() != 1) return true;
    Q_EMIT notice(tr("The grid is protected: its cells can't be changed"));
    return false;
}

void GridClipboard::cut() {
    if (writable() && copy()) clear();
}

void GridClipboard::clear() {
    if (writable()) fill(m_cug.selectedAreas(), {}, tr("Clear"));
}

void GridClipboard::fill(const std::vector<CellArea>& areas, const std::string& text,
                         const QString& name) {
    GridModel& model = m_cug.gridModel();
    const auto each = [&areas](const auto& write) {
        for (const CellArea& area : areas) {
            for (int column = area.firstColumn; column <= area.lastColumn; ++column) {
                for (GridRow row = area.firstRow; row <= area.lastRow; ++row)
                    write(column, row);
            }
        }
    };
    std::int64_t cells = 0;
    for (const CellArea& area : areas)
        cells += area.cells();
    if (cells <= EditCommand::kMaximumCells) {
        auto command = std::make_unique<EditCommand>(model, name);
        each([&](int column, GridRow row) { command->set(column, row, text); });
        if (!command->isEmpty()) model.undoStack().push(command.release());
        return;
    }
    if (!mayChange(cells)) return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    each([&](int column, GridRow row) { EditCommand::write(model, column, row, text); });
    model.undoStack().clear();
    for (const CellArea& area : areas)
        model.cellsChanged(area);
    QApplication::restoreOverrideCursor();
}

bool GridClipboard::mayChange(std::int64_t cells) const {
    if (cells <= EditCommand::kMaximumCells) return true;
    return m_question &&
           m_question(tr("This changes %L1 cells and can't be undone. Go on?").arg(cells));
}

void GridClipboard::paste() {
    if (!writable()) return;
    const auto table = ClipboardTable::parse(QApplication::clipboard()->text().toStdString());
    if (table.empty()) return;
    if (table.size() == 1 && table.front().size() == 1) {
        fill(m_cug.selectedAreas(), table.front().front(), tr("Paste"));
    } else {
        pasteTable(table);
    }
}

CellArea GridClipboard::pasteTarget(GridRow rows, std::int64_t columns) const {
    const GridModel& model = m_cug.gridModel();
    const auto areas = m_cug.selectedAreas();
    const QModelIndex current = m_cug.currentIndex();
    const int column = areas.size() == 1 ? areas.front().firstColumn : current.column();
    const GridRow row = areas.size() == 1 ? areas.front().firstRow : current.row();
    const auto endColumn = std::min<std::int64_t>(column + columns, model.columnCount());
    return {column, static_cast<int>(endColumn) - 1, row,
            std::min<GridRow>(row + rows, model.rowCount()) - 1};
}

void GridClipboard::pasteTable(const std::vector<std::vector<std::string>>& table) {
    GridModel& model = m_cug.gridModel();
    std::int64_t widest = 0;
    std::int64_t cells = 0;
    for (const auto& row : table) {
        const auto columns = static_cast<std::int64_t>(row.size());
        widest = std::max(widest, columns);
        cells += columns;
    }
    if (!mayChange(cells)) return;
    const bool undoable = cells <= EditCommand::kMaximumCells;
    const CellArea target = pasteTarget(static_cast<GridRow>(table.size()), widest);
    auto command = std::make_unique<EditCommand>(model, tr("Paste"));
    for (GridRow row = target.firstRow; row <= target.lastRow; ++row) {
        const auto& texts = table[static_cast<std::size_t>(row - target.firstRow)];
        int column = target.firstColumn;
        for (const std::string& text : texts) {
            if (column > target.lastColumn) break;
            if (undoable)
                command->set(column, row, text);
            else
                EditCommand::write(model, column, row, text);
            ++column;
        }
    }
    if (!undoable) {
        model.undoStack().clear();
        model.cellsChanged(target);
    } else if (!command->isEmpty()) {
        model.undoStack().push(command.release());
    }
    m_cug.selectArea(target);
    if (target.rows() < static_cast<GridRow>(table.size()) || target.columns() < widest) {
        Q_EMIT notice(
            tr("Part of the clipboard lies past the end of the grid and was not pasted."));
    }
}

} // namespace pellam
