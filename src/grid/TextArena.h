#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace pellam {

/// Texts one after the other in blocks that never move. A text is found by its offset and length.
class TextArena {
  public:
    /// Texts of this length or more: the arena knows how long they are.
    static constexpr std::uint64_t kLong = (std::uint64_t{1} << 24) - 1;

    /// Keeps a copy of the text; returns its offset.
    std::uint64_t add(std::string_view text);

    /// The text of a length, or of kLong or more, at an offset that add() gave.
    [[nodiscard]] std::string_view at(std::uint64_t offset, std::uint64_t length) const {
        const char* const text = m_blocks[offset / kBlock] + offset % kBlock;
        if (length >= kLong) std::memcpy(&length, text - sizeof length, sizeof length);
        return {text, static_cast<std::size_t>(length)};
    }

    /// Drops all texts.
    void clear();

  private:
    static constexpr std::size_t kBlock = std::size_t{64} << 10;

    std::vector<char*> m_blocks; ///< start of every block; a long text takes several in a row
    std::vector<std::unique_ptr<char[]>> m_owned;
    std::uint64_t m_next = 0; ///< offset after the last text
};

} // namespace pellam
