#include "database/sessions/SqlTerm.h"

#include "database/sessions/Wildcards.h"

namespace pellam {

std::string compare(std::string_view column, std::string_view how, std::string_view value,
                    std::string_view tail) {
    std::string term(column);
    return term.append(how).append("'").append(value).append(tail).append("'");
}

std::string sqlTerm(std::string_view column, std::string_view value, bool mySql) {
    if (hasSqlWildcards(value)) return compare(column, " LIKE ", value);
    if (mySql) return compare(column, " LIKE ", value, "%");
    return compare(column, " = ", value);
}

std::string sqlSessionTerm(std::string_view session, bool mySql) {
    if (session == "%") return "session_id <> ''";
    return sqlTerm("session_id", session, mySql);
}

} // namespace pellam
