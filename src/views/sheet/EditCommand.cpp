#include "views/sheet/EditCommand.h"

#include "base/Utf8.h"
#include "views/sheet/AxisNumber.h"
#include "views/sheet/GridModel.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

namespace pellam {

namespace {

std::optional<int> typedAxis(std::string_view text) {
    while (text.starts_with(' '))
        text.remove_prefix(1);
    while (text.ends_with(' '))
        text.remove_suffix(1);
    if (text.empty()) return std::nullopt;
    long long number = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec == std::errc::invalid_argument || read.ptr != end) return std::nullopt;
    return axisFromTyped(read.ec == std::errc() ? number : 0);
}

constexpr Row kChunk = Column::kChunkRows;

} // namespace

Row EditCommand::Block::end() const {
    return first + (whole ? kChunk : static_cast<Row>(cells.size()));
}

Cell EditCommand::Block::at(Row row) const {
    const auto place = static_cast<std::size_t>(row - first);
    if (!whole) return cells[place];
    return chunk ? chunk[place] : Cell();
}

EditCommand::EditCommand(GridModel& model, const QString& text) : GridStep(text), m_model(model) {}

void EditCommand::addArea(const CellArea& area) {
    if (m_area.isEmpty()) {
        m_area = area;
        return;
    }
    m_area = {std::min(m_area.firstColumn, area.firstColumn),
              std::max(m_area.lastColumn, area.lastColumn),
              std::min(m_area.firstRow, area.firstRow), std::max(m_area.lastRow, area.lastRow)};
}

void EditCommand::setAxis(int column, std::string_view utf8) {
    const std::optional<int> axis = typedAxis(utf8);
    if (column == 0 || !axis || *axis == m_model.grid().column(column).axis()) return;
    m_axes.push_back({column, *axis});
    ++m_changes;
    addArea({column, column, GridModel::kAxisRow, GridModel::kAxisRow});
}

void EditCommand::addCell(int column, Row row, Cell cell) {
    // Tables come row by row.
    const auto open = m_open.find(column);
    if (open != m_open.end() && m_blocks[open->second].end() == row) {
        m_blocks[open->second].cells.push_back(cell);
        return;
    }
    m_open[column] = m_blocks.size();
    m_blocks.push_back({column, row, {cell}, {}, false});
}

void EditCommand::set(int column, GridRow row, std::string_view utf8) {
    if (column > m_model.lastColumn()) return;
    if (row == GridModel::kAxisRow) return setAxis(column, utf8);
    Column& target = m_model.grid().column(column);
    const Cell before = target.cell(row - 1);
    CellBuffer buffer;
    const bool same = toUtf8(target.text(before, buffer)) == utf8;
    // Also where nothing changes, so that a table pasted stays in one piece.
    addCell(column, row - 1, same ? before : target.pack(utf8).withColour(before.colour()));
    if (same) return;
    ++m_changes;
    addArea({column, column, row, row});
}

bool EditCommand::fill(const CellArea& area, std::string_view utf8,
                       const std::function<bool(std::int64_t)>& goOn) {
    const int lastColumn = std::min(area.lastColumn, m_model.lastColumn());
    for (int column = area.firstColumn; column <= lastColumn; ++column) {
        if (area.firstRow == GridModel::kAxisRow) setAxis(column, utf8);
        const Cell cell = m_model.grid().column(column).pack(utf8);
        for (Row row = std::max<Row>(area.firstRow - 1, 0); row < area.lastRow;) {
            const Row end = std::min(area.lastRow, (row / kChunk + 1) * kChunk);
            fillPart(column, row, end, cell);
            if (!goOn(end - row)) return false;
            row = end;
        }
    }
    return true;
}

void EditCommand::fillPart(int column, Row first, Row end, Cell cell) {
    Column& target = m_model.grid().column(column);
    const Cell* const chunk = target.chunkAt(first);
    if (chunk == nullptr && cell.isEmpty()) return;
    std::int64_t changes = end - first;
    bool plain = cell.isEmpty(); // the new cells are empty and black
    for (Row row = first; chunk && row < end; ++row) {
        const Cell before = chunk[row % kChunk];
        const Cell after = cell.withColour(before.colour());
        if (after == before) --changes;
        if (after != Cell()) plain = false;
    }
    if (changes == 0) return;
    Block block{column, first, {}, target.spareChunk(true), end - first == kChunk};
    if (block.whole && !plain) block.chunk = target.spareChunk();
    if (!block.whole) block.cells.resize(static_cast<std::size_t>(end - first));
    Cell* const out = block.whole ? block.chunk.get() : block.cells.data();
    for (Row row = first; out && row < end; ++row) {
        const CellColour colour = chunk ? chunk[row % kChunk].colour() : CellColour::Black;
        out[row - first] = cell.withColour(colour);
    }
    m_blocks.push_back(std::move(block));
    m_changes += changes;
    addArea({column, column, first + 1, end});
}

void EditCommand::exchange(Block& block) {
    Column& column = m_model.grid().column(block.column);
    if (block.whole) return column.exchangeChunk(block.first, block.chunk);
    Row row = block.first;
    for (Cell& cell : block.cells) {
        const Cell before = column.cell(row);
        if (before != cell) column.setCell(row, cell);
        cell = before;
        ++row;
    }
}

void EditCommand::exchangeAll() {
    for (Block& block : m_blocks)
        exchange(block);
    for (Axis& entry : m_axes) {
        Column& column = m_model.grid().column(entry.column);
        const int before = column.axis();
        column.setAxis(entry.axis);
        entry.axis = before;
    }
    m_model.cellsChanged(m_area);
}

void EditCommand::redo() {
    if (!m_done) {
        m_open.clear();
        std::sort(m_blocks.begin(), m_blocks.end(), [](const Block& a, const Block& b) {
            return a.column != b.column ? a.column < b.column : a.first < b.first;
        });
    }
    exchangeAll();
    if (std::exchange(m_done, true)) Q_EMIT m_model.stepRepeated(m_area);
}

void EditCommand::undo() {
    exchangeAll();
    Q_EMIT m_model.stepRepeated(m_area);
}

void EditCommand::lookBack(int& column, Row row, std::optional<Cell>& before) const {
    if (column < m_area.firstColumn || column > m_area.lastColumn || row + 1 > m_area.lastRow)
        return;
    const auto behind =
        std::upper_bound(m_blocks.begin(), m_blocks.end(), row, [column](Row at, const Block& b) {
            return column != b.column ? column < b.column : at < b.first;
        });
    if (behind == m_blocks.begin()) return;
    const Block& block = *std::prev(behind);
    if (block.column == column && row >= block.first && row < block.end()) before = block.at(row);
}

void EditCommand::addWritten(std::set<int>& columns) const {
    for (const Block& block : m_blocks)
        columns.insert(block.column);
}

} // namespace pellam
