#include "database/SessionTime.h"

#include "views/ZoneScope.h"

#include <gtest/gtest.h>

namespace pellam {
namespace {

struct Row {
    const char* text;
    const char* formatted; ///< "-" for no time
};

TEST(SessionTimeTest, ReadsItsOneFormInEveryZone) {
    const Row rows[] = {
        {"2024/07/31,02:30:15", "2024/07/31 02:30:15"},
        {"2024/10/27,02:30:00", "2024/10/27 02:30:00"},
        {"1971/01/01,00:00:00", "1971/01/01 00:00:00"},
        {"2024/02/29,23:59:59", "2024/02/29 23:59:59"},
        {"2023/02/29,23:59:59", "-"},
        {"2024/13/01,00:00:00", "-"},
        {"2024/01/01,24:00:00", "-"},
        {"2024/01/01 00:00:00", "-"},
        {"2024/1/1,00:00:00", "-"},
        {"2024/01/01", "-"},
        {"2024/01/01,00:00:00 ", "-"},
        {"yyyy/MM/dd,HH:mm:ss", "-"},
        {"", "-"},
    };
    for (const char* zone : {"UTC", "America/New_York", "Europe/Berlin", "Australia/Adelaide"}) {
        const ZoneScope scope(zone);
        for (const auto& row : rows) {
            const auto time = sessionTime(row.text);
            EXPECT_EQ(time ? time->FormatLocalNoDST("%Y/%m/%d %H:%M:%S") : "-", row.formatted)
                << row.text << ' ' << zone;
        }
        for (const char* text :
             {"1969/12/31,23:00:00", "1970/01/01,00:00:00", "0001/01/01,00:00:00"})
            EXPECT_EQ(sessionTime(text), CMyTime()) << zone << " sets no bound";
        EXPECT_GT(sessionTime("9999/12/31,00:00:00"), sessionTime("2105/12/31,23:59:59")) << zone;
    }
}

} // namespace
} // namespace pellam
