#pragma once

#include "delimited/sample/Dialect.h"

#include <string>
#include <string_view>

namespace pellam {

/// Takes a line apart by a dialect; slower than FieldScanner, and knows all dialects. A quoted
/// field ends at a mark with a separator or the line's end behind it; every other mark inside is
/// text, and so is an opening mark without a closing one.
class FieldSplitter {
  public:
    struct Field {
        std::string_view text; ///< without the quotation marks around it
        bool quoted = false;
        bool padded = false; ///< blanks stand between its quotation marks and the separators
    };

    /// `line` has no line end; it outlives the splitter.
    FieldSplitter(std::string_view line, const Dialect& dialect);

    /// The next field; false after the last. An empty line has one empty field, or none where
    /// blanks separate.
    bool next(Field& field);

    /// Whether an opening mark has no closing one: the record may go on in the next line.
    [[nodiscard]] bool open() const { return m_open; }

  private:
    bool takeQuoted(Field& field);
    void skipBlanks();
    [[nodiscard]] bool isSeparator(char c) const;
    [[nodiscard]] std::size_t closingMark(std::size_t from) const;

    std::string_view m_line;
    Dialect m_dialect;
    std::size_t m_at = 0;
    bool m_done = false;
    bool m_open = false;
    bool m_noClosing = false; ///< no mark behind m_at closes a field
};

/// The text of a quoted field with its escapes resolved.
[[nodiscard]] std::string withoutEscapes(std::string_view text, const Dialect& dialect);

/// Without blanks and tabs at both ends.
[[nodiscard]] std::string_view trimmed(std::string_view text);

} // namespace pellam
