#include "database/sessions/SessionFilter.h"

#include "database/sessions/Session_Schedule_Info.h"

#include <array>

namespace pellam {

namespace {

constexpr CTime kFirstDay{1989, 1, 1}; // up to its beginning a time sets no bound

void addTerm(std::string& filter, const SqlTerm& term, std::string_view column,
             std::string_view value) {
    if (value.empty() || value == "%") return;
    filter.append(" AND ").append(term.fits(column, value));
}

std::string textFilter(const SessionRequest& request, const SqlRules& rules) {
    const SqlTerm term(rules);
    std::string filter = term.session(request.session);
    addTerm(filter, term, "site_id", request.site);
    addTerm(filter, term, "job", request.job);
    addTerm(filter, term, "schedule", request.schedule);
    addTerm(filter, term, "label", request.label);
    return filter;
}

// ODBC's form of a time, which every driver turns into its server's own.
void addBound(std::string& filter, std::string_view how, const CTime& time) {
    if (time.year < kFirstDay.year || time == kFirstDay) return;
    std::array<char, 48> text;
    char* end = time.writeDate(text.data());
    for (char* c = text.data(); c != end; ++c)
        if (*c == '/') *c = '-';
    *end++ = ' ';
    end = time.writeTime(end);
    filter.append(" AND data_time ").append(how).append(" {ts '");
    filter.append(text.data(), end).append("'}");
}

// A term for a value with the person's wildcards, which become SQL's.
std::string typedTerm(const SqlTerm& term, std::string_view column, std::string_view value) {
    return hasWildcards(value) ? term.like(column, toSqlWildcards(value))
                               : term.equals(column, value);
}

std::string typedSession(const SqlTerm& term, std::string_view session) {
    return session == "*" ? "session_id <> ''" : typedTerm(term, "session_id", session);
}

std::string narrowed(std::string filter, const SessionRequest& request, const SqlTerm& term) {
    const auto add = [&](std::string_view column, const std::string& value) {
        if (value != "%") filter += " and " + term.fits(column, value);
    };
    add("site_id", request.site);
    add("job", request.job);
    add("schedule", request.schedule);
    return filter;
}

} // namespace

SessionRequest withSqlWildcards(SessionRequest request) {
    for (std::string* text :
         {&request.session, &request.site, &request.job, &request.schedule, &request.label}) {
        *text = toSqlWildcards(*text);
    }
    return request;
}

std::string channelFilter(const SessionRequest& request, SqlRules rules) {
    rules.beginnings = false;
    return textFilter(request, rules);
}

std::string channelEntryFilter(const SessionRequest& request, char letter,
                               const Session_Channel_Info& channel, SqlRules rules) {
    rules.beginnings = false;
    const SqlTerm term(rules);
    std::string filter = term.session(request.session);
    addTerm(filter, term, "site_id", request.site);
    addTerm(filter, term, "job", request.job);
    filter.append(" AND schedule = '").append(1, letter).append("'");
    if (channel.scheduleIndex != -1) {
        return filter.append(" AND schedule_index = ")
            .append(std::to_string(channel.scheduleIndex));
    }
    return filter.append(" AND label = ").append(quotedSql(channel.label, rules, '"'));
}

std::string readingFilter(const SessionRequest& request, const SqlRules& rules) {
    std::string filter = textFilter(request, rules);
    addBound(filter, ">=", request.start);
    addBound(filter, "<=", request.end);
    return filter;
}

std::string siteListFilter(std::string_view session, const SqlRules& rules) {
    return typedSession(SqlTerm(rules), session);
}

std::string jobListFilter(std::string_view session, std::string_view site, const SqlRules& rules) {
    const SqlTerm term(rules);
    return typedSession(term, session) + " and " + typedTerm(term, "site_id", site);
}

std::string scheduleListFilter(std::string_view session, std::string_view site,
                               const SqlRules& rules) {
    const SqlTerm term(rules);
    return typedSession(term, session) + " AND " + term.equals("site_id", site);
}

std::string earliestFilter(const SessionRequest& request, const SqlRules& rules) {
    const SqlTerm term(rules);
    return narrowed(term.like("session_id", request.session + '%'), request, term);
}

std::string latestFilter(const SessionRequest& request, const SqlRules& rules) {
    const SqlTerm term(rules);
    return narrowed(term.session(request.session), request, term);
}

} // namespace pellam
