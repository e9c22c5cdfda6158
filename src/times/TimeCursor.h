#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace pellam {

/// Walks through a text that holds a time. What it can't take it leaves.
class TimeCursor {
  public:
    /// Blanks around the text are passed over.
    explicit TimeCursor(std::string_view text)
        : m_at(text.data()),
          m_end(text.data() + text.size()) {
        while (m_at != m_end && isBlank(m_end[-1]))
            --m_end;
        blanks();
    }

    [[nodiscard]] bool atEnd() const { return m_at == m_end; }

    /// The next character, or one further on; '\0' at the end.
    [[nodiscard]] char peek(std::ptrdiff_t ahead = 0) const {
        return m_end - m_at <= ahead ? '\0' : m_at[ahead];
    }

    [[nodiscard]] std::string_view rest() const {
        return {m_at, static_cast<std::size_t>(m_end - m_at)};
    }

    void skip(std::size_t count) { m_at += count; }

    [[nodiscard]] int digitsAhead() const {
        const char* at = m_at;
        while (at != m_end && isDigit(*at))
            ++at;
        return static_cast<int>(at - m_at);
    }

    /// Takes this many digits, which must be there; at most nine.
    int digits(int count) {
        int value = 0;
        for (; count > 0; --count)
            value = value * 10 + (*m_at++ - '0');
        return value;
    }

    /// Takes one or two digits; -1 when there are none.
    int twoDigits() {
        if (!isDigit(peek())) return -1;
        const int value = *m_at++ - '0';
        return isDigit(peek()) ? value * 10 + (*m_at++ - '0') : value;
    }

    bool take(char c) {
        if (peek() != c || atEnd()) return false;
        ++m_at;
        return true;
    }

    /// Takes one of the characters; '\0' when the next one is none of them.
    char oneOf(std::string_view characters) {
        if (atEnd() || characters.find(*m_at) == std::string_view::npos) return '\0';
        return *m_at++;
    }

    /// Takes a text, ASCII letters in either case; an empty one is not there.
    bool word(std::string_view text) {
        if (text.empty() || rest().size() < text.size()) return false;
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (lower(m_at[i]) != lower(text[i])) return false;
        }
        skip(text.size());
        return true;
    }

    bool blanks() {
        const char* const before = m_at;
        while (m_at != m_end && isBlank(*m_at))
            ++m_at;
        return m_at != before;
    }

    /// Letters, ASCII ones only, that stand here; not taken.
    [[nodiscard]] std::size_t lettersAhead() const {
        const char* at = m_at;
        while (at != m_end && isLetter(*at))
            ++at;
        return static_cast<std::size_t>(at - m_at);
    }

    static constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

    static constexpr bool isBlank(char c) { return c == ' ' || c == '\t'; }

    static constexpr bool isLetter(char c) { return lower(c) >= 'a' && lower(c) <= 'z'; }

  private:
    static constexpr char lower(char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
    }

    const char* m_at;
    const char* m_end;
};

} // namespace pellam
