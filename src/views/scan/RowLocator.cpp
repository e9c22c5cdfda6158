#include "views/scan/RowLocator.h"

#include <algorithm>
#include <charconv>

namespace pellam {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

} // namespace

RowLocator::RowLocator(const GridData& grid, const InternationalSettings& settings,
                       std::string_view wanted, Row from)
    : m_grid(grid),
      m_column(grid, settings),
      m_prefix(trimmed(wanted)),
      m_sought(SoughtTime::read(m_prefix, m_column.form(), settings, grid.fractionUnit())),
      m_left(grid.rowCount()) {
    // As the chart says it.
    if (m_prefix.starts_with("row ")) {
        const std::string_view number = trimmed(std::string_view(m_prefix).substr(4));
        if (std::all_of(number.begin(), number.end(), isDigit)) m_prefix = std::string(number);
    }
    if (m_prefix.empty()) {
        m_state = State::NotUnderstood;
    } else if (std::all_of(m_prefix.begin(), m_prefix.end(), isDigit)) {
        findNumber();
    } else if (m_sought && m_sought->ofAnyDay()) {
        m_row = std::clamp<Row>(from, 0, std::max<Row>(0, grid.rowCount() - 1));
    }
}

void RowLocator::findNumber() {
    Row number = 0;
    const char* const end = m_prefix.data() + m_prefix.size();
    const auto read = std::from_chars(m_prefix.data(), end, number);
    const bool exists = read.ec == std::errc() && number >= 1 && number <= m_grid.rowCount();
    m_state = exists ? State::Found : State::NoSuchRow;
    m_row = exists ? number - 1 : 0;
}

bool RowLocator::matches() {
    const auto moment = m_sought ? m_column.moment(m_row) : std::nullopt;
    if (!moment) {
        CellBuffer buffer;
        return m_grid.text(0, m_row, buffer).starts_with(m_prefix);
    }
    if (!m_target) m_target = m_sought->from(*moment);
    return m_target->reachedBy(*moment);
}

RowLocator::State RowLocator::step(std::int64_t rows) {
    if (m_state != State::Searching) return m_state;
    for (; rows > 0; --rows, --m_left, ++m_row) {
        if (m_left == 0) {
            m_state = m_sought ? State::NoRowAtOrAfter : State::NotUnderstood;
            return m_state;
        }
        if (m_row == m_grid.rowCount()) {
            m_row = 0;
            m_target.reset();
        }
        if (matches()) return m_state = State::Found;
    }
    return m_state;
}

} // namespace pellam
