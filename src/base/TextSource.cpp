#include "base/TextSource.h"

#include "base/Utf8.h"

#include <algorithm>
#include <array>

namespace pellam {

Failure TextSource::open(const std::string& path) {
    if (Failure failure = m_file.open(path)) return failure;
    detectEncoding();
    rewind();
    return {};
}

void TextSource::detectEncoding() {
    std::array<unsigned char, 4096> head{};
    const std::size_t count = m_file.read(reinterpret_cast<char*>(head.data()), head.size(), 0);
    m_encoding = Encoding::Bytes;
    m_start = 0;
    if (count >= 3 && head[0] == 0xEF && head[1] == 0xBB && head[2] == 0xBF) {
        m_start = 3;
    } else if (count >= 2 && head[0] == 0xFF && head[1] == 0xFE) {
        m_encoding = Encoding::Utf16Little;
        m_start = 2;
    } else if (count >= 2 && head[0] == 0xFE && head[1] == 0xFF) {
        m_encoding = Encoding::Utf16Big;
        m_start = 2;
    } else if (count >= 16) {
        // Without a mark: digits and western letters have a zero in every other byte. Letters of
        // other scripts have none, or once in a while one on the other side.
        std::size_t zeroEven = 0;
        std::size_t zeroOdd = 0;
        for (std::size_t i = 0; i < count; ++i)
            (i % 2 ? zeroOdd : zeroEven) += head[i] == 0;
        const std::size_t half = count / 4;
        if (zeroOdd >= half && zeroEven * 20 <= zeroOdd) m_encoding = Encoding::Utf16Little;
        if (zeroEven >= half && zeroOdd * 20 <= zeroEven) m_encoding = Encoding::Utf16Big;
    }
}

void TextSource::rewind() {
    m_offset = m_start;
    m_raw.clear();
    m_highSurrogate = 0;
    m_file.clearError();
}

std::int64_t TextSource::seekToEnd(std::int64_t size) {
    rewind();
    m_offset = std::max(m_start, m_file.size() - size);
    if (m_encoding == Encoding::Bytes) return m_offset;
    m_offset += (m_offset - m_start) % 2;
    return -1;
}

std::size_t TextSource::read(char* out, std::size_t size) {
    return m_encoding == Encoding::Bytes ? readFile(out, size) : readUtf16(out, size);
}

std::size_t TextSource::readFile(char* out, std::size_t size) {
    const std::size_t got = m_file.read(out, size, m_offset);
    m_offset += static_cast<std::int64_t>(got);
    return got;
}

std::size_t TextSource::readUtf16(char* out, std::size_t size) {
    // One unit of two bytes gives at most three bytes; a pair of units gives four.
    m_raw.resize((size - 8) / 3 * 2);
    const std::size_t got = readFile(m_raw.data(), m_raw.size());
    char* to = out;
    for (std::size_t i = 0; i + 1 < got; i += 2) {
        const auto first = static_cast<unsigned char>(m_raw[i]);
        const auto second = static_cast<unsigned char>(m_raw[i + 1]);
        const unsigned unit = m_encoding == Encoding::Utf16Little
                                  ? static_cast<unsigned>(first | second << 8)
                                  : static_cast<unsigned>(first << 8 | second);
        if (unit >= 0xD800 && unit < 0xDC00) {
            if (m_highSurrogate) to = appendUtf8(to, kReplacementCharacter);
            m_highSurrogate = unit;
        } else if (unit >= 0xDC00 && unit < 0xE000 && m_highSurrogate) {
            to = appendUtf8(to, 0x10000 + ((m_highSurrogate - 0xD800) << 10) + (unit - 0xDC00));
            m_highSurrogate = 0;
        } else {
            if (m_highSurrogate) to = appendUtf8(to, kReplacementCharacter);
            m_highSurrogate = 0;
            to = appendUtf8(to, unit);
        }
    }
    if (got % 2 != 0 && m_offset < m_file.size()) --m_offset;
    return static_cast<std::size_t>(to - out);
}

std::int64_t TextSource::fileOffset(std::size_t pending) const {
    if (m_encoding == Encoding::Bytes) return m_offset - static_cast<std::int64_t>(pending);
    return std::max<std::int64_t>(m_start, m_offset - 2 * static_cast<std::int64_t>(pending));
}

} // namespace pellam
