#pragma once

#include "grid/GridData.h"
#include "grid/TimeCell.h"
#include "times/TimeReader.h"

#include <cstdint>
#include <optional>
#include <string>

namespace pellam {

/// Reads the times of a grid's rows: in the grid's form, or, where it has none, in the one that
/// some of its rows are found to be written in. Quick when the rows of one day follow each other.
class TimeColumn {
  public:
    /// `grid` must outlive this.
    TimeColumn(const GridData& grid, const InternationalSettings& settings);

    /// The moment of a cell of the time column; nothing when it is empty or its text can't be read.
    std::optional<TimeMoment> moment(Cell cell) {
        return cell.isTime() ? momentOfFields(cell) : momentOfText(cell);
    }

    /// The same of a row.
    std::optional<TimeMoment> moment(Row row) { return moment(m_grid.column(0).cell(row)); }

    [[nodiscard]] const TimeForm& form() const { return m_reader.form(); }

  private:
    // Date fields of a packed time cell, above 24 bits of fraction and 17 of time of day.
    static std::uint64_t packedDay(Cell cell) { return cell.payload() >> 41; }

    std::optional<TimeMoment> momentOfFields(Cell cell) {
        const TimeCell::Fields fields = TimeCell::fields(cell);
        const bool inDay = fields.hour < 24 && fields.minute < 60 && fields.second < 60;
        if (!inDay || packedDay(cell) != m_packedDay) return enterDay(cell, fields);
        TimeMoment moment;
        moment.seconds = m_dayStart + secondOfDay(fields);
        moment.nanoseconds = nanoseconds(fields);
        return moment;
    }

    static std::int64_t secondOfDay(const TimeCell::Fields& fields) {
        return std::int64_t{3600} * fields.hour + std::int64_t{60} * fields.minute + fields.second;
    }

    [[nodiscard]] std::uint32_t nanoseconds(const TimeCell::Fields& fields) const {
        const bool count = m_grid.fractionUnit() == FractionUnit::Microseconds;
        return 1000 * (count ? fields.fraction : fields.microseconds());
    }

    std::optional<TimeMoment> enterDay(Cell cell, const TimeCell::Fields& fields);
    [[nodiscard]] std::optional<TimeMoment> momentOfText(Cell cell) const;

    const GridData& m_grid;
    TimeReader m_reader;
    std::uint64_t m_packedDay = 0; ///< date fields of the packed cell before
    std::int64_t m_dayStart = 0;   ///< and its midnight
};

} // namespace pellam
