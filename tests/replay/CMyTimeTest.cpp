#include "replay/time/CMyTime.h"
#include "ZoneScope.h"
#include "replay/time/TimeCorrections.h"

#include <cmath>
#include <limits>

namespace pellam {
namespace {

constexpr const char* kFull = "%Y/%m/%d %H:%M:%S";

std::string shown(const CMyTime& time) {
    return std::to_string(time.GetTotalSeconds()) + "+" + std::to_string(time.GetMicroSecond());
}

// Standard midnight is an hour late on summer clocks.
TEST(CMyTime, DatesBeginAtStandardMidnight) {
    // utc: the moment of its standard midnight; local: what the clocks there show then
    const Table<const char*, const char*, const char*, const char*> cases = {
        {"UTC", "2008/02/25", "2008/02/25 00:00:00", "2008/02/25 00:00:00"},
        {"America/New_York", "2008/02/25", "2008/02/25 05:00:00", "2008/02/25 00:00:00"},
        {"America/New_York", "2008/07/04", "2008/07/04 05:00:00", "2008/07/04 01:00:00"},
        {"America/New_York", "2008/03/09", "2008/03/09 05:00:00", "2008/03/09 00:00:00"},
        {"America/New_York", "2008/11/02", "2008/11/02 05:00:00", "2008/11/02 01:00:00"},
        {"Australia/Sydney", "2008/01/15", "2008/01/14 14:00:00", "2008/01/15 01:00:00"},
        {"Australia/Sydney", "2008/06/15", "2008/06/14 14:00:00", "2008/06/15 00:00:00"},
        {"Asia/Kolkata", "2008/02/25", "2008/02/24 18:30:00", "2008/02/25 00:00:00"},
        {"Asia/Kolkata", "2038/02/25", "2038/02/24 18:30:00", "2038/02/25 00:00:00"},
        {"UTC", "2009/02/30", "2009/03/02 00:00:00", "2009/03/02 00:00:00"},
        {"UTC", "2106/02/07", "2106/02/07 00:00:00", "2106/02/07 00:00:00"},
    };
    for (const auto& [zone, date, utc, local] : cases) {
        CMyTime time;
        {
            const ZoneScope scope(zone);
            ASSERT_EQ(time.ParseDate(date), 1);
            EXPECT_EQ(time.Format(kFull), local) << zone;
        }
        const ZoneScope scope("UTC");
        EXPECT_EQ(time.Format(kFull), utc) << zone << ' ' << date;
    }
}

TEST(CMyTime, YearsOutsideTheCountWrapAndNeverFail) {
    const ZoneScope utc("UTC");
    for (const char* date : {"1900/01/01", "1969/12/31", "2107/01/01", "9999/99/99",
                             "-999999999/1/1", "99999999999/99999999999/99999999999"}) {
        CMyTime time;
        EXPECT_EQ(time.ParseDate(date), 1) << date;
    }
    CMyTime before;
    before.ParseDateTime("1969/12/31 23:59:58");
    before += 3;
    EXPECT_EQ(shown(before), "1+0");
}

TEST(CMyTime, ParsesTimesOfDay) {
    // result: "=" when the value must be unchanged
    const Table<const char*, const char*> cases = {
        {"12:00:05", "43205+0"},
        {"12:00:05.5", "43205+500000"},
        {"12:00:05.25,7", "43205+250000"},
        {"12:00:05.1234567", "43205+1234567"},
        {"12:00:05.000488", "43205+488"},
        {"12:00:05.", "43205+0"},
        {"12:00:05,0.5", "43205+0"},
        {"112:00:05", "403205+0"},
        {"12:00:5.5", "43205+0"},
        {"ab:cd:ef", "0+0"},
        {"1:00:05", "="},
        {"12:00-05", "="},
        {"12-00-05", "="},
        {"", "="},
    };
    for (const auto& [text, result] : cases) {
        CMyTime time(0.000009);
        const std::string before = shown(time);
        EXPECT_EQ(time.ParseTime(text), *result == '=' ? 0 : 1) << text;
        EXPECT_EQ(shown(time), *result == '=' ? before : result) << text;
    }
}

TEST(CMyTime, ParsesDatesAndTimesInSixPieces) {
    const ZoneScope utc("UTC");
    const Table<const char*, const char*> cases = {
        {"2008/02/25,11:53:15", "2008/02/25 11:53:15"},
        {"2008/02/25, 11:53:15.9", "2008/02/25 11:53:15"},
        {"2008 2 25 1 2 3", "2008/02/25 01:02:03"},
        {"2008/x/25 11:53:15", "2007/12/25 11:53:15"},
        {"2008/02/25 11:53", "="},
        {"", "="},
    };
    for (const auto& [text, result] : cases) {
        CMyTime time(1.5);
        if (time.ParseDateTime(text) == 1) {
            EXPECT_EQ(time.Format(kFull), result) << text;
            EXPECT_EQ(time.GetMicroSecond(), 0U);
        } else {
            EXPECT_STREQ(result, "=") << text;
            EXPECT_EQ(shown(time), "1+500000");
        }
    }
    EXPECT_EQ(CMyTime().ParseDateTime(static_cast<const char*>(nullptr)), 0);
    CMyTime time(1.5);
    for (const char* text : {"2008/2/5", "2008-02-25", "2008/02-25"})
        EXPECT_EQ(time.ParseDate(text), 0) << text;
    EXPECT_EQ(shown(time), "1+500000");
}

TEST(CMyTime, AddsSubSecondFields) {
    const Table<const char*, const char*> cases = {{"0.25,1:A,7.5", "100+26"},
                                                   {"2.000488", "102+489"},
                                                   {"0000,1:A,7.5,3.9", "100+6"},
                                                   {"1000", "1100+1"},
                                                   {"0.5", "="},
                                                   {"", "="}};
    for (const auto& [text, result] : cases) {
        CMyTime time(100.000001);
        EXPECT_EQ(time.SetDateTimeOffset(text), *result == '=' ? 0 : 1) << text;
        EXPECT_EQ(shown(time), *result == '=' ? "100+1" : result) << text;
    }
}

TEST(CMyTime, ArithmeticNeverCarries) {
    EXPECT_EQ(shown(CMyTime(1.7) + CMyTime(2.7)), "3+1400000");
    EXPECT_EQ(shown(CMyTime(3.25) - CMyTime(1.75)), "2+4294467296");
    EXPECT_EQ(shown(CMyTime(10.5) + 2.9), "12+500000");
    EXPECT_EQ(shown(CMyTime(10.5) - 2), "8+500000");
    EXPECT_EQ(shown(CMyTime(0) - 1), "4294967295+0");
    EXPECT_EQ(shown(CMyTime(std::nan("")) + std::numeric_limits<double>::infinity()),
              shown(CMyTime(0) + 9e18));
}

TEST(CMyTime, ComparesByItsRules) {
    EXPECT_TRUE(CMyTime(5.25) > CMyTime(5.125));
    EXPECT_TRUE(CMyTime(4'000'000'000U) > CMyTime(5));
    EXPECT_FALSE(CMyTime(5) != 5.75);
    EXPECT_TRUE(CMyTime(5.25) != 5.25);
    EXPECT_FALSE(CMyTime(5.25) != CMyTime::CalendarTime(std::chrono::seconds(5)));
    EXPECT_TRUE(CMyTime(4'000'000'000U) > 5);
    EXPECT_FALSE(CMyTime(4'000'000'000U) >= 5);
    EXPECT_TRUE(CMyTime(5) < -1);
}

TEST(CMyTime, GivesItsParts) {
    const ZoneScope kolkata("Asia/Kolkata");
    CMyTime time;
    time.ParseDateTime("2008/02/25 01:02:03");
    EXPECT_EQ(time.GetMonth(), 2008);
    EXPECT_EQ(time.GetDay(), 2008);
    EXPECT_EQ(time.GetHour() * 10000 + time.GetMinute() * 100 + time.GetSecond(), 10203);
    EXPECT_EQ(time.GetSecondsSinceMidnight(), 19U * 3600 + 32 * 60 + 3);
    EXPECT_EQ(time.GetTotalDays(), 13933U);
    const CMyTime sub(86400.5);
    EXPECT_EQ(sub.GetMyTime(), 86400.5);
    EXPECT_EQ(sub.GetTrendTime(), 86900.0);
    const FileTime ticks = sub.GetFILETIME();
    EXPECT_EQ((std::uint64_t{ticks.high} << 32) + ticks.low, 116445600005000000U);
}

TEST(CMyTime, OleDatesAreLocal) {
    const ZoneScope york("America/New_York");
    const CMyTime summer(OleDate{39633.5 + 0.25 / 86400}); // 2008-07-04 12:00:00.25
    EXPECT_EQ(summer.Format(kFull), "2008/07/04 12:00:00");
    EXPECT_NEAR(summer.GetOLEDateTime().days, 39633.5, 1e-9);
    EXPECT_NEAR((summer + CMyTime(0.5)).GetOLEDateTime().days, 39633.5 + 0.5 / 86400, 1e-9);
    EXPECT_EQ(CMyTime(OleDate{39633 + 12345.0 / 86400}).Format("%H:%M:%S"), "03:25:45");
    for (const double days : {-1.25, 1e9, std::nan(""), 100000.0})
        EXPECT_EQ(shown(CMyTime(OleDate{days})), "0+0") << days;
}

TEST(CMyTime, FormatsFractionsOnlyWhereThePatternAsks) {
    const ZoneScope york("America/New_York");
    CMyTime time;
    time.ParseDateTime("2008/07/04 11:30:00"); // daylight saving: the clocks show 12:30
    time += CMyTime(0.1235);
    EXPECT_EQ(time.Format(kFull), "2008/07/04 12:30:00");
    EXPECT_EQ(time.Format("%s"), "1215189000.123");
    EXPECT_EQ(time.FormatLocalNoDST(kFull), "2008/07/04 11:30:00");
    EXPECT_EQ(time.FormatLocalNoDST("%X"), "11:30:00.1235");
    EXPECT_EQ(time.Format(std::string(200, 'x').c_str()), "");
    EXPECT_TRUE(time.IsDaylightTime());
}

TEST(CMyTime, ClocksAgreeToTheSecond) {
    const double now = static_cast<double>(std::time(nullptr));
    EXPECT_NEAR(CMyTime::GetTickCount(), now, 1.01);
    EXPECT_NEAR(CMyTime::GetTrendCurrentTime(), now, 2.0);
    EXPECT_LT(std::fmod(CMyTime::GetTickCount(), 1.0), 0.001);
}

TEST(TimeCorrections, ComeFromTheZone) {
    constexpr std::int64_t kJanuary = 1'200'355'200; // 2008-01-15
    constexpr std::int64_t kJuly = 1'216'080'000;    // 2008-07-15
    const Table<const char*, std::int64_t, int, int> rows = {
        {"UTC", kJuly, 0, 0},
        {"America/New_York", kJanuary, 18000, 0},
        {"America/New_York", kJuly, 18000, -3600},
        {"Australia/Sydney", kJanuary, -36000, -3600},
        {"Australia/Sydney", kJuly, -36000, 0},
        {"Australia/Lord_Howe", kJanuary, -37800, -1800},
        {"Asia/Kolkata", kJanuary, -19800, 0}};
    for (const auto& [zone, now, standard, daylight] : rows) {
        const ZoneScope scope(zone);
        const TimeCorrections corrections = TimeCorrections::fromZone(now);
        EXPECT_EQ(corrections.standardBias, standard) << zone;
        EXPECT_EQ(corrections.daylightBias, daylight) << zone;
    }
}

} // namespace
} // namespace pellam
