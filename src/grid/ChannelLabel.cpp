#include "grid/ChannelLabel.h"

#include "base/UnitWords.h"

#include <charconv>
#include <optional>

namespace pellam {

namespace {

struct Units {
    std::string_view text;
    std::size_t nameEnd; ///< npos: something follows the units
};

// "Wind [m/s]", "Speed, m/s" and "Temp, \xC2\xB0C (S/N: 1024)". What stands there may be anything:
// only what is known as a unit counts.
std::optional<Units> unitsWithoutRoundBrackets(std::string_view label) {
    const std::size_t open = label.rfind('[');
    if (label.ends_with(']') && open != std::string_view::npos && open > 0) {
        const std::string_view inner = label.substr(open + 1, label.size() - open - 2);
        if (isUnitText(inner)) return Units{inner, open};
    }
    const std::string_view head = label.substr(0, label.find(" ("));
    const std::size_t comma = head.rfind(", ");
    if (comma == std::string_view::npos || comma == 0) return std::nullopt;
    const std::string_view units = head.substr(comma + 2);
    if (!isUnitText(units) || isUnitText(label.substr(head.size()))) return std::nullopt;
    return Units{units, head.size() == label.size() ? comma : std::string_view::npos};
}

} // namespace

ChannelLabel::ChannelLabel(std::string_view label)
    : text(label),
      name(label),
      letter(label.empty() ? '\0' : label.front()) {
    if (const auto other = unitsWithoutRoundBrackets(label)) {
        units = other->text;
        name = label.substr(0, other->nameEnd);
        return;
    }
    std::size_t end = label.size(); // without empty brackets there
    std::size_t close = 0;
    int depth = 0;
    bool unmatched = false;
    for (std::size_t i = end; i-- > 0 && units.empty();) {
        if (label[i] == ')' && depth++ == 0) close = i;
        if (label[i] != '(') continue;
        unmatched |= depth != 1;
        if (depth == 1) {
            units = label.substr(i + 1, close - i - 1);
            if (i > 0 && close + 1 == end) name = label.substr(0, end = i);
        }
        if (depth > 0) --depth;
    }
    unitsUnclear = units.empty() && unmatched;
}

ChannelLabel ChannelLabel::numbered(std::string_view channel) {
    const std::size_t brace = channel.rfind('{');
    if (brace == std::string_view::npos || !channel.ends_with('}')) return ChannelLabel(channel);
    int number = -1;
    const char* const end = channel.data() + channel.size() - 1;
    const auto [stop, error] = std::from_chars(channel.data() + brace + 1, end, number);
    if (error != std::errc() || stop != end || number < 0) return ChannelLabel(channel);
    ChannelLabel label(channel.substr(0, brace));
    label.number = number;
    return label;
}

} // namespace pellam
