#include "delimited/sample/FieldSplitter.h"

#include <algorithm>

namespace pellam {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

} // namespace

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string withoutEscapes(std::string_view text, const Dialect& dialect) {
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == dialect.escape && i + 1 < text.size() && text[i + 1] == dialect.quote) ++i;
        plain += text[i];
    }
    return plain;
}

FieldSplitter::FieldSplitter(std::string_view line, const Dialect& dialect)
    : m_line(line),
      m_dialect(dialect) {
    if (m_dialect.separator != Dialect::kBlankRuns) return;
    m_line = trimmed(m_line);
    m_done = m_line.empty();
}

bool FieldSplitter::isSeparator(char c) const {
    return m_dialect.separator == Dialect::kBlankRuns ? isBlank(c) : c == m_dialect.separator;
}

void FieldSplitter::skipBlanks() {
    while (m_at < m_line.size() && isBlank(m_line[m_at]))
        ++m_at;
}

bool FieldSplitter::next(Field& field) {
    if (m_done) return false;
    const bool runs = m_dialect.separator == Dialect::kBlankRuns;
    if (m_dialect.quote != '\0' && takeQuoted(field)) return true;
    std::size_t end = m_at;
    if (runs) {
        while (end < m_line.size() && !isBlank(m_line[end]))
            ++end;
    } else {
        end = std::min(m_line.find(m_dialect.separator, m_at), m_line.size());
    }
    field = {m_line.substr(m_at, end - m_at), false};
    if (m_dialect.blanks) field.text = trimmed(field.text);
    m_done = end == m_line.size();
    m_at = end + 1;
    if (runs) skipBlanks();
    return true;
}

// The mark that closes a field whose text begins at `from`.
std::size_t FieldSplitter::closingMark(std::size_t from) const {
    for (std::size_t at = from;; ++at) {
        at = m_line.find(m_dialect.quote, at);
        if (at == std::string_view::npos) return at;
        if (m_dialect.escape != m_dialect.quote) {
            if (at > from && m_line[at - 1] == m_dialect.escape) continue;
        } else if (at + 1 < m_line.size() && m_line[at + 1] == m_dialect.quote) {
            ++at;
            continue;
        }
        std::size_t behind = at + 1;
        if (m_dialect.separator != Dialect::kBlankRuns) {
            while (behind < m_line.size() && m_line[behind] == ' ')
                ++behind;
        }
        if (behind >= m_line.size() || isSeparator(m_line[behind])) return at;
    }
}

bool FieldSplitter::takeQuoted(Field& field) {
    std::size_t start = m_at;
    if (m_dialect.separator != Dialect::kBlankRuns) {
        while (start < m_line.size() && m_line[start] == ' ')
            ++start;
    }
    if (start >= m_line.size() || m_line[start] != m_dialect.quote || m_noClosing) return false;
    const std::size_t close = closingMark(start + 1);
    if (close == std::string_view::npos) {
        m_open = m_noClosing = true;
        return false;
    }
    const bool padded = start != m_at || (close + 1 < m_line.size() && m_line[close + 1] == ' ' &&
                                          !isSeparator(' '));
    field = {m_line.substr(start + 1, close - start - 1), true, padded};
    if (m_dialect.blanks) field.text = trimmed(field.text);
    m_at = close + 1;
    skipBlanks();
    const bool runs = m_dialect.separator == Dialect::kBlankRuns;
    m_done = m_at >= m_line.size();
    if (!runs) {
        // A tab may be the separator itself.
        m_at = close + 1;
        while (m_at < m_line.size() && !isSeparator(m_line[m_at]))
            ++m_at;
        m_done = m_at >= m_line.size();
        ++m_at;
    }
    return true;
}

} // namespace pellam
