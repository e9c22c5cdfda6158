#include "delimited/sample/RecordReader.h"

#include "delimited/sample/FieldSplitter.h"
#include "delimited/sample/SampleRecords.h"

#include <algorithm>
#include <cstring>

namespace pellam {

namespace {

bool isOpen(std::string_view record, const Dialect& dialect) {
    FieldSplitter splitter(record, dialect);
    for (FieldSplitter::Field field; splitter.next(field);) {
    }
    return splitter.open();
}

} // namespace

// An even number of marks leaves no field open.
bool RecordReader::mayBeOpen(std::string_view record) const {
    if (m_dialect.quote == '\0') return false;
    if (!std::memchr(record.data(), m_dialect.quote, record.size())) return false;
    return std::count(record.begin(), record.end(), m_dialect.quote) % 2 != 0;
}

std::string_view RecordReader::padded(std::string_view text) {
    std::string buffer(LineReader::kSlack, '\0');
    buffer.append(text).append(LineReader::kSlack, '\0');
    m_buffer.swap(buffer);
    return {m_buffer.data() + LineReader::kSlack, text.size()};
}

// Adds lines up to the one in which the open field closes.
bool RecordReader::join(std::string_view& record) {
    if (m_stray >= kStrayMarks || !isOpen(record, m_dialect)) return true;
    std::string joined(record);
    std::string_view line;
    std::size_t taken = 0;
    bool open = true;
    for (; open && taken < SampleRecords::kLinesInField; ++taken) {
        if (taken == m_ahead.size()) {
            if (!m_lines.next(line)) break;
            m_ahead.push_back(
                {std::string(line), m_lines.bytesRead() - static_cast<std::int64_t>(line.size())});
        }
        joined.append(" ").append(withoutLineEnd(m_ahead[taken].text));
        const bool mark = m_ahead[taken].text.find(m_dialect.quote) != std::string::npos;
        if (mark) open = isOpen(joined, m_dialect);
    }
    if (open) {
        ++m_stray;
        // The reader's buffer has moved on: the line is served from a copy.
        record = padded(std::string_view(joined).substr(0, record.size()));
        return true;
    }
    m_ahead.erase(m_ahead.begin(), m_ahead.begin() + static_cast<std::ptrdiff_t>(taken));
    m_next += static_cast<std::int64_t>(taken);
    record = padded(joined);
    return true;
}

bool RecordReader::nextOfAhead(std::string_view& record) {
    const Line line = std::move(m_ahead.front());
    m_ahead.pop_front();
    m_line = m_next++;
    m_offset = line.offset;
    record = padded(withoutLineEnd(line.text));
    return !mayBeOpen(record) || join(record);
}

} // namespace pellam
