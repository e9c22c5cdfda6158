#include "replay/file/ScheduleFlags.h"

#include <algorithm>
#include <optional>

namespace pellam {

namespace {

constexpr std::size_t kX = 11;
constexpr std::size_t kV = 15;

std::optional<std::size_t> indexOf(char letter) {
    if (letter >= 'A' && letter <= 'K') return static_cast<std::size_t>(letter - 'A');
    if (letter == 'X') return kX;
    if (letter == 'V') return kV;
    return std::nullopt;
}

// End of the section, exclusive, whose '<' lies before `from`.
std::size_t sectionEnd(std::string_view map, std::size_t from) {
    int open = 1;
    for (std::size_t at = from; (at = map.find_first_of("<>", at)) != std::string_view::npos;) {
        open += map[at++] == '<' ? 1 : -1;
        if (open == 0) return at;
    }
    return map.size();
}

// Adds a schedule's section; false when the map has none.
bool appendSection(const std::string& map, char letter, std::string& output) {
    const std::string opening{'<', letter, ','};
    const std::size_t found = map.find(opening);
    if (found == std::string::npos) return false;
    // This program's rule: the character right after the comma is dropped.
    const std::size_t from = std::min(found + opening.size() + 1, map.size());
    output += opening;
    output += map.substr(from, sectionEnd(map, from) - from);
    return true;
}

} // namespace

void ScheduleFlags::addLine(std::string_view line) {
    for (const std::string_view mark : {",1:", ",0:", ",1;", ",0;"}) {
        const std::size_t found = line.find(mark);
        if (found == std::string_view::npos) continue;
        if (found + 3 >= line.size()) return;
        const char letter = line[found + 3];
        if (const auto index = indexOf(letter)) m_flags[*index] = true;
        if (letter == 'S') m_scheduleS = true;
        return;
    }
}

char ScheduleFlags::letterOf(std::size_t index) {
    if (index == kX) return 'X';
    if (index == kV) return 'V';
    return static_cast<char>('A' + index);
}

bool stripDataMap(std::string& map, const ScheduleFlags& flags) {
    const bool format14 = map.find(",14;") != std::string::npos;
    if (map.find(format14 ? "<X" : "<A") == std::string::npos) return false;
    // The first section, whichever schedule's it is, ends the header.
    std::string output = map.substr(0, map.find('<'));
    for (std::size_t index = 0; index < ScheduleFlags::kCount; ++index) {
        if (!flags.at(index)) continue;
        const char letter = ScheduleFlags::letterOf(index);
        if (appendSection(map, letter, output)) continue;
        if (index > kX) break;
        output += {'<', letter, '>'};
    }
    if (format14 && flags.hasScheduleS()) appendSection(map, 'S', output);
    map = output + ':';
    return true;
}

} // namespace pellam
