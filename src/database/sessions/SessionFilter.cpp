#include "database/sessions/SessionFilter.h"

#include "database/sessions/Session_Schedule_Info.h"
#include "database/sessions/SqlTerm.h"
#include "database/sessions/Wildcards.h"

namespace pellam {

namespace {

void addTerm(std::string& filter, std::string_view column, std::string_view value, bool mySql) {
    if (value.empty() || value == "%") return;
    filter.append(" AND ").append(sqlTerm(column, value, mySql));
}

std::string textFilter(const SessionRequest& request, bool mySql) {
    std::string filter = sqlSessionTerm(request.session, mySql);
    addTerm(filter, "site_id", request.site, mySql);
    addTerm(filter, "job", request.job, mySql);
    addTerm(filter, "schedule", request.schedule, mySql);
    addTerm(filter, "label", request.label, mySql);
    return filter;
}

void addBound(std::string& filter, std::string_view how, const CMyTime& time) {
    filter.append(" AND data_time ").append(how).append(" {ts '");
    filter.append(time.FormatLocalNoDST("%Y-%m-%d %H:%M:%S")).append("'}");
}

} // namespace

SessionRequest withSqlWildcards(SessionRequest request) {
    for (std::string* text :
         {&request.session, &request.site, &request.job, &request.schedule, &request.label}) {
        *text = toSqlWildcards(*text);
    }
    return request;
}

std::string channelFilter(const SessionRequest& request) {
    return textFilter(request, false);
}

std::string channelEntryFilter(const SessionRequest& request, char letter,
                               const Session_Channel_Info& channel) {
    std::string filter = sqlSessionTerm(request.session, false);
    addTerm(filter, "site_id", request.site, false);
    addTerm(filter, "job", request.job, false);
    filter.append(" AND schedule = '").append(1, letter).append("'");
    if (channel.scheduleIndex != -1) {
        return filter.append(" AND schedule_index = ")
            .append(std::to_string(channel.scheduleIndex));
    }
    return filter.append(" AND label = \"").append(channel.label).append("\"");
}

std::string readingFilter(const SessionRequest& request, bool mySql,
                          const TimeCorrections& corrections) {
    std::string filter = textFilter(request, mySql);
    CMyTime threshold;
    threshold.ParseDate("1989/01/01");
    threshold += corrections.standardBias;
    threshold += corrections.daylightBias;
    if (request.start > threshold) addBound(filter, ">=", request.start);
    if (request.end > threshold) addBound(filter, "<=", request.end);
    return filter;
}

} // namespace pellam
