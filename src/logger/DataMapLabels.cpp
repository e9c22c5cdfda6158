#include "logger/DataMapLabels.h"

#include "logger/CConvertS10.h"
#include "logger/CConvertS14.h"

namespace pellam {

namespace {

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

// The lines but those of a schedule's second section.
std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines;
    std::string letters;
    bool repeated = false;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (letters.empty() || line[0] != letters.back()) {
            repeated = letters.find(line[0]) != std::string::npos;
            letters += line[0];
        }
        if (!repeated) lines.emplace_back(line);
    }
    return lines;
}

} // namespace

std::vector<std::string> convertDataMap(std::string_view originatorType, std::string_view map) {
    if (contains(originatorType, "ql810") || contains(originatorType, "TN4-6Y-QE") ||
        contains(map, ",14;")) {
        CConvertS14 converter;
        converter.Convert(map, 3, '\0');
        return linesOf(converter.Program());
    }
    if (contains(originatorType, "ql5xx") || contains(map, ",10:") || contains(map, ",11:")) {
        CConvertS10 converter;
        converter.Convert(map);
        return linesOf(converter.Program());
    }
    return {};
}

bool isNotLogged(std::string_view label) {
    return contains(label, ",NL");
}

} // namespace pellam
