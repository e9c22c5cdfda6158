#include "views/scan/TextFold.h"

namespace pellam {

namespace {

/// Folds a code point of two UTF-8 bytes (U+0080 to U+07FF).
unsigned foldTwoByte(unsigned c) {
    const auto within = [c](unsigned first, unsigned last) { return c >= first && c <= last; };
    if (within(0xC0, 0xDE) && c != 0xD7) return c + 32;
    // U+0130 and U+0178 fold to other lengths or blocks; they stay.
    if ((within(0x100, 0x12F) || within(0x132, 0x137) || within(0x14A, 0x177)) && c % 2 == 0)
        return c + 1;
    if ((within(0x139, 0x148) || within(0x179, 0x17E)) && c % 2 == 1) return c + 1;
    if (within(0x391, 0x3A9) && c != 0x3A2) return c + 32;
    if (within(0x410, 0x42F)) return c + 32;
    if (within(0x400, 0x40F)) return c + 80;
    return c;
}

} // namespace

void appendFolded(std::string_view utf8, std::string& out) {
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        if (byte >= 'A' && byte <= 'Z') {
            out += static_cast<char>(byte + ('a' - 'A'));
        } else if ((byte & 0xE0) == 0xC0 && i + 1 < utf8.size()) {
            const auto next = static_cast<unsigned char>(utf8[++i]);
            const unsigned folded = foldTwoByte((byte & 0x1FU) << 6 | (next & 0x3FU));
            out += static_cast<char>(0xC0 | folded >> 6);
            out += static_cast<char>(0x80 | (folded & 0x3F));
        } else {
            out += utf8[i];
        }
    }
}

} // namespace pellam
