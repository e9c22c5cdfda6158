#pragma once

#include "times/CalendarWalk.h"

#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// A number, a word or a clock of a text, and the marks before it.
struct TimePiece {
    enum class Kind { Number, Word, Clock };

    Kind kind;
    std::string gap;
    std::string_view text;
    std::string_view letters; ///< of its field in a pattern, once known; a clock's are
};

/// The pieces of a text that may name a time; none for a text that has other characters in it. An
/// offset from UTC is passed over.
[[nodiscard]] std::vector<TimePiece> timePieces(std::string_view text, const TimeWords& words);

} // namespace pellam
