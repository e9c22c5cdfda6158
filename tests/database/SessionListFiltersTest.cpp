#include "database/SessionListFilters.h"

#include <gtest/gtest.h>

namespace pellam {
namespace {

struct ListCase {
    const char* name;
    const char* session;
    const char* site;
    const char* sites;
    const char* jobs;      ///< what the job list adds to the condition of the site list
    const char* schedules; ///< the same of the schedule list
};

TEST(SessionListFiltersTest, Lists) {
    const ListCase cases[] = {
        {"exact", "Run1", "North", "session_id = 'Run1'", " and site_id = 'North'",
         " AND site_id = 'North'"},
        {"all", "*", "*", "session_id <> ''", " and site_id LIKE '%'", " AND site_id = '*'"},
        {"wildcards", "R?n*", "N*h?", "session_id LIKE 'R_n%'", " and site_id LIKE 'N%h_'",
         " AND site_id = 'N*h?'"},
        {"two stars are a pattern", "**", "**", "session_id LIKE '%%'", " and site_id LIKE '%%'",
         " AND site_id = '**'"},
        {"SQL's wildcards are plain here", "Run%", "N_", "session_id = 'Run%'",
         " and site_id = 'N_'", " AND site_id = 'N_'"},
        {"as it stands", "O'Hara \"Ü\"", "", "session_id = 'O'Hara \"Ü\"'", " and site_id = ''",
         " AND site_id = ''"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(siteListFilter(row.session), row.sites) << row.name;
        EXPECT_EQ(jobListFilter(row.session, row.site), std::string(row.sites) + row.jobs)
            << row.name;
        EXPECT_EQ(scheduleListFilter(row.session, row.site), std::string(row.sites) + row.schedules)
            << row.name;
    }
}

struct RangeCase {
    const char* name;
    SessionChoice choice;
    bool mySql;
    const char* earliest; ///< the session's term
    const char* latest;   ///< the same
    const char* others;   ///< what both go on with
};

TEST(SessionListFiltersTest, RangeOfTimes) {
    const RangeCase cases[] = {
        {"one session's job",
         {"Run1", "%", "North", "A"},
         false,
         "session_id LIKE 'Run1%'",
         "session_id = 'Run1'",
         " and job = 'North' and schedule = 'A'"},
        {"everything", {"%", "%", "%", "%"}, false, "session_id LIKE '%%'", "session_id <> ''", ""},
        {"patterns",
         {"R_n%", "N%", "J_b", "_"},
         false,
         "session_id LIKE 'R_n%%'",
         "session_id LIKE 'R_n%'",
         " and site_id LIKE 'N%' and job LIKE 'J_b' and schedule LIKE '_'"},
        {"beginnings",
         {"Run1", "S", "J_b", "A"},
         true,
         "session_id LIKE 'Run1%'",
         "session_id LIKE 'Run1%'",
         " and site_id LIKE 'S%' and job LIKE 'J_b' and schedule LIKE 'A%'"},
        {"nothing chosen",
         {"", "", "", ""},
         false,
         "session_id LIKE '%'",
         "session_id = ''",
         " and site_id = '' and job = '' and schedule = ''"},
        {"everything by beginnings",
         {"%", "%", "", "%"},
         true,
         "session_id LIKE '%%'",
         "session_id <> ''",
         " and job LIKE '%'"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(earliestFilter(row.choice, row.mySql), std::string(row.earliest) + row.others)
            << row.name;
        EXPECT_EQ(latestFilter(row.choice, row.mySql), std::string(row.latest) + row.others)
            << row.name;
    }
}

} // namespace
} // namespace pellam
