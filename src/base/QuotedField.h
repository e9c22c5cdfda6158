#pragma once

#include <algorithm>
#include <string_view>

namespace pellam {

/// Writes a field of delimited text in double quotes, those in it twice (RFC 4180); returns the
/// end. Takes up to twice the field's size and two bytes more.
inline char* writeQuoted(std::string_view field, char* out) {
    *out++ = '"';
    for (const char c : field) {
        if (c == '"') *out++ = '"';
        *out++ = c;
    }
    *out++ = '"';
    return out;
}

/// Whether a field comes back as it is only from quotes: it holds the separator, a quote or a line
/// end.
inline bool needsQuotes(std::string_view field, char separator) {
    return std::any_of(field.begin(), field.end(), [separator](char c) {
        return c == separator || c == '"' || c == '\n' || c == '\r';
    });
}

} // namespace pellam
