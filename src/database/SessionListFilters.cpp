#include "database/SessionListFilters.h"

#include "database/SqlTerm.h"
#include "database/Wildcards.h"

namespace pellam {

namespace {

// A term for a value with the person's wildcards, which become SQL's.
std::string typedTerm(std::string_view column, std::string_view value) {
    if (hasWildcards(value)) return compare(column, " LIKE ", toSqlWildcards(value));
    return compare(column, " = ", value);
}

std::string sessionTerm(std::string_view session) {
    return session == "*" ? "session_id <> ''" : typedTerm("session_id", session);
}

std::string narrowed(std::string filter, const SessionChoice& choice, bool mySql) {
    const auto add = [&](std::string_view column, const std::string& value) {
        if (value != "%") filter += " and " + sqlTerm(column, value, mySql);
    };
    add("site_id", choice.site);
    add("job", choice.job);
    add("schedule", choice.schedule);
    return filter;
}

} // namespace

std::string siteListFilter(std::string_view session) {
    return sessionTerm(session);
}

std::string jobListFilter(std::string_view session, std::string_view site) {
    return sessionTerm(session) + " and " + typedTerm("site_id", site);
}

std::string scheduleListFilter(std::string_view session, std::string_view site) {
    return sessionTerm(session) + " AND " + compare("site_id", " = ", site);
}

std::string earliestFilter(const SessionChoice& choice, bool mySql) {
    return narrowed(compare("session_id", " LIKE ", choice.session, "%"), choice, mySql);
}

std::string latestFilter(const SessionChoice& choice, bool mySql) {
    return narrowed(sqlSessionTerm(choice.session, mySql), choice, mySql);
}

} // namespace pellam
