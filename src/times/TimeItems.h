#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// A piece of the pattern that names a calendar form or a time of day.
struct TimeItem {
    enum class Kind : std::uint8_t {
        Year,
        Month,
        Day,
        DayOfYear,
        Weekday,
        Clock,   ///< hour, minute, second and AM or PM, as far as they are there
        DateGap, ///< blanks and punctuation between two fields of the date
        Gap,     ///< and beside the clock
        Exact,   ///< one byte of any other text
    };

    Kind kind;
    std::uint8_t length = 0; ///< letters of a field; of a clock: 1 hours alone, 2 with minutes, 3
    bool joined = false;     ///< a field beside another one without a gap: it has `length` digits
    char mark = '\0';        ///< of a gap or between hours and minutes, '\0' for none; the byte
};

/// A pattern taken apart.
struct TimeItems {
    std::vector<TimeItem> items;
    std::size_t dateEnd = 0; ///< one past the last item of the date; 0 for a time of day
    bool clock = false;      ///< whether a time of day is named
};

/// Takes a pattern apart; nothing for a text that is none: see TimeForm.
[[nodiscard]] std::optional<TimeItems> timeItems(std::string_view pattern);

/// The fields of a pattern's date in their order: "dMy", "Mdy", "yMd", "yD", "My".
[[nodiscard]] std::string dateOrder(std::string_view pattern);

} // namespace pellam
