#include "database/sessions/SessionListFilters.h"

#include "database/sessions/SqlTerm.h"
#include "database/sessions/Wildcards.h"

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

std::string narrowed(std::string filter, const SessionRequest& request, bool mySql) {
    const auto add = [&](std::string_view column, const std::string& value) {
        if (value != "%") filter += " and " + sqlTerm(column, value, mySql);
    };
    add("site_id", request.site);
    add("job", request.job);
    add("schedule", request.schedule);
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

std::string earliestFilter(const SessionRequest& request, bool mySql) {
    return narrowed(compare("session_id", " LIKE ", request.session, "%"), request, mySql);
}

std::string latestFilter(const SessionRequest& request, bool mySql) {
    return narrowed(sqlSessionTerm(request.session, mySql), request, mySql);
}

} // namespace pellam
