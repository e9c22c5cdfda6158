#include "base/Utf8.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace pellam {

namespace {

// Windows-1252, bytes 0x80 to 0x9F; the other bytes are Latin-1.
constexpr std::array<std::uint16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// Length of the well-formed sequence that starts at `at`, 0 when there is none.
std::size_t sequenceLength(const unsigned char* at, std::size_t left) {
    const unsigned char lead = at[0];
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4) return 0;
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (left < length) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((at[i] & 0xC0) != 0x80) return 0;
    }
    if (lead == 0xE0 && at[1] < 0xA0) return 0;
    if (lead == 0xED && at[1] > 0x9F) return 0;
    if (lead == 0xF0 && at[1] < 0x90) return 0;
    if (lead == 0xF4 && at[1] > 0x8F) return 0;
    return length;
}

} // namespace

char* appendUtf8(char* out, unsigned codePoint) {
    if (codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint < 0xE000)) {
        codePoint = kReplacementCharacter;
    }
    if (codePoint < 0x80) {
        *out++ = static_cast<char>(codePoint);
        return out;
    }
    if (codePoint < 0x800) {
        *out++ = static_cast<char>(0xC0 | codePoint >> 6);
    } else {
        if (codePoint < 0x10000) {
            *out++ = static_cast<char>(0xE0 | codePoint >> 12);
        } else {
            *out++ = static_cast<char>(0xF0 | codePoint >> 18);
            *out++ = static_cast<char>(0x80 | (codePoint >> 12 & 0x3F));
        }
        *out++ = static_cast<char>(0x80 | (codePoint >> 6 & 0x3F));
    }
    *out++ = static_cast<char>(0x80 | (codePoint & 0x3F));
    return out;
}

bool isUtf8(std::string_view bytes) {
    const auto* at = reinterpret_cast<const unsigned char*>(bytes.data());
    std::size_t left = bytes.size();
    while (left > 0) {
        std::uint64_t word;
        if (left >= sizeof word) {
            std::memcpy(&word, at, sizeof word);
            if ((word & 0x8080808080808080U) == 0) {
                at += sizeof word;
                left -= sizeof word;
                continue;
            }
        }
        const std::size_t length = sequenceLength(at, left);
        if (length == 0) return false;
        at += length;
        left -= length;
    }
    return true;
}

std::string toUtf8(std::string_view bytes) {
    if (isUtf8(bytes)) return std::string(bytes);
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 2);
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        const unsigned code = byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80U] : byte;
        std::array<char, 4> encoded{};
        out.append(encoded.data(), appendUtf8(encoded.data(), code));
    }
    return out;
}

std::string forTerminal(std::string_view text) {
    std::string shown;
    shown.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const auto next = static_cast<unsigned char>(i + 1 < text.size() ? text[i + 1] : 0);
        const bool second = byte == 0xC2 && next >= 0x80 && next < 0xA0;
        const bool first = (byte < ' ' && byte != '\n' && byte != '\t') || byte == 0x7F;
        if (!first && !second) {
            shown += text[i];
            continue;
        }
        char replacement[4];
        shown.append(replacement, appendUtf8(replacement, kReplacementCharacter));
        if (second) ++i;
    }
    return shown;
}

} // namespace pellam
