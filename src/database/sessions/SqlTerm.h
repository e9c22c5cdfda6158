#pragma once

#include <string>
#include <string_view>

namespace pellam {

/// Whether a person's text has wildcards: '*' for any run of characters, '?' for one.
[[nodiscard]] bool hasWildcards(std::string_view text);

/// Whether a text has SQL's own: '%' or '_'.
[[nodiscard]] bool hasSqlWildcards(std::string_view text);

/// The text with each '*' turned into '%' and each '?' into '_'; nothing else changes.
[[nodiscard]] std::string toSqlWildcards(std::string_view text);

/// How a data source takes texts.
struct SqlRules {
    bool beginnings = false;  ///< an exact value is compared as the beginning of a text
    bool backslashes = false; ///< in a quoted text a backslash changes the character behind it
};

/// A text as SQL has it, between quotes: those within it are doubled, and backslashes where they
/// would change what follows. Whatever the text holds, it ends at the last quote.
[[nodiscard]] std::string quotedSql(std::string_view text, const SqlRules& rules,
                                    char quote = '\'');

/// Terms of a condition. Values are texts, never SQL, whatever they hold.
class SqlTerm {
  public:
    explicit SqlTerm(const SqlRules& rules) : m_rules(rules) {}

    [[nodiscard]] std::string equals(std::string_view column, std::string_view value) const;

    /// `pattern` has SQL's wildcards; nothing else in it has a meaning of its own.
    [[nodiscard]] std::string like(std::string_view column, std::string_view pattern) const;

    /// For a value that may have SQL's wildcards; one without is compared by the rules.
    [[nodiscard]] std::string fits(std::string_view column, std::string_view value) const;

    /// fits() for the session, where the wildcard for any run of characters alone asks for a name
    /// that is not empty.
    [[nodiscard]] std::string session(std::string_view session) const;

  private:
    SqlRules m_rules;
};

} // namespace pellam
