#include "views/grid/GridClipboard.h"

#include "views/grid/ClipboardProgress.h"
#include "views/grid/MyCug.h"
#include "views/sheet/EditCommand.h"
#include "views/sheet/GridModel.h"

#include <QApplication>
#include <QClipboard>
#include <QLocale>
#include <QMimeData>

#include <algorithm>
#include <memory>
#include <new>
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
    const GridData& grid = m_cug.gridModel().grid();
    const auto columns = static_cast<std::int64_t>(block.columns.size());
    ClipboardProgress progress(tr("Copying…"), block.cells(), &m_cug);
    bool first = true;
    for (const CellArea& band : block.bands) {
        for (GridRow row = band.firstRow; row <= band.lastRow; ++row) {
            if (!std::exchange(first, false)) text += '\n';
            ClipboardTable::appendRow(grid, block, row, text);
            if (!progress.advance(columns)) return false;
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

bool GridClipboard::mayChange(const std::vector<CellArea>& areas, const QString& question) const {
    const GridModel& model = m_cug.gridModel();
    const CellArea all{0, model.lastColumn(), 1, model.rowCount() - 1};
    std::int64_t cells = 0;
    std::int64_t ofData = 0;
    for (const CellArea& area : areas) {
        cells += area.cells();
        ofData += area.cells() - (area.firstRow == GridModel::kAxisRow ? area.columns() : 0);
    }
    const bool everything = ofData == all.cells() && ofData > 1;
    if (cells <= kMostUnasked && !everything) return true;
    return m_question && m_question(question.arg(QLocale().toString(qlonglong(cells))));
}

void GridClipboard::fill(const std::vector<CellArea>& areas, const std::string& text,
                         const QString& name) {
    const QString question =
        text.empty() ? tr("Empty %1 cells?") : tr("Write one value into %1 cells?");
    if (!mayChange(areas, question)) return;
    std::int64_t cells = 0;
    for (const CellArea& area : areas)
        cells += area.cells();
    GridModel& model = m_cug.gridModel();
    auto command = std::make_unique<EditCommand>(model, name);
    ClipboardProgress progress(tr("Changing cells…"), cells, &m_cug);
    try {
        for (const CellArea& area : areas) {
            const auto goOn = [&progress](std::int64_t more) { return progress.advance(more); };
            if (command->fill(area, text, goOn)) continue;
            Q_EMIT notice(tr("Stopped: no cell was changed"));
            return;
        }
    } catch (const std::bad_alloc&) {
        Q_EMIT refused(tr("There is not enough memory to change so many cells at once."));
        return;
    }
    if (!command->isEmpty()) model.take(std::move(command));
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
    const auto endColumn = std::min<std::int64_t>(column + columns, model.lastColumn() + 1);
    return {column, static_cast<int>(endColumn) - 1, row,
            std::min<GridRow>(row + rows, model.rowCount()) - 1};
}

void GridClipboard::pasteTable(const std::vector<std::vector<std::string>>& table) {
    GridModel& model = m_cug.gridModel();
    std::int64_t widest = 0;
    for (const auto& row : table)
        widest = std::max(widest, static_cast<std::int64_t>(row.size()));
    const CellArea target = pasteTarget(static_cast<GridRow>(table.size()), widest);
    if (!mayChange({target}, tr("Paste into %1 cells?"))) return;
    auto command = std::make_unique<EditCommand>(model, tr("Paste"));
    ClipboardProgress progress(tr("Pasting…"), target.cells(), &m_cug);
    for (GridRow row = target.firstRow; row <= target.lastRow; ++row) {
        const auto& texts = table[static_cast<std::size_t>(row - target.firstRow)];
        int column = target.firstColumn;
        for (const std::string& text : texts) {
            if (column > target.lastColumn) break;
            command->set(column, row, text);
            ++column;
        }
        if (progress.advance(target.columns())) continue;
        Q_EMIT notice(tr("Stopped: no cell was changed"));
        return;
    }
    if (!command->isEmpty()) model.take(std::move(command));
    m_cug.selectArea(target);
    if (target.rows() < static_cast<GridRow>(table.size()) || target.columns() < widest) {
        Q_EMIT notice(
            tr("Part of the clipboard lies past the end of the data and was not pasted."));
    }
}

} // namespace pellam
