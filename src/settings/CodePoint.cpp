#include "settings/CodePoint.h"

#include <array>

namespace pellam {

char32_t decodeUtf8(std::string_view text, std::size_t& at) {
    const auto first = static_cast<unsigned char>(text[at++]);
    if (first < 0x80) return first;
    const std::size_t following = first >= 0xF0 ? 3U : first >= 0xE0 ? 2U : 1U;
    if (first < 0xC2 || first > 0xF4 || at + following > text.size()) return kNoCodePoint;
    char32_t codePoint = first & (0x3FU >> following);
    for (std::size_t i = 0; i < following; ++i) {
        const auto byte = static_cast<unsigned char>(text[at + i]);
        if ((byte & 0xC0) != 0x80) return kNoCodePoint;
        codePoint = codePoint << 6U | (byte & 0x3FU);
    }
    static constexpr std::array<char32_t, 4> kSmallest = {0, 0x80, 0x800, 0x10000};
    const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    if (codePoint < kSmallest[following] || codePoint > 0x10FFFF || surrogate) return kNoCodePoint;
    at += following;
    return codePoint;
}

} // namespace pellam
