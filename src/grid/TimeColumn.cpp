#include "grid/TimeColumn.h"

#include "times/TimeFields.h"
#include "times/TimeFinder.h"

#include <algorithm>
#include <vector>

namespace pellam {

namespace {

constexpr Row kSamples = 500;

TimeForm formOf(const GridData& grid, const InternationalSettings& settings) {
    if (grid.timeForm() || !grid.hasTimes()) return grid.timeForm();
    const Row step = std::max<Row>(1, grid.rowCount() / kSamples);
    std::vector<std::string> texts;
    CellBuffer buffer;
    for (Row row = 0; row < grid.rowCount(); row += step)
        texts.emplace_back(grid.text(0, row, buffer));
    const std::vector<std::string_view> samples(texts.begin(), texts.end());
    const TimeFinding finding = findTimeForm(samples, settings);
    // Later rows may yet have times that are the same in every form.
    return finding.form ? finding.form : *TimeForm::parse("yyyy/MM/dd HH:mm:ss");
}

} // namespace

TimeColumn::TimeColumn(const GridData& grid, const InternationalSettings& settings)
    : m_grid(grid),
      m_reader(formOf(grid, settings), settings, grid.fractionUnit()) {}

std::optional<TimeMoment> TimeColumn::momentOfText(Cell cell) const {
    if (cell.isEmpty()) return {};
    CellBuffer buffer;
    return m_reader.read(m_grid.column(0).text(cell, buffer));
}

std::optional<TimeMoment> TimeColumn::enterDay(Cell cell, const TimeCell::Fields& fields) {
    TimeFields plain;
    plain.year = fields.year;
    plain.month = fields.month;
    plain.day = fields.day;
    plain.hour = fields.hour;
    plain.minute = fields.minute;
    plain.second = fields.second;
    plain.nanoseconds = nanoseconds(fields);
    const auto moment = plain.moment();
    if (!moment) return {};
    m_packedDay = packedDay(cell);
    m_dayStart = moment->seconds - secondOfDay(fields);
    return moment;
}

} // namespace pellam
