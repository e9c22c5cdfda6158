#pragma once

#include "base/RegularFile.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// A binary file read from any position on, in blocks.
class BinaryInput {
  public:
    /// Opens a regular file; a folder, a device or a pipe is refused. Nothing on success.
    [[nodiscard]] Failure open(const std::string& path);

    /// The next `size` bytes, valid until the next call; fewer at the end of the file or after a
    /// read error. Never takes more memory than the file has bytes (or one block).
    std::string_view take(std::uint64_t size);

    /// Goes to a position, which may lie behind the end of the file.
    void seek(std::uint64_t position);

    [[nodiscard]] std::uint64_t position() const { return m_blockPosition + m_begin; }

    /// Size of the file when it was opened.
    [[nodiscard]] std::uint64_t size() const { return static_cast<std::uint64_t>(m_file.size()); }

    /// Bytes from the position to the end of the file; 0 behind it.
    [[nodiscard]] std::uint64_t left() const {
        return position() < size() ? size() - position() : 0;
    }

    /// The error that made a take() short; none at the end of the file.
    [[nodiscard]] const Failure& error() const { return m_file.error(); }

  private:
    void fill(std::size_t wanted);

    RegularFile m_file;
    std::vector<char> m_block;
    std::uint64_t m_blockPosition = 0; ///< of the block's first byte in the file
    std::size_t m_begin = 0;           ///< first byte of the block not taken yet
    std::size_t m_end = 0;             ///< end of the bytes in the block
};

} // namespace pellam
