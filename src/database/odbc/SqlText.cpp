#include "database/odbc/SqlText.h"

#include <algorithm>

namespace pellam {

namespace {

bool isPlainCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

std::string nativeName(std::string_view name, std::string_view quote) {
    const bool plain = !name.empty() && !(name[0] >= '0' && name[0] <= '9') &&
                       std::all_of(name.begin(), name.end(), isPlainCharacter);
    if (plain) return std::string(name);
    const std::string_view open = quote.empty() ? "[" : quote;
    const std::string_view close = quote.empty() ? "]" : quote;
    return std::string(open).append(name).append(close);
}

// The first double quote that is not inside a text in single quotes.
std::size_t firstDoubleQuote(std::string_view condition) {
    bool inside = false;
    for (std::size_t i = 0; i < condition.size(); ++i) {
        if (condition[i] == '\'') inside = !inside;
        if (condition[i] == '"' && !inside) return i;
    }
    return std::string_view::npos;
}

} // namespace

std::string withNativeNames(std::string_view text, std::string_view quote) {
    std::string result;
    while (!text.empty()) {
        const std::size_t open = text.find('[');
        const std::size_t close = open == std::string_view::npos ? open : text.find(']', open);
        if (close == std::string_view::npos) break;
        result.append(text.substr(0, open));
        result.append(nativeName(text.substr(open + 1, close - open - 1), quote));
        text.remove_prefix(close + 1);
    }
    return result.append(text);
}

std::string withSingleQuotes(std::string_view condition) {
    const std::size_t open = firstDoubleQuote(condition);
    const std::size_t close = condition.rfind('"');
    if (open == std::string_view::npos || close == open) return std::string(condition);
    std::string result(condition.substr(0, open));
    result += '\'';
    for (std::size_t i = open + 1; i < close; ++i) {
        const char c = condition[i];
        if (c == '"' && i + 1 < close && condition[i + 1] == '"') ++i;
        result.append(c == '\'' ? 2 : 1, c);
    }
    result += '\'';
    return result.append(condition.substr(close + 1));
}

} // namespace pellam
