#include "grid/Column.h"

#include "grid/DecimalCell.h"
#include "grid/DecimalText.h"
#include "grid/TimeCell.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace pellam {

Column::~Column() {
    for (Cell* const chunk : m_chunks) {
        if (chunk) m_storage->chunks.giveBack(chunk);
    }
}

Cell* Column::makeChunk(std::size_t chunk) {
    if (chunk >= m_chunks.size()) m_chunks.resize(chunk + 1, nullptr);
    m_chunks[chunk] = m_storage->chunks.take();
    return m_chunks[chunk];
}

SpareChunk Column::spareChunk(bool empty) {
    ChunkPool& pool = m_storage->chunks;
    return {empty ? nullptr : pool.take(), ChunkReturner{&pool}};
}

void Column::exchangeChunk(Row row, SpareChunk& other) {
    const auto chunk = static_cast<std::size_t>(row / kChunkRows);
    if (chunk >= m_chunks.size()) m_chunks.resize(chunk + 1, nullptr);
    Cell* const mine = m_chunks[chunk];
    m_chunks[chunk] = other.release();
    other.reset(mine);
}

std::string_view Column::text(Cell cell, CellBuffer& buffer) const {
    char* const out = buffer.data();
    const auto written = [out](const char* end) {
        return std::string_view(out, static_cast<std::size_t>(end - out));
    };
    switch (cell.kind()) {
    case Cell::Kind::Decimal:
        return written(DecimalCell::write(cell, decimalSeparator(), out));
    case Cell::Kind::TimeSlash:
    case Cell::Kind::TimeDash:
    case Cell::Kind::TimeDashLetter:
        return written(TimeCell::write(cell, out));
    case Cell::Kind::Short: {
        const std::uint64_t bytes = cell.payload() >> 3;
        std::memcpy(out, &bytes, sizeof bytes);
        return {out, static_cast<std::size_t>(cell.payload() & 7)};
    }
    case Cell::Kind::Arena:
        return m_storage->texts.at(cell.arenaOffset(), cell.arenaLength());
    case Cell::Kind::Empty:
        break;
    }
    return {};
}

std::optional<double> Column::number(Cell cell) const {
    if (cell.kind() == Cell::Kind::Decimal) return DecimalCell::value(cell);
    if (cell.kind() != Cell::Kind::Short && cell.kind() != Cell::Kind::Arena) return {};
    CellBuffer buffer;
    return parseDecimal(text(cell, buffer), decimalSeparator());
}

void Column::numbers(Row first, std::span<double> out) const {
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    std::size_t done = 0;
    while (done < out.size()) {
        const Row row = first + static_cast<Row>(done);
        const Row inChunk = row % kChunkRows;
        const std::size_t count =
            std::min(out.size() - done, static_cast<std::size_t>(kChunkRows - inChunk));
        const Cell* const chunk = chunkAt(row);
        for (std::size_t i = 0; i < count; ++i) {
            const Cell cell = chunk ? chunk[inChunk + static_cast<Row>(i)] : Cell();
            out[done + i] = cell.kind() == Cell::Kind::Decimal ? DecimalCell::value(cell)
                                                               : number(cell).value_or(none);
        }
        done += count;
    }
}

Cell Column::pack(std::string_view text) {
    Cell cell;
    if (text.empty()) return cell;
    if (DecimalCell::packPlainly(text, decimalSeparator(), DecimalCell::Zeros::Keep, cell) ||
        TimeCell::pack(text, cell)) {
        return cell;
    }
    return packText(text);
}

Cell Column::packText(std::string_view text) {
    if (text.size() <= 7) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, text.data(), text.size());
        return {Cell::Kind::Short, bytes << 3 | text.size()};
    }
    TextArena& texts = m_storage->texts;
    if (m_lastText.isEmpty() ||
        texts.at(m_lastText.arenaOffset(), m_lastText.arenaLength()) != text) {
        m_lastText =
            Cell::arena(texts.add(text), std::min<std::uint64_t>(text.size(), TextArena::kLong));
    }
    return m_lastText;
}

} // namespace pellam
