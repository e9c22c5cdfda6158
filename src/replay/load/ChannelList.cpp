#include "replay/load/ChannelList.h"

#include "grid/ChannelLabel.h"
#include "logger/DataMapLabels.h"

namespace pellam {

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

int FindColumnFromArray(const std::vector<std::string>& channels, char letter, int number) {
    for (std::size_t i = 0; i < channels.size(); ++i) {
        const auto label = ChannelLabel::numbered(channels[i]);
        if (label.letter == letter && label.number == number) return static_cast<int>(i) + 1;
    }
    return -1;
}

} // namespace pellam
