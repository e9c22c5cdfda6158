#include "grid/ChannelLabel.h"

#include <charconv>

namespace pellam {

ChannelLabel::ChannelLabel(std::string_view label)
    : text(label),
      name(label),
      letter(label.empty() ? '\0' : label.front()) {
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
