#include "delimited/sample/FieldKind.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace pellam {

namespace {

constexpr std::size_t kLongestReading = 64;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

bool sameWord(std::string_view text, std::string_view word) {
    return std::equal(text.begin(), text.end(), word.begin(), word.end(),
                      [](char a, char b) { return lower(a) == b; });
}

std::size_t digitsAt(std::string_view text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && isDigit(text[end]))
        ++end;
    return end - at;
}

// Digits in groups of three behind `mark`, from its first one on; the length of them all.
std::size_t groupsAt(std::string_view text, std::size_t at, char mark) {
    std::size_t length = 0;
    while (at + length < text.size() && text[at + length] == mark &&
           digitsAt(text, at + length + 1) == 3)
        length += 4;
    return length;
}

bool isExponent(std::string_view text) {
    if (text.empty()) return true;
    if (text[0] != 'e' && text[0] != 'E') return false;
    std::size_t at = text.size() > 1 && (text[1] == '+' || text[1] == '-') ? 2 : 1;
    return at < text.size() && digitsAt(text, at) == text.size() - at;
}

// The unit behind a value: "45%", "12.3 C".
bool isShortUnit(std::string_view text) {
    if (text.empty() || text.size() > 5) return false;
    if (text.front() != ' ' && text.front() != '%' && static_cast<unsigned char>(text[0]) < 0x80)
        return false;
    return std::none_of(text.begin(), text.end(), [](char c) { return isDigit(c) || c == ':'; });
}

FieldKind numberKind(std::string_view text) {
    std::size_t at = text[0] == '+' || text[0] == '-' ? 1 : 0;
    const std::size_t whole = digitsAt(text, at);
    at += whole;
    char point = '\0';
    if (at < text.size() && (text[at] == '.' || text[at] == ',')) {
        point = text[at];
        const char other = point == '.' ? ',' : '.';
        const std::size_t groups = whole > 0 && whole <= 3 ? groupsAt(text, at, point) : 0;
        if (groups > 0 && at + groups < text.size() && text[at + groups] == other) {
            at += groups;
            point = other;
        } else if (groups > 4 && at + groups == text.size()) {
            return point == ',' ? FieldKind::Number : FieldKind::Comma;
        }
        const std::size_t digits = digitsAt(text, at + 1);
        if (whole == 0 && digits == 0) return FieldKind::Text;
        at += 1 + digits;
    } else if (whole == 0) {
        return FieldKind::Text;
    }
    const std::string_view rest = text.substr(at);
    if (!isExponent(rest) && !isShortUnit(rest)) return FieldKind::Text;
    return point == ',' ? FieldKind::Comma : FieldKind::Number;
}

// What may stand in a time beside its digits and a month: days of the week, halves of the day,
// zones.
bool isTimeWord(std::string_view word) {
    static constexpr std::array<std::string_view, 21> kWords = {
        "t",    "z",   "am",  "pm",  "a",   "p",   "utc", "gmt", "h",   "uhr", "cet",
        "cest", "mon", "tue", "wed", "thu", "fri", "sat", "sun", "est", "edt"};
    const bool zone = word.size() <= 4 && std::all_of(word.begin(), word.end(),
                                                      [](char c) { return c >= 'A' && c <= 'Z'; });
    const std::string_view start = word.ends_with("day") ? word.substr(0, 3) : word;
    return zone || std::any_of(kWords.begin(), kWords.end(),
                               [&](std::string_view known) { return sameWord(start, known); });
}

bool isMonthName(std::string_view text) {
    static constexpr std::array<std::string_view, 12> kMonths = {
        "jan", "feb", "mar", "apr", "may", "jun", "jul", "aug", "sep", "oct", "nov", "dec"};
    const auto starts = [&](std::string_view month) {
        return text.size() >= 3 && sameWord(text.substr(0, 3), month);
    };
    return std::any_of(kMonths.begin(), kMonths.end(), starts);
}

// The runs of digits and of letters in a text, as far as they tell a time.
struct Shape {
    std::array<std::size_t, 8> digits{}; ///< lengths of the first runs
    std::array<char, 8> before{};        ///< the character before each, '\0' at the start
    std::size_t runs = 0;
    std::size_t words = 0;
    bool month = false;
    bool odd = false; ///< holds what no time holds
};

Shape shapeOf(std::string_view text) {
    Shape shape;
    for (std::size_t at = 0; at < text.size();) {
        if (isDigit(text[at])) {
            const std::size_t length = digitsAt(text, at);
            if (shape.runs < shape.digits.size()) {
                shape.digits[shape.runs] = length;
                shape.before[shape.runs] = at == 0 ? '\0' : text[at - 1];
            }
            ++shape.runs;
            at += length;
        } else if (isLetter(text[at])) {
            std::size_t end = at;
            while (end < text.size() && isLetter(text[end]))
                ++end;
            const std::string_view word = text.substr(at, end - at);
            if (isMonthName(word) && word.size() <= 9) {
                shape.month = true;
            } else if (!isTimeWord(word)) {
                shape.odd = true;
            }
            ++shape.words;
            at = end;
        } else {
            if (std::string_view("/-.:, _+()[]@").find(text[at]) == std::string_view::npos)
                shape.odd = true;
            ++at;
        }
    }
    return shape;
}

bool isClockAt(const Shape& shape, std::size_t run) {
    return run + 1 < std::min(shape.runs, shape.digits.size()) && shape.digits[run] <= 2 &&
           shape.before[run + 1] == ':' && shape.digits[run + 1] <= 2;
}

bool isDateAt(const Shape& shape) {
    if (shape.runs < 3) return false;
    const auto& d = shape.digits;
    const char mark = shape.before[1];
    if (std::string_view("/-. ").find(mark) == std::string_view::npos) return false;
    if (shape.before[2] != mark || d[1] > 2) return false;
    const bool yearFirst = d[0] == 4 && d[2] <= 2;
    const bool yearLast = d[0] <= 2 && (d[2] == 4 || d[2] == 2);
    // Three numbers of two digits with points or blanks may be anything unless a clock follows.
    if (mark == ' ' || mark == '.')
        return yearFirst || (yearLast && (d[2] == 4 || isClockAt(shape, 3) || shape.runs == 3));
    return yearFirst || yearLast;
}

// "20170408_181100", "20160101:0010", "201704081811", "20170408T1811Z".
bool isCompactDate(std::string_view text, const Shape& shape) {
    const std::size_t length = shape.digits[0];
    if (!(text.starts_with("19") || text.starts_with("20"))) return false;
    if (length == 14 && shape.runs == 1) return true;
    return length == 8 && shape.runs == 2 && (shape.digits[1] == 4 || shape.digits[1] == 6) &&
           std::string_view("_T: -").find(shape.before[1]) != std::string_view::npos;
}

// "1987-01", "1/1987", "Jan 1987", "Jan-87"
bool isYearMonth(std::string_view text, const Shape& shape) {
    if (text.size() < 6) return false;
    const auto isYear = [](std::string_view year) {
        return year.starts_with("17") || year.starts_with("18") || year.starts_with("19") ||
               year.starts_with("20");
    };
    const auto& d = shape.digits;
    const bool marked = shape.before[1] == '-' || shape.before[1] == '/';
    if (shape.month && shape.runs == 1 && shape.words == 1)
        return (d[0] == 4 && (isYear(text) || isYear(text.substr(text.size() - 4)))) ||
               (d[0] == 2 && shape.before[0] == '-');
    if (shape.words > 0 || shape.runs != 2 || !marked) return false;
    return (d[0] == 4 && d[1] <= 2 && isYear(text)) ||
           (d[0] <= 2 && d[1] == 4 && isYear(text.substr(text.size() - 4)));
}

bool isTimeShape(std::string_view text) {
    // An interval is told by its start.
    if (const auto slash = text.find('/'); slash != std::string_view::npos && slash > 12)
        text = text.substr(0, slash);
    const Shape shape = shapeOf(text);
    if (shape.odd || shape.runs < 1 || shape.runs > 8 + 6 || shape.words > 4) return false;
    if (isLetter(text[0]) && !shape.month) return false;
    if (const auto comma = text.find(','); comma != std::string_view::npos) {
        // "Apr 3, 2021 @ 10:11:12.500"
        const bool inDate = shape.month && digitsAt(text, comma + 2) == 4 && text[comma + 1] == ' ';
        if (text.find_first_of(inDate ? "," : ".,", comma + 1) < text.size()) return false;
    }
    if (isYearMonth(text, shape)) return true;
    if (shape.month) return shape.runs >= 2 && (isDigit(text[0]) || shape.words <= 3);
    return isClockAt(shape, 0) || isDateAt(shape) || isCompactDate(text, shape);
}

} // namespace

bool isMissingText(std::string_view field) {
    static constexpr std::array<std::string_view, 13> kTexts = {
        "nan", "null", "na",   "n/a",  "none", "nil",    "m",
        "mm",  "inf",  "-inf", "n.a.", "#n/a", "1.#qnan"};
    if (field.empty() || field.size() > 8) return false;
    // "---", "***", "?"
    if (field.find_first_not_of(field[0]) == std::string_view::npos &&
        std::string_view("-*?.").find(field[0]) != std::string_view::npos)
        return true;
    return std::any_of(kTexts.begin(), kTexts.end(),
                       [&](std::string_view text) { return sameWord(field, text); });
}

FieldKind fieldKindOf(std::string_view field) {
    if (field.empty()) return FieldKind::Empty;
    const char first = field[0];
    const bool digit = isDigit(first);
    const bool sign = first == '+' || first == '-' || first == '.' || first == ',';
    if (field.size() <= kLongestReading && (digit || sign)) {
        const FieldKind number = numberKind(field);
        if (number != FieldKind::Text) return number;
    }
    if (field.size() <= kLongestReading && (digit || isLetter(first) || first == '-')) {
        if (isTimeShape(field)) return FieldKind::Time;
    }
    return isMissingText(field) ? FieldKind::Missing : FieldKind::Text;
}

} // namespace pellam
