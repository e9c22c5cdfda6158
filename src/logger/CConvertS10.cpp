#include "logger/CConvertS10.h"

#include <algorithm>

namespace pellam {

bool CConvertS10::readsFormat(std::int32_t format) const {
    return format == 10 || format == 11;
}

bool CConvertS10::isScheduleLetter(char letter) const {
    return (letter >= 'A' && letter <= 'K') || letter == 'V' || letter == 'X';
}

void CConvertS10::appendChannel(const Channel& channel) {
    const Fields& fields = channel.fields;
    appendName(fields[0], channel.afterName, kCommonMarkers, fields[2]);
    append("(");
    append(unitsOf(fields[1]));
    append(fields[6].starts_with('2') ? "),NL\n" : ")\n");
}

int CConvertS10::GetDummySpan(std::vector<std::string>& list, const std::string& text) {
    auto found = std::find(list.begin(), list.end(), text);
    if (found == list.end()) found = list.insert(list.end(), text);
    return static_cast<int>(found - list.begin()) + 1;
}

} // namespace pellam
