#pragma once

#include "times/FractionUnit.h"
#include "times/TimeForm.h"
#include "times/TimeMoment.h"

#include <optional>
#include <string_view>

namespace pellam {

struct InternationalSettings;

/// A moment as a person types it to go there, perhaps in part: "2008/02/25 12", "25/02/2008 12:03",
/// "Feb 2008", "12:30". Parts that are missing count as the least there are.
class SoughtTime {
  public:
    /// Reads a text for a column of form `form`, which gives the order of day and month; a year of
    /// four digits may always come first. For columns of elapsed time: h:mm:ss, or a number in the
    /// column's unit with decimals or with its own unit ("10.5", "250 ms", "1 d 2:03:04"). Nothing
    /// for any other text, and for a whole number, which is a row's. `unit` is that of the column's
    /// fractions.
    [[nodiscard]] static std::optional<SoughtTime>
    read(std::string_view text, const TimeForm& form, const InternationalSettings& settings,
         FractionUnit unit = FractionUnit::DecimalPlaces);

    /// The same where the search starts at a row of this moment: a time of day alone is that of the
    /// row's day, or of the day after where the row is later.
    [[nodiscard]] SoughtTime from(const TimeMoment& row) const;

    /// Whether it is a time of day alone, of any day.
    [[nodiscard]] bool ofAnyDay() const { return m_ofAnyDay; }

    /// The least moment that it names.
    [[nodiscard]] const TimeMoment& moment() const { return m_moment; }

    /// Whether a row of this moment is at or after it. Without an offset from UTC of its own it is
    /// meant on the clock that the row's text shows.
    [[nodiscard]] bool reachedBy(const TimeMoment& row) const;

  private:
    TimeMoment m_moment; ///< since midnight for a time of day alone
    bool m_ofAnyDay = false;
};

} // namespace pellam
