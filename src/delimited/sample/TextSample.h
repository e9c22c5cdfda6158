#pragma once

#include "base/Failure.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace pellam {

/// The beginning and the end of a text file, which is all that is looked at to tell how it is laid
/// out.
struct TextSample {
    static constexpr std::size_t kSize = std::size_t{64} << 10; ///< bytes of either end

    std::string head; ///< whole lines; the whole file where it is no longer than both ends
    std::string tail; ///< whole lines from the end; empty where the head is the whole file
    std::int64_t fileSize = 0;
    std::int64_t tailAt = -1; ///< offset of the tail in the file; -1 where it can't be told
    bool utf16 = false;       ///< the file is UTF-16, the sample UTF-8
    bool cutLine = false;     ///< the head's only line goes on behind it: the head is a part of it

    /// Reads the file's two ends. A failure to open or to read leaves the sample empty.
    [[nodiscard]] Failure read(const std::string& path);

    /// The sample of a file of these bytes.
    [[nodiscard]] static TextSample ofText(std::string_view text);

    [[nodiscard]] bool isWholeFile() const { return tail.empty() && !cutLine; }

  private:
    static constexpr std::size_t kLines = 2500;    ///< of the head
    static constexpr std::size_t kTailLines = 500; ///< of the tail

    void cutHead();
    void cutTail();
    void limitLines();
};

/// Takes the next line, without its end, off the front of a text. A line ends as LineReader has it:
/// at '\n', at "\r\n" or at a '\r' alone.
[[nodiscard]] std::string_view takeLine(std::string_view& text);

} // namespace pellam
