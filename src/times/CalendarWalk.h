#pragma once

#include "times/FractionUnit.h"
#include "times/TimeCursor.h"
#include "times/TimeFields.h"
#include "times/TimeItems.h"

#include <optional>
#include <string>
#include <string_view>

namespace pellam {

/// What else the meaning of a text depends on.
struct TimeWords {
    std::string am;
    std::string pm;
    FractionUnit fraction = FractionUnit::DecimalPlaces;
};

/// Reads one text along the items of a pattern.
class CalendarWalk {
  public:
    CalendarWalk(std::string_view text, const TimeWords& words) : m_cursor(text), m_words(words) {}

    /// The moment; nothing when the text is not one of the pattern. Once only.
    [[nodiscard]] std::optional<TimeMoment> read(const TimeItems& pattern);

  private:
    bool takeEnd(const TimeItems& pattern);
    bool take(const TimeItem& item, bool first, bool last);
    bool takeYear(const TimeItem& item, bool first);
    bool takeNumber(const TimeItem& item, int most, int& value);
    bool takeMonth(const TimeItem& item);
    bool takeGap(std::string_view marks, char mark);
    bool takeClock(const TimeItem& clock, bool last);
    bool takeParted(const TimeItem& clock);
    bool takeCompact(const TimeItem& clock, int digits);
    bool takeClockMark(char mark);
    bool takeColonBeforeFraction();
    void takeFraction();
    bool takeHalf();
    bool takeHalfWord(std::string_view own, std::string_view plain, std::string_view dotted);
    bool takeOffset(bool signs);

    TimeCursor m_cursor;
    const TimeWords& m_words;
    TimeFields m_fields;
};

} // namespace pellam
