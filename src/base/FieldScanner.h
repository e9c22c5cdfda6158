#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace pellam {

/// Takes a line apart at a separator. Empty fields count. Reads up to 64 bytes past the line's end
/// (LineReader's lines have that room).
class FieldScanner {
  public:
    enum class Quotes {
        Plain, ///< a double quote is a character like any other
        /// A field that begins with a double quote, maybe behind blanks, runs to its closing one.
        Group
    };

    FieldScanner(std::string_view line, char separator, Quotes quotes)
        : m_at(line.data()),
          m_end(line.data() + line.size()),
          m_block(line.data() - kBlock),
          m_separator(separator),
          m_quotes(quotes) {}

    /// The next field; false after the last. An empty line has one empty field.
    bool next(const char*& begin, const char*& end) {
        if (m_at > m_end) return false;
        if (m_quotes == Quotes::Group) {
            const char* quote = m_at;
            while (quote < m_end && *quote == ' ' && m_separator != ' ')
                ++quote;
            if (quote < m_end && *quote == '"') return nextQuoted(quote, begin, end);
        }
        while (m_mask == 0)
            enterBlock();
        begin = m_at;
        end = m_block + std::countr_zero(m_mask);
        m_mask &= m_mask - 1;
        m_at = end + 1;
        return true;
    }

    bool next(std::string_view& field) {
        const char* begin;
        const char* end;
        if (!next(begin, end)) return false;
        field = {begin, static_cast<std::size_t>(end - begin)};
        return true;
    }

    /// Whether the last field has been given.
    [[nodiscard]] bool atEnd() const { return m_at > m_end; }

    /// What is left of the line, from the start of the next field.
    [[nodiscard]] std::string_view rest() const {
        return m_at > m_end ? std::string_view()
                            : std::string_view(m_at, static_cast<std::size_t>(m_end - m_at));
    }

  private:
    static constexpr std::ptrdiff_t kBlock = 64;

    // Marks the separators of the next 64 bytes, the line's end among them.
    void enterBlock() {
        m_block += kBlock;
        m_mask = separators(m_block);
        const std::ptrdiff_t left = m_end - m_block;
        if (left < kBlock) {
            const std::uint64_t end = std::uint64_t{1} << left;
            m_mask = (m_mask & (end - 1)) | end;
        }
    }

    [[nodiscard]] std::uint64_t separators(const char* at) const {
        std::uint64_t mask = 0;
#if defined(__SSE2__)
        const __m128i wanted = _mm_set1_epi8(m_separator);
        for (int i = 0; i < 4; ++i) {
            const __m128i bytes =
                _mm_loadu_si128(reinterpret_cast<const __m128i*>(at + std::ptrdiff_t{16} * i));
            const auto bits =
                static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, wanted)));
            mask |= static_cast<std::uint64_t>(bits) << 16 * i;
        }
#else
        for (int i = 0; i < 64; ++i) {
            mask |= static_cast<std::uint64_t>(at[i] == m_separator) << i;
        }
#endif
        return mask;
    }

    // A closing quote is one that another does not follow; the field then runs to the separator.
    // Without a closing quote the first one is a character like any other.
    bool nextQuoted(const char* quote, const char*& begin, const char*& end) {
        begin = m_at;
        const char* close = quote + 1;
        for (;; close += 2) {
            const auto left = static_cast<std::size_t>(m_end - close);
            close = left > 0 ? static_cast<const char*>(std::memchr(close, '"', left)) : nullptr;
            if (!close || close + 1 >= m_end || close[1] != '"') break;
        }
        const char* const from = close ? close + 1 : m_at;
        const auto left = static_cast<std::size_t>(m_end - from);
        const void* stop = left > 0 ? std::memchr(from, m_separator, left) : nullptr;
        end = stop ? static_cast<const char*>(stop) : m_end;
        m_at = end + 1;
        // The block scan goes on from here.
        m_block = m_at - kBlock;
        m_mask = 0;
        return true;
    }

    const char* m_at;
    const char* m_end;
    const char* m_block;
    std::uint64_t m_mask = 0; ///< separators of the block that no field has ended at yet
    char m_separator;
    Quotes m_quotes;
};

} // namespace pellam
