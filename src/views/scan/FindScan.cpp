#include "views/scan/FindScan.h"

#include "base/Utf8.h"
#include "views/scan/TextFold.h"

#include <algorithm>

namespace pellam {

namespace {

bool isAscii(std::string_view text) {
    return std::none_of(text.begin(), text.end(),
                        [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

} // namespace

FindScan::FindScan(const GridData& grid, FindQuery query, Place from)
    : m_grid(grid),
      m_query(std::move(query)),
      m_place(from) {
    if (m_query.caseSensitive)
        m_needle = m_query.text;
    else
        appendFolded(m_query.text, m_needle);

    const bool all = m_query.column == FindQuery::kAllColumns;
    m_firstColumn = all ? 0 : m_query.column;
    m_lastColumn = all ? grid.columnCount() - 1 : m_query.column;
    m_total = m_left = grid.rowCount() * (m_lastColumn - m_firstColumn + 1);
    if (m_total <= 0 || m_needle.empty()) {
        m_state = State::NotFound;
        return;
    }
    // Outside the columns searched or below the data, the cell just before in reading order counts.
    if (m_place.row >= grid.rowCount()) m_place = {m_lastColumn, grid.rowCount() - 1};
    if (m_place.row < 0) m_place = {m_query.forward ? m_firstColumn - 1 : m_firstColumn, 0};
    if (m_place.column > m_lastColumn) m_place.column = m_lastColumn + (m_query.forward ? 0 : 1);
    if (m_place.column < m_firstColumn) m_place.column = m_firstColumn - (m_query.forward ? 1 : 0);
}

void FindScan::advance() {
    if (m_query.forward) {
        if (++m_place.column <= m_lastColumn) return;
        m_place.column = m_firstColumn;
        if (++m_place.row < m_grid.rowCount()) return;
        m_place.row = 0;
    } else {
        if (--m_place.column >= m_firstColumn) return;
        m_place.column = m_lastColumn;
        if (--m_place.row >= 0) return;
        m_place.row = m_grid.rowCount() - 1;
    }
    m_wrapped = true;
}

FindScan::State FindScan::step(std::int64_t cells) {
    CellBuffer buffer;
    for (; cells > 0 && m_state == State::Searching; --cells) {
        if (m_left-- == 0) {
            m_state = State::NotFound;
            break;
        }
        advance();
        const Column& column = m_grid.column(m_place.column);
        const Cell cell = column.cell(m_place.row);
        if (!cell.isEmpty() && matches(column.text(cell, buffer))) m_state = State::Found;
    }
    return m_state;
}

double FindScan::progress() const {
    return m_total > 0 ? 1.0 - static_cast<double>(std::max<std::int64_t>(m_left, 0)) /
                                   static_cast<double>(m_total)
                       : 1.0;
}

bool FindScan::matches(std::string_view stored) {
    if (m_query.wholeCell && isAscii(stored) && stored.size() != m_needle.size()) return false;
    m_folded.clear();
    if (m_query.caseSensitive) {
        if (isAscii(stored))
            m_folded.assign(stored);
        else
            m_folded = toUtf8(stored);
    } else if (isAscii(stored)) {
        appendFolded(stored, m_folded);
    } else {
        appendFolded(toUtf8(stored), m_folded);
    }
    return m_query.wholeCell ? m_folded == m_needle : m_folded.find(m_needle) != std::string::npos;
}

} // namespace pellam
