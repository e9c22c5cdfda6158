#include "database/sessions/SessionFilter.h"

#include "database/sessions/SessionTime.h"
#include "database/sessions/Session_Schedule_Info.h"

#include "ZoneScope.h"

namespace pellam {
namespace {

TEST(SessionFilter, TermsOfTheTexts) {
    // readingsMySql: "=" when the same
    const Table<SessionRequest, const char*, const char*> cases = {
        {{"", "Run1"}, "session_id = 'Run1'", "session_id LIKE 'Run1%'"},
        {{"", "*", "*", "*", "*", "*"}, "session_id <> ''", "="},
        {{"", "Run*", "S", "", "A"},
         "session_id LIKE 'Run%' AND site_id = 'S' AND schedule = 'A'",
         "session_id LIKE 'Run%' AND site_id LIKE 'S%' AND schedule LIKE 'A%'"},
        {{"", "R?n", "S*", "J?", "?", "L*"},
         "session_id LIKE 'R_n' AND site_id LIKE 'S%' AND job LIKE 'J_' AND schedule LIKE '_' AND "
         "label LIKE 'L%'",
         "="},
        {{"", "Run_1", "*", "J"},
         "session_id LIKE 'Run_1' AND job = 'J'",
         "session_id LIKE 'Run_1' AND job LIKE 'J%'"},
        {{"", "O'Brien", "N\\*!"},
         "session_id = 'O''Brien' AND site_id LIKE 'N\\%!!' ESCAPE '!'",
         "session_id LIKE 'O''Brien%' AND site_id LIKE 'N\\%!!' ESCAPE '!'"},
    };
    for (const auto& [asked, channels, readingsMySql] : cases) {
        const SessionRequest request = withSqlWildcards(asked);
        EXPECT_EQ(channelFilter(request, {true, false}), channels);
        EXPECT_EQ(readingFilter(request, {}), channels);
        const std::string mySql = readingsMySql;
        EXPECT_EQ(readingFilter(request, {true, false}), mySql == "=" ? channels : mySql);
    }
}

TEST(SessionFilter, EntryOfAChannel) {
    const SessionRequest request = withSqlWildcards({"", "Run", "S*", "*", "B", "L"});
    EXPECT_EQ(channelEntryFilter(request, 'A', {7, "Temp"}, {}),
              "session_id = 'Run' AND site_id LIKE 'S%' AND schedule = 'A' AND schedule_index = 7");
    EXPECT_EQ(channelEntryFilter(request, 'X', {-1, "Temp"}, {}),
              "session_id = 'Run' AND site_id LIKE 'S%' AND schedule = 'X' AND label = \"Temp\"");
}

TEST(SqlTerm, ATextNeverBecomesSql) {
    // backslashes: the text where a backslash changes what stands behind it
    const Table<const char*, const char*, const char*> cases = {
        {"O'Brien", "'O''Brien'", "="},
        {"' OR ''='", "''' OR ''''='''", "="},
        {"\\", "'\\'", "'\\\\'"},
        {"\\' OR 1=1 --", "'\\'' OR 1=1 --'", "'\\\\'' OR 1=1 --'"},
        {"\"", "'\"'", "="},
    };
    for (const auto& [text, plain, backslashes] : cases) {
        EXPECT_EQ(quotedSql(text, {}), plain);
        EXPECT_EQ(quotedSql(text, {false, true}), *backslashes == '=' ? plain : backslashes);
    }
    EXPECT_EQ(quotedSql("6\" 'pipe'", {}, '"'), "\"6\"\" 'pipe'\"");
}

// A bound is sent as it was typed, in every zone and season.
TEST(SessionFilter, RangeOfTimes) {
    const Table<const char*, const char*, const char*> cases = {
        {"2008/01/15,23:30:00", "2008/07/04,11:00:00",
         " AND data_time >= {ts '2008-01-15 23:30:00'} AND data_time <= {ts '2008-07-04 "
         "11:00:00'}"},
        {"2008/03/30,01:30:00", "2199/12/31,02:30:00",
         " AND data_time >= {ts '2008-03-30 01:30:00'} AND data_time <= {ts '2199-12-31 "
         "02:30:00'}"},
        {"1970/01/01,00:00:00", "1989/01/01,00:00:00", ""},
        {"1988/12/31,23:59:59", "1989/01/01,00:00:01",
         " AND data_time <= {ts '1989-01-01 00:00:01'}"},
    };
    for (const char* zone : {"UTC", "Europe/Dublin", "America/New_York", "Australia/Adelaide"}) {
        const ZoneScope scope(zone);
        for (const auto& [start, end, range] : cases) {
            const SessionRequest request{
                "", "Run", {}, {}, {}, {}, sessionTime(start).value(), sessionTime(end).value()};
            EXPECT_EQ(readingFilter(request, {}), std::string("session_id = 'Run'").append(range))
                << zone;
        }
    }
}

TEST(SessionListFilters, Lists) {
    // jobs, schedules: what these lists add to the condition of the site list
    const Table<const char*, const char*, const char*, const char*, const char*, const char*>
        cases = {
            {"exact", "Run1", "North", "session_id = 'Run1'", " and site_id = 'North'",
             " AND site_id = 'North'"},
            {"all", "*", "*", "session_id <> ''", " and site_id LIKE '%'", " AND site_id = '*'"},
            {"wildcards", "R?n*", "N*h?", "session_id LIKE 'R_n%'", " and site_id LIKE 'N%h_'",
             " AND site_id = 'N*h?'"},
            {"two stars are a pattern", "**", "**", "session_id LIKE '%%'",
             " and site_id LIKE '%%'", " AND site_id = '**'"},
            {"SQL's wildcards are plain here", "Run%", "N_", "session_id = 'Run%'",
             " and site_id = 'N_'", " AND site_id = 'N_'"},
            {"as it stands", "O'Hara \"Ü\"", "", "session_id = 'O''Hara \"Ü\"'",
             " and site_id = ''", " AND site_id = ''"},
        };
    for (const auto& [name, session, site, sites, jobs, schedules] : cases) {
        EXPECT_EQ(siteListFilter(session, {}), sites) << name;
        EXPECT_EQ(jobListFilter(session, site, {}), std::string(sites) + jobs) << name;
        EXPECT_EQ(scheduleListFilter(session, site, {}), std::string(sites) + schedules) << name;
    }
}

TEST(SessionListFilters, RangeOfTimes) {
    // earliest, latest: the session's term; others: what both go on with
    const Table<const char*, SessionRequest, bool, const char*, const char*, const char*> cases = {
        {"one session's job",
         {"", "Run1", "%", "North", "A"},
         false,
         "session_id LIKE 'Run1%'",
         "session_id = 'Run1'",
         " and job = 'North' and schedule = 'A'"},
        {"everything",
         {"", "%", "%", "%", "%"},
         false,
         "session_id LIKE '%%'",
         "session_id <> ''",
         ""},
        {"patterns",
         {"", "R_n%", "N%", "J_b", "_"},
         false,
         "session_id LIKE 'R_n%%'",
         "session_id LIKE 'R_n%'",
         " and site_id LIKE 'N%' and job LIKE 'J_b' and schedule LIKE '_'"},
        {"beginnings",
         {"", "Run1", "S", "J_b", "A"},
         true,
         "session_id LIKE 'Run1%'",
         "session_id LIKE 'Run1%'",
         " and site_id LIKE 'S%' and job LIKE 'J_b' and schedule LIKE 'A%'"},
        {"nothing chosen",
         {"", "", "", "", ""},
         false,
         "session_id LIKE '%'",
         "session_id = ''",
         " and site_id = '' and job = '' and schedule = ''"},
        {"everything by beginnings",
         {"", "%", "%", "", "%"},
         true,
         "session_id LIKE '%%'",
         "session_id <> ''",
         " and job LIKE '%'"},
    };
    for (const auto& [name, request, mySql, earliest, latest, others] : cases) {
        EXPECT_EQ(earliestFilter(request, {mySql, false}), std::string(earliest) + others) << name;
        EXPECT_EQ(latestFilter(request, {mySql, false}), std::string(latest) + others) << name;
    }
}

} // namespace
} // namespace pellam
