#include "base/LineReader.h"

#include "base/TextSource.h"

#include <algorithm>
#include <cstring>

namespace pellam {

namespace {
constexpr std::size_t kBlock = std::size_t{256} << 10;
} // namespace

LineReader::LineReader() = default;
LineReader::~LineReader() = default;

Failure LineReader::open(const std::string& path, LineEnds ends) {
    m_source = std::make_unique<TextSource>();
    m_ends = ends;
    if (Failure failure = m_source->open(path)) {
        m_source.reset();
        return failure;
    }
    if (m_buffer.empty()) m_buffer.resize(kSlack + kBlock + kSlack);
    rewind();
    return {};
}

bool LineReader::isOpen() const {
    return m_source != nullptr;
}

void LineReader::rewind() {
    if (!m_source) return;
    m_source->rewind();
    m_begin = m_end = m_scanned = kSlack;
    m_line = m_cutLines = m_firstCut = 0;
    m_atEnd = m_inLine = false;
}

bool LineReader::next(std::string_view& line) {
    if (m_inLine) skipRest();
    if (!nextPiece(line)) return false;
    ++m_line;
    m_inLine = isCut(line);
    return true;
}

bool LineReader::isCut(std::string_view piece) const {
    if (piece.size() < kMaximumLine || piece.back() == '\n') return false;
    return m_ends == LineEnds::LineFeed || piece.back() != '\r';
}

void LineReader::skipRest() {
    std::string_view piece;
    bool lost = false;
    do {
        m_inLine = nextPiece(piece);
        lost = lost || (m_inLine && !withoutLineEnd(piece).empty());
    } while (m_inLine && isCut(piece));
    m_inLine = false;
    if (!lost) return;
    ++m_cutLines;
    if (m_firstCut == 0) m_firstCut = m_line;
}

// The next line, or the next part of one that is longer than a line may be.
bool LineReader::nextPiece(std::string_view& line) {
    for (;;) {
        const std::size_t end = findLineEnd();
        if (end != 0) {
            line = {m_buffer.data() + m_begin, end - m_begin};
            m_begin = m_scanned = end;
            return true;
        }
        if (m_atEnd) {
            if (m_begin == m_end) return false;
            line = {m_buffer.data() + m_begin, m_end - m_begin};
            m_begin = m_scanned = m_end;
            return true;
        }
        refill();
    }
}

// Returns the position after the line end, or 0 when more bytes are needed to know.
std::size_t LineReader::findLineEnd() {
    const char* const base = m_buffer.data();
    const std::size_t limit = std::min(m_end, m_begin + kMaximumLine);
    const void* feed = std::memchr(base + m_scanned, '\n', limit - m_scanned);
    std::size_t end =
        feed ? static_cast<std::size_t>(static_cast<const char*>(feed) - base) + 1 : 0;
    if (m_ends == LineEnds::AnyReturn) {
        const std::size_t stop = end ? end : limit;
        const void* found = std::memchr(base + m_scanned, '\r', stop - m_scanned);
        if (found) {
            const auto at = static_cast<std::size_t>(static_cast<const char*>(found) - base) + 1;
            if (at < m_end) return base[at] == '\n' ? at + 1 : at;
            if (m_atEnd) return at;
            m_scanned = at - 1;
            return 0;
        }
    }
    if (end == 0 && limit - m_begin == kMaximumLine) end = limit;
    if (end == 0) m_scanned = limit;
    return end;
}

void LineReader::refill() {
    const std::size_t kept = m_end - m_begin;
    std::memmove(m_buffer.data() + kSlack, m_buffer.data() + m_begin, kept);
    m_scanned -= m_begin - kSlack;
    m_begin = kSlack;
    m_end = kSlack + kept;
    if (m_buffer.size() - kSlack - m_end < kBlock / 2) {
        m_buffer.resize(std::min(m_buffer.size() * 2, 2 * kSlack + kMaximumLine + kBlock));
    }
    const std::size_t got =
        m_source->read(m_buffer.data() + m_end, m_buffer.size() - kSlack - m_end);
    m_end += got;
    m_atEnd = got == 0;
    std::memset(m_buffer.data() + m_end, 0, kSlack);
}

std::int64_t LineReader::bytesRead() const {
    return m_source ? m_source->fileOffset(m_end - m_begin) : 0;
}

std::int64_t LineReader::fileSize() const {
    return m_source ? m_source->fileSize() : 0;
}

const Failure& LineReader::error() const {
    static const Failure none;
    return m_source ? m_source->error() : none;
}

} // namespace pellam
