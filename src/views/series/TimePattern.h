#pragma once

#include "views/series/TimeText.h"

#include <string>
#include <string_view>
#include <vector>

namespace pellam {

struct InternationalSettings;

/// A date pattern such as "dd/MM/yyyy" followed by a time pattern such as "HH:mm:ss", as people's
/// settings have them: d, M, y, h, H, m, s and t (morning or afternoon) count, in any number; MMM
/// is an English month name. '/', '.' and '-' stand for each other; seconds may be missing.
class TimePattern {
  public:
    TimePattern(std::string_view datePattern, const InternationalSettings& settings);

    /// Reads a text of the pattern, perhaps with a fraction of a second, or its date alone.
    [[nodiscard]] std::optional<TimeStamp> parse(std::string_view text, FractionUnit unit) const;

  private:
    struct Token {
        char kind = 0; ///< letter of the field, or ' ' or the literal character
        int length = 0;
    };

    void add(std::string_view pattern);
    bool takeField(const Token& token, TimeScanner& scanner, TimeFields& fields) const;
    bool takeLiteral(char literal, TimeScanner& scanner) const;
    bool takeHalf(TimeScanner& scanner, TimeFields& fields) const;

    std::vector<Token> m_date;
    std::string m_am;
    std::string m_pm;
};

} // namespace pellam
