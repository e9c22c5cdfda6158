#include "logger/BinaryInput.h"

#include <algorithm>
#include <cstring>

namespace pellam {

namespace {
constexpr std::size_t kBlock = std::size_t{256} << 10;
} // namespace

Failure BinaryInput::open(const std::string& path) {
    m_blockPosition = m_begin = m_end = 0;
    m_block.resize(kBlock);
    return m_file.open(path);
}

std::string_view BinaryInput::take(std::uint64_t size) {
    const auto wanted = static_cast<std::size_t>(std::min(size, left()));
    if (m_end - m_begin < wanted) fill(wanted);
    const std::size_t count = std::min(m_end - m_begin, wanted);
    const std::string_view bytes(m_block.data() + m_begin, count);
    m_begin += count;
    return bytes;
}

void BinaryInput::seek(std::uint64_t position) {
    if (position >= m_blockPosition && position <= m_blockPosition + m_end) {
        m_begin = static_cast<std::size_t>(position - m_blockPosition);
        return;
    }
    m_blockPosition = position;
    m_begin = m_end = 0;
}

void BinaryInput::fill(std::size_t wanted) {
    const std::size_t kept = m_end - m_begin;
    std::memmove(m_block.data(), m_block.data() + m_begin, kept);
    m_blockPosition += m_begin;
    m_begin = 0;
    m_end = kept;
    if (wanted > m_block.size()) m_block.resize(wanted);
    while (m_end < wanted) {
        const std::size_t got = m_file.read(m_block.data() + m_end, m_block.size() - m_end,
                                            static_cast<std::int64_t>(m_blockPosition + m_end));
        if (got == 0) return;
        m_end += got;
    }
}

} // namespace pellam
