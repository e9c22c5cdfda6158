#include "replay/load/ValueText.h"

#include <algorithm>

namespace pellam {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isWord(std::string_view text, std::string_view word) {
    const auto same = [](char a, char b) { return (a | 0x20) == b; };
    return std::equal(text.begin(), text.end(), word.begin(), word.end(), same);
}

// Sign, digits and at most one separator among them: the texts whose zeros may be cut.
bool isPlainDecimal(std::string_view text, char separator) {
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
    const auto digits = std::count_if(text.begin(), text.end(), isDigit);
    const auto points = std::count(text.begin(), text.end(), separator);
    return digits > 0 && points <= 1 && digits + points == static_cast<std::ptrdiff_t>(text.size());
}

// A plain decimal and a power of ten; its zeros say how exact it is and stay.
bool hasExponent(std::string_view text, char separator) {
    const std::size_t letter = text.find_first_of("eE");
    if (letter == std::string_view::npos || !isPlainDecimal(text.substr(0, letter), separator))
        return false;
    std::string_view power = text.substr(letter + 1);
    if (power.starts_with('-') || power.starts_with('+')) power.remove_prefix(1);
    return !power.empty() && std::all_of(power.begin(), power.end(), isDigit);
}

void trimZeros(std::string& text, char separator) {
    if (text.find(separator) == std::string::npos) return;
    while (text.back() == '0')
        text.pop_back();
    if (text.back() == separator) text.pop_back();
    if (text.empty() || text == "-" || text == "+") text += '0';
}

// Removes the marks that group thousands: one to three digits, then groups of exactly three up to
// the decimal separator. Leaves any other text alone.
void removeGrouping(std::string& text, char group, char separator) {
    const std::size_t start = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
    const std::size_t whole = std::min(text.find(separator), text.size());
    const std::size_t first = text.find(group);
    if (first == std::string::npos || first == start || first - start > 3) return;
    if (text[start] == '0') return; // no group begins with 0: the mark is a decimal point
    for (std::size_t at = first; at < whole; at += 4) {
        if (text[at] != group || whole - at < 4) return;
        if (!std::all_of(&text[at] + 1, &text[at] + 4, isDigit)) return;
    }
    if (text.find(group, whole) != std::string::npos) return;
    std::erase(text, group);
}

} // namespace

bool ValueText::startsNumber(std::string_view text) {
    if (text.empty()) return false;
    const char c = text.front();
    if (isDigit(c) || c == '+' || c == '-') return true;
    // A reading without a finite value has its place in the line too.
    return (c == '.' && text.size() > 1 && isDigit(text[1])) || isWord(text, "inf") ||
           isWord(text, "nan");
}

Cell ValueText::fromPoint(std::string_view text, Column& column) {
    if (text.find(',') == std::string_view::npos) return fromSeparator(text, '.', column);
    std::string value(text);
    removeGrouping(value, ',', '.');
    return fromSeparator(value, '.', column);
}

Cell ValueText::fromSeparator(std::string_view text, char separator, Column& column) {
    std::string value(text);
    if (separator != '.') removeGrouping(value, '.', separator);
    if (isPlainDecimal(value, separator)) {
        trimZeros(value, separator);
    } else if (!hasExponent(value, separator)) {
        return column.pack(text);
    }
    std::replace(value.begin(), value.end(), separator, column.decimalSeparator());
    return column.pack(value);
}

Cell ValueText::fromQuoted(std::string_view text, Column& column) {
    const std::size_t quote = text.find_first_not_of(' ');
    if (quote == std::string_view::npos || text[quote] != '"') return column.pack(text);
    text = text.substr(quote + 1, text.find_last_not_of(' ') - quote);
    if (text.ends_with('"')) text.remove_suffix(1);
    if (text.find('"') == std::string_view::npos) return column.pack(text);
    std::string value;
    for (std::size_t i = 0; i < text.size(); ++i) {
        value += text[i];
        i += text[i] == '"' && i + 1 < text.size() && text[i + 1] == '"';
    }
    return column.pack(value);
}

} // namespace pellam
