#pragma once

#include "times/CalendarWalk.h"
#include "times/TimeForm.h"
#include "times/TimeUnit.h"

#include <optional>
#include <string_view>

namespace pellam {

struct InternationalSettings;

/// Reads the texts of one time column. Made once a column; reading allocates nothing and changes
/// nothing, so that several threads may share a reader.
class TimeReader {
  public:
    /// A reader of no form reads nothing. `settings` give the words for AM and PM beside these;
    /// `unit` says how fractions of calendar times and times of day count.
    explicit TimeReader(const TimeForm& form, const InternationalSettings& settings,
                        FractionUnit unit = FractionUnit::DecimalPlaces);

    /// The moment of a text; blanks around it are passed over. Nothing for an empty text, one that
    /// is written in another way or has trailing characters, and for dates and times that do not
    /// exist (24:00:00 is the end of the day). Readers of calendar forms also read texts that begin
    /// with a year of four digits, whatever their form's order. Digits past the nanosecond are cut.
    [[nodiscard]] std::optional<TimeMoment> read(std::string_view text) const;

    /// The same by its own form alone: texts in another order are not read.
    [[nodiscard]] std::optional<TimeMoment> readOwn(std::string_view text) const;

    [[nodiscard]] const TimeForm& form() const { return m_form; }

  private:
    TimeForm m_form;
    TimeWords m_words;
    TimeItems m_items;              ///< of calendar forms and times of day
    std::optional<TimeUnit> m_unit; ///< of counts
};

} // namespace pellam
