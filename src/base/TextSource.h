#pragma once

#include "base/RegularFile.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace pellam {

/// The bytes of a text file in order, as UTF-8 or as they stand: a UTF-8 byte-order mark is passed
/// over, UTF-16 is converted, every other encoding is left alone.
class TextSource {
  public:
    /// Opens a regular file and finds out its encoding. A folder, device or pipe is refused.
    [[nodiscard]] Failure open(const std::string& path);

    /// Reads up to `size` bytes (at least 16); 0 at the end or after an error.
    std::size_t read(char* out, std::size_t size);
    void rewind();

    /// Goes on reading `size` bytes of the file before its end, or at its start where it is
    /// shorter; the characters come whole. The offset of the next byte read, or -1 where the bytes
    /// are converted, so that offsets in the text are none in the file.
    std::int64_t seekToEnd(std::int64_t size);

    [[nodiscard]] std::int64_t fileSize() const { return m_file.size(); }

    [[nodiscard]] bool isUtf16() const { return m_encoding != Encoding::Bytes; }

    /// Offset in the file of the bytes read so far, less `pending` bytes not used yet.
    [[nodiscard]] std::int64_t fileOffset(std::size_t pending) const;

    [[nodiscard]] const Failure& error() const { return m_file.error(); }

  private:
    enum class Encoding { Bytes, Utf16Little, Utf16Big };

    void detectEncoding();
    std::size_t readFile(char* out, std::size_t size);
    std::size_t readUtf16(char* out, std::size_t size);

    RegularFile m_file;
    std::vector<char> m_raw;   ///< UTF-16 input that is not converted yet
    std::int64_t m_offset = 0; ///< file offset of the next read
    std::int64_t m_start = 0;  ///< bytes of the byte-order mark
    unsigned m_highSurrogate = 0;
    Encoding m_encoding = Encoding::Bytes;
};

} // namespace pellam
