#pragma once

#include "times/TimeForm.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pellam {

class TimeRows;
struct InternationalSettings;

/// Where the times of a table's rows stand.
struct TimeColumns {
    /// Indices of the columns, in the order in which their texts are joined by a blank; none where
    /// the rows have no time.
    std::vector<std::size_t> columns;
    TimeForm form; ///< of the joined texts
    /// The texts are no time for a person: year, month and so on in columns of their own, a count
    /// since 1970, an interval.
    bool parts = false;
    /// The column whose text is hours and minutes as one number, to be filled to four digits: its
    /// place in `columns`; -1 when there is none.
    int padded = -1;
    bool guessed = false; ///< day and month might also be the other way round
    TimeForm other;       ///< the form that they would have then
    bool unread = false; ///< the form that was given, none of elapsed time, reads none of the texts
};

/// Finds the time of a table's rows.
[[nodiscard]] TimeColumns findTimeColumns(const TimeRows& rows,
                                          const InternationalSettings& settings);

/// The time that stands in given columns, of a given form (a name of TimeForm, or empty: found by
/// the values).
[[nodiscard]] TimeColumns timeOfColumns(const TimeRows& rows, const InternationalSettings& settings,
                                        const std::vector<std::size_t>& columns,
                                        const std::string& form);

/// The start of a text that names an interval, such as "2020-06-01T12:00/2020-06-01T13:00"; any
/// other text as it stands.
[[nodiscard]] std::string_view intervalStart(std::string_view text);

/// The texts of a row's time columns as one text, of intervals their starts.
[[nodiscard]] std::string joinedTime(const std::vector<std::string_view>& texts, int padded);

} // namespace pellam
