#include "database/sessions/Wildcards.h"

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

} // namespace pellam
