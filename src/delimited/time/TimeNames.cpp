#include "delimited/time/TimeNames.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

namespace pellam {

namespace {

using Word = std::pair<std::string_view, TimePart>;

constexpr std::array<Word, 36> kParts = {
    {{"year", TimePart::Year},       {"yyyy", TimePart::Year},
     {"yy", TimePart::Year},         {"yr", TimePart::Year},
     {"jahr", TimePart::Year},       {"ano", TimePart::Year},
     {"annee", TimePart::Year},      {"month", TimePart::Month},
     {"mo", TimePart::Month},        {"mon", TimePart::Month},
     {"monat", TimePart::Month},     {"mes", TimePart::Month},
     {"mois", TimePart::Month},      {"day", TimePart::Day},
     {"dd", TimePart::Day},          {"dy", TimePart::Day},
     {"tag", TimePart::Day},         {"dia", TimePart::Day},
     {"jour", TimePart::Day},        {"doy", TimePart::DayOfYear},
     {"jday", TimePart::DayOfYear},  {"yday", TimePart::DayOfYear},
     {"ddd", TimePart::DayOfYear},   {"hour", TimePart::Hour},
     {"hh", TimePart::Hour},         {"hr", TimePart::Hour},
     {"stunde", TimePart::Hour},     {"minute", TimePart::Minute},
     {"min", TimePart::Minute},      {"mi", TimePart::Minute},
     {"mn", TimePart::Minute},       {"second", TimePart::Second},
     {"sec", TimePart::Second},      {"ss", TimePart::Second},
     {"hhmm", TimePart::HourMinute}, {"hrmn", TimePart::HourMinute}}};

// The words of a heading in lower case; "UsageDate" is two of them.
std::vector<std::string> wordsOf(std::string_view heading) {
    std::vector<std::string> words;
    bool inWord = false;
    char before = '\0';
    for (const char c : heading) {
        const bool capital = c >= 'A' && c <= 'Z';
        const bool letter =
            capital || (c >= 'a' && c <= 'z') || static_cast<unsigned char>(c) >= 0x80;
        const bool hump = capital && before >= 'a' && before <= 'z';
        if (!letter || hump) inWord = false;
        if (letter) {
            if (!inWord) words.emplace_back();
            words.back() += capital ? static_cast<char>(c + 32) : c;
            inWord = true;
        }
        before = c;
    }
    return words;
}

template <std::size_t Size>
bool hasWord(const std::vector<std::string>& words,
             const std::array<std::string_view, Size>& sought) {
    return std::any_of(words.begin(), words.end(), [&](const std::string& word) {
        return std::find(sought.begin(), sought.end(), word) != sought.end();
    });
}

} // namespace

TimePart timePartOf(std::string_view heading) {
    std::vector<std::string> words = wordsOf(heading);
    // In two languages: the words of other letters say the same.
    if (words.size() > 1)
        std::erase_if(words,
                      [](const auto& w) { return static_cast<unsigned char>(w[0]) >= 0x80; });
    if (words.empty() || words.size() > 3) return TimePart::None;
    if (words.size() >= 3 && words[0] == "day" && words[1] == "of" && words[2] == "year")
        return TimePart::DayOfYear;
    if (words.size() >= 2 && words[0] == "julian" && words[1] == "day") return TimePart::DayOfYear;
    const auto* const found = std::find_if(
        kParts.begin(), kParts.end(), [&](const Word& word) { return word.first == words[0]; });
    static constexpr std::array<std::string_view, 9> kZones = {"utc", "lst", "gmt", "ut", "pst",
                                                               "mst", "cst", "est", "cet"};
    if (words.size() > 1 && std::find(kZones.begin(), kZones.end(), words[1]) == kZones.end())
        return TimePart::None;
    return found == kParts.end() ? TimePart::None : found->second;
}

bool namesTime(std::string_view heading) {
    static constexpr std::array<std::string_view, 38> kWords = {
        "time",    "timestamp", "timestamps", "date",  "datetime", "datum", "zeit", "uhrzeit",
        "tid",     "tijd",      "heure",      "fecha", "hora",     "data",  "ora",  "zeitstempel",
        "valid",   "tmstamp",   "ts",         "utc",   "gmt",      "mst",   "lst",  "elapsed",
        "epoch",   "unixtime",  "horodate",   "czas",  "period",   "mtu",   "aika", "datetimeutc",
        "timeutc", "messdatum", "zeitpunkt",  "temps", "seconds",  "millis"};
    const std::vector<std::string> words = wordsOf(heading);
    if (hasWord(words, kWords)) return true;
    const bool axis = !words.empty() && (words[0] == "t" || words[0] == "x");
    if (words.size() == 2 && axis)
        return !elapsedUnitOf(heading).empty() || words[1] == "value" || words[1] == "axis";
    return words.size() == 1 && (axis || words[0] == "second");
}

bool namesCount(std::string_view heading) {
    static constexpr std::array<std::string_view, 13> kWords = {
        "record", "index", "scan",   "no", "nr",      "number",  "id",
        "row",    "count", "sample", "rn", "unnamed", "sequence"};
    return heading == "#" || hasWord(wordsOf(heading), kWords);
}

std::string_view elapsedUnitOf(std::string_view heading) {
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 26> kUnits = {
        {{"s", "s"},
         {"sec", "s"},
         {"secs", "s"},
         {"second", "s"},
         {"seconds", "s"},
         {"ms", "ms"},
         {"msec", "ms"},
         {"millis", "ms"},
         {"millisecond", "ms"},
         {"milliseconds", "ms"},
         {"us", "us"},
         {"usec", "us"},
         {"micros", "us"},
         {"microseconds", "us"},
         {"\xC2\xB5s", "us"},
         {"\xCE\xBCs", "us"},
         {"\xB5s", "us"},
         {"ns", "ns"},
         {"nanos", "ns"},
         {"nanoseconds", "ns"},
         {"min", "min"},
         {"minutes", "min"},
         {"h", "h"},
         {"hours", "h"},
         {"d", "d"},
         {"days", "d"}}};
    const std::vector<std::string> words = wordsOf(heading);
    for (auto word = words.rbegin(); word != words.rend(); ++word) {
        for (const auto& [text, unit] : kUnits) {
            if (*word == text) return unit;
        }
    }
    return {};
}

} // namespace pellam
