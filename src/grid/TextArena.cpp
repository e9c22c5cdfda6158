#include "grid/TextArena.h"

#include <cstring>

namespace pellam {

std::uint64_t TextArena::add(std::string_view text) {
    const std::uint64_t end = m_blocks.size() * kBlock;
    if (end - m_next < text.size() || m_blocks.empty()) {
        const std::size_t blocks = text.size() / kBlock + 1;
        m_owned.push_back(std::make_unique_for_overwrite<char[]>(blocks * kBlock));
        for (std::size_t i = 0; i < blocks; ++i) {
            m_blocks.push_back(m_owned.back().get() + i * kBlock);
        }
        m_next = end;
    }
    const std::uint64_t offset = m_next;
    if (!text.empty()) {
        std::memcpy(m_blocks[offset / kBlock] + offset % kBlock, text.data(), text.size());
    }
    m_next += text.size();
    return offset;
}

void TextArena::clear() {
    m_blocks.clear();
    m_owned.clear();
    m_next = 0;
}

} // namespace pellam
