#pragma once

#include "base/LineReader.h"
#include "delimited/sample/Dialect.h"

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace pellam {

/// The records of a text: its lines, those joined by a blank that a quoted field spans. A field
/// that does not close within a few lines began with a stray mark and joins nothing.
class RecordReader {
  public:
    /// Reads on from where `lines` stands; `firstLine` is the number of the next line.
    RecordReader(LineReader& lines, const Dialect& dialect, std::int64_t firstLine)
        : m_lines(lines),
          m_dialect(dialect),
          m_next(firstLine) {}

    /// The next record without its line end, valid until the next call; LineReader::kSlack bytes
    /// before and behind it may be read. False at the end.
    bool next(std::string_view& record) {
        if (!m_ahead.empty()) return nextOfAhead(record);
        std::string_view line;
        if (!m_lines.next(line)) return false;
        m_line = m_next++;
        m_offset = m_lines.bytesRead() - static_cast<std::int64_t>(line.size());
        record = withoutLineEnd(line);
        return !mayBeOpen(record) || join(record);
    }

    /// Number of the record's first line.
    [[nodiscard]] std::int64_t line() const { return m_line; }

    /// Offset of the record in a file whose bytes are not converted.
    [[nodiscard]] std::int64_t offset() const { return m_offset; }

    /// Bytes of the file that the lines read so far took.
    [[nodiscard]] std::int64_t bytesRead() const { return m_lines.bytesRead(); }

  private:
    static constexpr int kStrayMarks = 100; ///< after so many no lines are joined any more

    struct Line {
        std::string text; ///< with its line end
        std::int64_t offset = 0;
    };

    [[nodiscard]] bool mayBeOpen(std::string_view record) const;
    bool join(std::string_view& record);
    bool nextOfAhead(std::string_view& record);
    [[nodiscard]] std::string_view padded(std::string_view text);

    LineReader& m_lines;
    Dialect m_dialect;
    std::int64_t m_next;
    std::int64_t m_line = 0;
    std::int64_t m_offset = 0;
    int m_stray = 0;
    std::deque<Line> m_ahead; ///< lines that were read to find a closing mark
    std::string m_buffer;     ///< the record where it does not stand in the reader's own
};

} // namespace pellam
