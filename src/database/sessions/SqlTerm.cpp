#include "database/sessions/SqlTerm.h"

#include <algorithm>

namespace pellam {

bool hasWildcards(std::string_view text) {
    return text.find_first_of("*?") != std::string_view::npos;
}

bool hasSqlWildcards(std::string_view text) {
    return text.find_first_of("%_") != std::string_view::npos;
}

std::string toSqlWildcards(std::string_view text) {
    std::string sql(text);
    std::replace(sql.begin(), sql.end(), '*', '%');
    std::replace(sql.begin(), sql.end(), '?', '_');
    return sql;
}

std::string quotedSql(std::string_view text, const SqlRules& rules, char quote) {
    std::string quoted(1, quote);
    for (const char c : text)
        quoted.append(c == quote || (c == '\\' && rules.backslashes) ? 2 : 1, c);
    return quoted += quote;
}

std::string SqlTerm::equals(std::string_view column, std::string_view value) const {
    return std::string(column).append(" = ").append(quotedSql(value, m_rules));
}

std::string SqlTerm::like(std::string_view column, std::string_view pattern) const {
    std::string term(column);
    term.append(" LIKE ");
    if (pattern.find('\\') == std::string_view::npos)
        return term.append(quotedSql(pattern, m_rules));
    // Many servers take a backslash in a pattern for a mark of their own, unless another is named.
    std::string marked;
    for (const char c : pattern)
        marked.append(c == '!' ? 2 : 1, c);
    return term.append(quotedSql(marked, m_rules)).append(" ESCAPE '!'");
}

std::string SqlTerm::fits(std::string_view column, std::string_view value) const {
    if (hasSqlWildcards(value)) return like(column, value);
    return m_rules.beginnings ? like(column, std::string(value) + '%') : equals(column, value);
}

std::string SqlTerm::session(std::string_view session) const {
    return session == "%" ? "session_id <> ''" : fits("session_id", session);
}

} // namespace pellam
