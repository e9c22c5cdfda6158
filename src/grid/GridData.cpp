#include "grid/GridData.h"

#include <algorithm>

namespace pellam {

GridData::GridData(char decimalSeparator)
    : m_storage(std::make_unique<CellStorage>(decimalSeparator)) {
    setColumnCount(kInitialColumns);
}

GridData::~GridData() = default;

void GridData::reset() {
    m_columns.clear();
    m_storage->texts.clear();
    m_storage->missing.clear();
    m_storage->missingAsNumbers = false;
    m_damagedRows.clear();
    m_rowCount = 0;
    m_channelCount = 0;
    m_changed = false;
    m_timeForm = {};
    m_hasTimes = true;
    m_fractionUnit = FractionUnit::DecimalPlaces;
    setColumnCount(kInitialColumns);
}

bool GridData::hasMissingNumbers() const {
    return std::any_of(m_storage->missing.begin(), m_storage->missing.end(),
                       [](const MissingText& missing) { return missing.value.has_value(); });
}

void GridData::setColumnCount(int columns) {
    const auto wanted = static_cast<std::size_t>(std::max(columns, kMinimumColumns));
    while (m_columns.size() > wanted)
        m_columns.pop_back();
    m_columns.reserve(wanted);
    while (m_columns.size() < wanted)
        m_columns.push_back(std::make_unique<Column>(*m_storage));
}

const Column& GridData::column(int index) const {
    return *m_columns[static_cast<std::size_t>(index)];
}

Column& GridData::column(int index) {
    return *m_columns[static_cast<std::size_t>(index)];
}

std::string_view GridData::text(int column, Row row, CellBuffer& buffer) const {
    return this->column(column).text(row, buffer);
}

void GridData::setText(int column, Row row, std::string_view text, CellColour colour) {
    Column& target = this->column(column);
    if (text.empty() && !target.chunkAt(row)) return;
    target.setCell(row, target.pack(text).withColour(colour));
}

CellColour GridData::colour(int column, Row row) const {
    return this->column(column).cell(row).colour();
}

bool GridData::moveColumn(int from, int to) {
    const int last = m_channelCount > 0 ? m_channelCount : columnCount() - 1;
    if (from < 1 || to < 1 || from > last || to > last) return false;
    const auto at = [this](int index) { return m_columns.begin() + index; };
    if (from < to) {
        std::rotate(at(from), at(from + 1), at(to + 1));
    } else {
        std::rotate(at(to), at(from), at(from + 1));
    }
    return true;
}

void GridData::addDamagedRow(Row row) {
    if (m_damagedRows.empty() || m_damagedRows.back() < row) m_damagedRows.push_back(row);
}

} // namespace pellam
