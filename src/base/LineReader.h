#pragma once

#include "base/Failure.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pellam {

class TextSource;

/// Reads a text file line by line, in large blocks. A UTF-8 byte-order mark is passed over and
/// UTF-16 text (with a mark, or recognised by its zero bytes) is converted to UTF-8; all other
/// bytes come as they stand.
class LineReader {
  public:
    /// Longest line served whole, its line end counted; what a longer one has behind it is left out
    /// and counted (see cutLines()).
    static constexpr std::size_t kMaximumLine = std::size_t{64} << 20;
    /// Bytes before and after every line served that may be read (their values mean nothing):
    /// parsers of fields look at whole words.
    static constexpr std::size_t kSlack = 64;

    /// What ends a line: '\n' alone, or also a '\r' that no '\n' follows.
    enum class LineEnds { LineFeed, AnyReturn };

    LineReader();
    ~LineReader();
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    /// Opens a regular file; a folder, a device or a pipe is refused. Nothing on success.
    [[nodiscard]] Failure open(const std::string& path, LineEnds ends = LineEnds::LineFeed);
    [[nodiscard]] bool isOpen() const;

    /// The next line with its line end (the last one may have none), valid until the next call.
    /// False at the end of the file or after a read error.
    bool next(std::string_view& line);

    /// Back to the first line.
    void rewind();

    /// Lines that were cut, of those read since the file was opened or rewound. A line counts when
    /// the next one is asked for.
    [[nodiscard]] std::int64_t cutLines() const { return m_cutLines; }

    /// Number of the first of them, from 1; 0 while there is none.
    [[nodiscard]] std::int64_t firstCutLine() const { return m_firstCut; }

    /// Bytes of the file that the lines served so far took; equals fileSize() at the end.
    [[nodiscard]] std::int64_t bytesRead() const;
    /// Size of the file in bytes when it was opened.
    [[nodiscard]] std::int64_t fileSize() const;
    /// The read error that ended the lines early; none at a normal end of file.
    [[nodiscard]] const Failure& error() const;

  private:
    void refill();
    std::size_t findLineEnd();
    bool nextPiece(std::string_view& piece);
    [[nodiscard]] bool isCut(std::string_view piece) const;
    void skipRest();

    std::unique_ptr<TextSource> m_source;
    std::vector<char> m_buffer;
    std::size_t m_begin = 0;   ///< first byte not served yet
    std::size_t m_end = 0;     ///< end of the bytes in the buffer
    std::size_t m_scanned = 0; ///< no line end lies between m_begin and here
    std::int64_t m_line = 0;   ///< lines served
    std::int64_t m_cutLines = 0;
    std::int64_t m_firstCut = 0;
    LineEnds m_ends = LineEnds::LineFeed;
    bool m_atEnd = false;
    bool m_inLine = false; ///< the line served last may go on
};

/// A line without its line end: without all characters of `ends` that it ends in.
inline std::string_view withoutLineEnd(std::string_view line, std::string_view ends = "\r\n") {
    return line.substr(0, line.find_last_not_of(ends) + 1);
}

} // namespace pellam
