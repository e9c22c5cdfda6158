#include "replay/load/ChannelList.h"

#include "logger/DataMapLabels.h"

#include <charconv>

namespace pellam {

namespace {

struct Suffix {
    std::size_t begin = std::string_view::npos;
    int number = -1;
};

// Names may hold braces of their own, so only the last one counts.
Suffix suffixOf(std::string_view channel) {
    const std::size_t brace = channel.rfind('{');
    if (brace == std::string_view::npos || !channel.ends_with('}')) return {};
    const char* const begin = channel.data() + brace + 1;
    const char* const end = channel.data() + channel.size() - 1;
    int number = -1;
    const auto [stop, error] = std::from_chars(begin, end, number);
    if (error != std::errc() || stop != end || number < 0) return {};
    return {brace, number};
}

} // namespace

std::vector<std::string> offeredChannels(std::string_view originatorType,
                                         std::string_view dataMap) {
    std::vector<std::string> offered;
    char previous = 'A';
    int number = 0;
    for (const std::string& label : convertDataMap(originatorType, dataMap)) {
        if (isNotLogged(label)) continue;
        if (label[0] != previous) number = 0;
        previous = label[0];
        offered.push_back(label + '{' + std::to_string(number) + '}');
        ++number;
    }
    return offered;
}

std::string_view withoutChannelNumber(std::string_view channel) {
    return channel.substr(0, suffixOf(channel).begin);
}

int channelNumber(std::string_view channel) {
    return suffixOf(channel).number;
}

int FindColumnFromArray(const std::vector<std::string>& channels, char letter, int number) {
    for (std::size_t i = 0; i < channels.size(); ++i) {
        const std::string& channel = channels[i];
        if (channel.starts_with(letter) && channelNumber(channel) == number)
            return static_cast<int>(i) + 1;
    }
    return -1;
}

} // namespace pellam
