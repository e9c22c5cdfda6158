#pragma once

#include "base/TwoDigits.h"

#include <charconv>

namespace pellam {

/// Writes "yyyy/MM/dd"; a year takes four digits, or as many as it needs where four are not enough
/// (at most eight characters). Gives the place after it.
inline char* writeDate(char* out, int year, unsigned month, unsigned day) {
    if (year >= 0 && year <= 9999) {
        out = writeTwo(writeTwo(out, year / 100), year % 100);
    } else {
        out = std::to_chars(out, out + 8, year).ptr;
    }
    *out++ = '/';
    out = writeTwo(out, month);
    *out++ = '/';
    return writeTwo(out, day);
}

/// Writes "HH:mm:ss" and gives the place after it.
inline char* writeTime(char* out, unsigned hour, unsigned minute, unsigned second) {
    out = writeTwo(out, hour);
    *out++ = ':';
    out = writeTwo(out, minute);
    *out++ = ':';
    return writeTwo(out, second);
}

} // namespace pellam
