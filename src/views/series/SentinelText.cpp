#include "views/series/SentinelText.h"

namespace pellam {

namespace {

/// Whether `before`, a point and `after` stand in the text one behind the other.
bool containsAroundPoint(std::string_view text, char separator, std::string_view before,
                         std::string_view after) {
    for (std::size_t at = text.find(before); at != std::string_view::npos;
         at = text.find(before, at + 1)) {
        const std::string_view rest = text.substr(at + before.size());
        if (rest.empty() || (rest[0] != '.' && rest[0] != separator)) continue;
        if (rest.substr(1).starts_with(after)) return true;
    }
    return false;
}

} // namespace

bool containsSentinel(std::string_view text, char separator) {
    return containsAroundPoint(text, separator, "99999", "9") ||
           containsAroundPoint(text, separator, "-9", "00000E9");
}

} // namespace pellam
