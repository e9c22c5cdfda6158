#include "database/SessionFilter.h"

#include "database/Session_Schedule_Info.h"

#include "../replay/LoadHarness.h"

namespace pellam {
namespace {

using test::Zone;

TEST(SessionFilter, TermsOfTheTexts) {
    const struct {
        SessionRequest request;
        const char* channels;
        const char* readingsMySql; ///< "=" when the same
    } cases[] = {
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
        {{"", "O'Brien"}, "session_id = 'O'Brien'", "session_id LIKE 'O'Brien%'"},
    };

    const TimeCorrections corrections;
    for (const auto& row : cases) {
        const SessionRequest request = withSqlWildcards(row.request);
        EXPECT_EQ(channelFilter(request), row.channels);
        EXPECT_EQ(readingFilter(request, false, corrections), row.channels);
        const std::string mySql = row.readingsMySql;
        EXPECT_EQ(readingFilter(request, true, corrections), mySql == "=" ? row.channels : mySql);
    }
}

TEST(SessionFilter, EntryOfAChannel) {
    const SessionRequest request = withSqlWildcards({"", "Run", "S*", "*", "B", "L"});
    EXPECT_EQ(channelEntryFilter(request, 'A', {7, "Temp"}),
              "session_id = 'Run' AND site_id LIKE 'S%' AND schedule = 'A' AND schedule_index = 7");
    EXPECT_EQ(channelEntryFilter(request, 'X', {-1, "Temp"}),
              "session_id = 'Run' AND site_id LIKE 'S%' AND schedule = 'X' AND label = \"Temp\"");
}

// Bounds come back as they were typed, summer or winter.
TEST(SessionFilter, RangeOfTimes) {
    const struct {
        const char* zone;
        const char* start;
        const char* end;
        const char* range;
    } cases[] = {
        {"UTC", "2008/02/25,10:00:00", "2008/07/04,11:00:00",
         " AND data_time >= {ts '2008-02-25 10:00:00'} AND data_time <= {ts '2008-07-04 "
         "11:00:00'}"},
        {"America/New_York", "2008/07/04,00:30:00", "2008/03/09,02:30:00",
         " AND data_time >= {ts '2008-07-04 00:30:00'} AND data_time <= {ts '2008-03-09 "
         "02:30:00'}"},
        {"Australia/Adelaide", "2008/01/15,23:30:00", "2008/04/06,02:30:00",
         " AND data_time >= {ts '2008-01-15 23:30:00'} AND data_time <= {ts '2008-04-06 "
         "02:30:00'}"},
        {"UTC", "1970/01/01,00:00:00", "1989/01/01,00:00:00", ""},
        {"UTC", "1988/12/31,23:59:59", "1989/01/01,00:00:01",
         " AND data_time <= {ts '1989-01-01 00:00:01'}"},
    };

    for (const auto& row : cases) {
        const Zone zone(row.zone);
        SessionRequest request{"", "Run"};
        request.start.ParseDateTime(row.start);
        request.end.ParseDateTime(row.end);
        EXPECT_EQ(readingFilter(request, false, TimeCorrections{}),
                  std::string("session_id = 'Run'").append(row.range))
            << row.zone;
    }
}

} // namespace
} // namespace pellam
