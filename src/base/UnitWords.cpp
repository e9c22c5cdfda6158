#include "base/UnitWords.h"

#include <algorithm>
#include <array>
#include <string>

namespace pellam {

namespace {

// Names of units in lower case; their powers, quotients and products are told apart from them.
constexpr std::array<std::string_view, 117> kUnits = {
    "a",     "ah",     "amp",        "amps",   "ampere",  "atm",    "bar",     "bit",     "bool",
    "c",     "cd",     "celsius",    "cm",     "cfm",     "count",  "counts",  "day",     "days",
    "db",    "dba",    "dbm",        "deg",    "degc",    "degf",   "degree",  "degrees", "degt",
    "dec",   "f",      "fahrenheit", "feet",   "ft",      "g",      "gal",     "gpm",     "h",
    "hour",  "hours",  "hpa",        "hr",     "hrs",     "hz",     "in",      "inch",    "inches",
    "inhg",  "j",      "k",          "kelvin", "kg",      "khz",    "km",      "km/h",    "kmh",
    "knots", "kn",     "kpa",        "kph",    "kts",     "kva",    "kvar",    "kw",      "kwh",
    "l",     "lb",     "lbs",        "lm",     "lpm",     "lux",    "lx",      "m",       "ma",
    "mb",    "mbar",   "meters",     "metres", "mg",      "mhz",    "mi",      "mile",    "miles",
    "min",   "minute", "minutes",    "ml",     "mm",      "mol",    "mmol",    "mph",     "mpa",
    "ms",    "mv",     "mw",         "mwh",    "n",       "newton", "newtons", "nm",      "ns",
    "ntu",   "ohm",    "ohms",       "pa",     "percent", "pct",    "ppb",     "ppm",     "psi",
    "psu",   "rn",     "rpm",        "s",      "sec",     "second", "seconds", "ts",      "v"};

constexpr std::array<std::string_view, 32> kMoreUnits = {
    "va",   "var", "volt", "volts", "w",      "watt",    "watts",   "wh",
    "us",   "um",  "umol", "uw",    "ua",     "uv",      "w/m2",    "year",
    "yr",   "mo",  "dy",   "hhmm",  "nmi",    "number",  "no unit", "unitless",
    "none", "n/a", "vdc",  "vac",   "analog", "counter", "yyyy",    "dd"};

constexpr std::array<std::string_view, 24> kStatistics = {
    "avg",    "average", "mean",  "min", "minimum", "max", "maximum", "smp",
    "sample", "tot",     "total", "sum", "std",     "sd",  "stdev",   "stddev",
    "wvc",    "wvc(1)",  "cov",   "med", "median",  "tmx", "tmn",     "inst"};

std::string lowered(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return lower;
}

bool isUnitWord(std::string_view word) {
    return std::find(kUnits.begin(), kUnits.end(), word) != kUnits.end() ||
           std::find(kMoreUnits.begin(), kMoreUnits.end(), word) != kMoreUnits.end();
}

bool isBracketed(std::string_view text) {
    return text.size() >= 2 && ((text.front() == '(' && text.back() == ')') ||
                                (text.front() == '[' && text.back() == ']'));
}

// "dd.MM.yyyy HH:mm": how a time is written.
bool isTimePattern(std::string_view text) {
    return text.size() >= 4 &&
           text.find_first_not_of("ydmhsMYDHSt/-.: ") == std::string_view::npos &&
           (text.find("mm") != std::string_view::npos || text.find("MM") != std::string_view::npos);
}

// A word without the power behind it: "m2", "m^2", "m**3", "s-1", "m" and the superscripts.
std::string_view withoutPower(std::string_view word) {
    const std::size_t end = word.find_last_not_of("0123456789^*-\xC2\xB2\xB3\xB9");
    return end == std::string_view::npos ? word : word.substr(0, end + 1);
}

bool isCompound(std::string_view text) {
    std::size_t words = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("/ .*\xC2\xB7"), text.size());
        const std::string_view word = withoutPower(text.substr(0, end));
        if (!word.empty()) {
            if (!isUnitWord(word)) return false;
            ++words;
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return words > 0;
}

} // namespace

bool isUnitText(std::string_view field) {
    if (field.empty() || field.size() > 24) return false;
    if (isBracketed(field) || isTimePattern(field)) return true;
    if (field == "%" || field == "-" || field == "°" || field.starts_with("\xC2\xB0") ||
        field.starts_with("\xB0"))
        return true;
    std::string lower = lowered(field);
    if (lower.starts_with("% ") || lower.starts_with("deg ") || lower.starts_with("degrees "))
        return true;
    for (const std::string_view micro : {"\xC2\xB5", "\xCE\xBC", "\xB5"}) {
        if (lower.starts_with(micro)) lower = std::string(1, 'u').append(lower, micro.size());
    }
    return isUnitWord(lower) || isCompound(lower);
}

bool isStatisticText(std::string_view field) {
    // "15s", "20d": how wide a column is and what it holds.
    if (field.size() >= 2 && field.size() <= 4 &&
        field.find_first_not_of("0123456789") == field.size() - 1 &&
        std::string_view("sdn").find(field.back()) != std::string_view::npos)
        return true;
    const std::string lower = lowered(field);
    return std::find(kStatistics.begin(), kStatistics.end(), lower) != kStatistics.end();
}

} // namespace pellam
