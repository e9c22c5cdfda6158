// How times, values and SQL texts are read and written.

#include "SessionLoad.h"
#include "ZoneScope.h"
#include "database/odbc/CTime.h"
#include "database/odbc/SqlText.h"
#include "database/sessions/SessionTime.h"
#include "database/sessions/SessionValueText.h"

#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <sstream>

namespace pellam {
namespace {

std::string shown(const CTime& time) {
    char text[48];
    char* end = time.writeDate(text);
    *end++ = ' ';
    return {text, time.writeTime(end)};
}

TEST(CTime, ReadsTextsOfTimes) {
    // time: "" for none
    const Table<const char*, const char*> cases = {
        {"2008-02-25 10:01:02", "2008/02/25 10:01:02"},
        {"2008-02-25T10:01:02", "2008/02/25 10:01:02"},
        {"2008-02-25 10:01:02.250", "2008/02/25 10:01:02"},
        {"2008-02-25 10:01:02.999999", "2008/02/25 10:01:02"},
        {" 2008-02-25 23:59:59 \n", "2008/02/25 23:59:59"},
        {"2008-02-25", "2008/02/25 00:00:00"},
        {"2008-02-25 10:01:02+02", "2008/02/25 10:01:02"},
        {"2008-02-25 10:01", ""},
        {"2008-02-25 10:01:02x", ""},
        {"2008-02-25x10:01:02", ""},
        {"2008-02-25 24:01:02", ""},
        {"2008-13-25 10:01:02", ""},
        {"2008-00-25 10:01:02", ""},
        {"2008-2-25 10:01:02", ""},
        {"1203933662", ""},
        {"soon", ""},
        {"", ""},
    };
    for (const auto& [text, time] : cases) {
        const CTime read = CTime::parse(text);
        EXPECT_EQ(read.isNull() ? "" : shown(read), time) << text;
    }
}

TEST(SessionTime, ReadsItsOneFormInEveryZone) {
    // formatted: "-" for no time
    const Table<const char*, const char*> rows = {
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
        for (const auto& [text, formatted] : rows) {
            const auto time = sessionTime(text);
            EXPECT_EQ(time ? test::shown(*time) : "-", formatted) << text << ' ' << zone;
        }
    }
}

std::string whole(double value) {
    char text[SessionValueText::kRoom];
    return {text, SessionValueText::writeWhole(value, text)};
}

TEST(SessionValueText, WholeNumbersAreThoseOfTheCLibrary) {
    std::vector<double> values;
    std::istringstream texts(
        "0 -0 0.5 1.5 2.5 -0.5 -0.2 23.4 99999.9 1e15 1e16 1e22 4503599627370495.5 "
        "4503599627370497.5 9007199254740991 9007199254740993 1e300 -1e300 "
        "1.7976931348623157e308 5e-324 inf -inf nan -nan");
    for (std::string text; texts >> text;)
        values.push_back(std::strtod(text.c_str(), nullptr));
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> exponent(-20, 300);
    for (int i = 0; i < 20000; ++i) {
        const double size = std::pow(10.0, exponent(random));
        values.insert(values.end(),
                      {size, -size, std::floor(size) + 0.5, static_cast<double>(i) / 4});
    }
    char expected[400];
    for (const double value : values) {
        std::snprintf(expected, sizeof expected, "%#.f", value);
        ASSERT_EQ(whole(value), expected) << value;
    }
}

TEST(SessionValueText, AutomationDates) {
    const Table<double, const char*> cases = {
        {0, "1899/12/30 00:00:00"},
        {0.5, "1899/12/30 12:00:00"},
        {39503.75, "2008/02/25 18:00:00"},
        {25569 + 1203933662 / 86400.0, "2008/02/25 10:01:02"},
        {45352.999999999, "2024/03/02 00:00:00"},
        {-1.25, "1899/12/29 06:00:00"},
        {-657434, "0100/01/01 00:00:00"},
        {2958465.5, "9999/12/31 12:00:00"},
        {2958466, "2958466. 2958466."},
        {-657435, "-657435. -657435."},
        {std::numeric_limits<double>::infinity(), "inf inf"},
    };
    for (const auto& [days, expected] : cases) {
        char text[2 * SessionValueText::kRoom];
        char* end = SessionValueText::writeDate(days, text);
        *end++ = ' ';
        EXPECT_EQ(std::string(text, SessionValueText::writeTime(days, end)), expected);
    }
}

TEST(SqlText, NamesAndQuotesAsTheDriverTakesThem) {
    EXPECT_EQ(withNativeNames("Min([data_time])", "\""), "Min(data_time)");
    EXPECT_EQ(withNativeNames("[data header].[2nd]", "`"), "`data header`.`2nd`");
    EXPECT_EQ(withNativeNames("[data header], [open", ""), "[data header], [open");
    const Table<const char*, const char*> cases = {
        {"a = 'x' AND label = \"L\"", "a = 'x' AND label = 'L'"},
        {"a = '6\" pipe'", "a = '6\" pipe'"},
        {"a = '6\" pipe' AND label = \"L\"", "a = '6\" pipe' AND label = 'L'"},
        {"a = 'it''s' AND label = \"6\"\" \"\"pipe\"\"\"",
         "a = 'it''s' AND label = '6\" \"pipe\"'"},
        {"label = \"O'Brien\"", "label = 'O''Brien'"},
        {"label = \"\"", "label = ''"},
        {"label = \"", "label = \""},
        {"schedule_index = 3", "schedule_index = 3"},
    };
    for (const auto& [condition, single] : cases)
        EXPECT_EQ(withSingleQuotes(condition), single);
}

} // namespace
} // namespace pellam
