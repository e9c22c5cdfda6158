#include "grid/TextArena.h"

#include <cstring>

namespace pellam {

std::uint64_t TextArena::add(std::string_view text) {
    const std::uint64_t length = text.size();
    const std::size_t header = length >= kLong ? sizeof length : 0;
    const std::size_t size = header + text.size();
    const std::uint64_t end = m_blocks.size() * kBlock;
    if (end - m_next < size || m_blocks.empty()) {
        const std::size_t blocks = size / kBlock + 1;
        m_owned.push_back(std::make_unique_for_overwrite<char[]>(blocks * kBlock));
        for (std::size_t i = 0; i < blocks; ++i) {
            m_blocks.push_back(m_owned.back().get() + i * kBlock);
        }
        m_next = end;
    }
    char* const at = m_blocks[m_next / kBlock] + m_next % kBlock;
    std::memcpy(at, &length, header);
    if (!text.empty()) std::memcpy(at + header, text.data(), text.size());
    m_next += size;
    return m_next - length;
}

void TextArena::clear() {
    m_blocks.clear();
    m_owned.clear();
    m_next = 0;
}

} // namespace pellam
