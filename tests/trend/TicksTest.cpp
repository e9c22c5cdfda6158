#include "trend/curves/ScaleMap.h"
#include "trend/ticks/DecimalTicks.h"
#include "trend/ticks/LogTicks.h"
#include "trend/ticks/TimeTicks.h"
#include "trend/ticks/XAxisTicks.h"

#include <algorithm>

using namespace pellam;

namespace {

QString majors(const std::vector<AxisTick>& ticks) {
    QStringList texts;
    for (const AxisTick& tick : ticks) {
        if (!tick.major) continue;
        texts += tick.context.isEmpty() ? tick.label
                                        : QStringLiteral("%1 (%2)").arg(tick.label, tick.context);
    }
    return texts.join(u' ');
}

double utc(const char* text) {
    return static_cast<double>(
               QDateTime::fromString(QString::fromLatin1(text) + u'Z', Qt::ISODateWithMs)
                   .toMSecsSinceEpoch()) /
           1000;
}

} // namespace

TEST(DecimalTicks, AreRound) {
    const Table<const char*, double, double, int, const char*> rows = {
        {"hundreds", 0, 100, 6, "0 20 40 60 80 100"},
        {"through zero", -2.2, 8.8, 7, "-2 0 2 4 6 8"},
        {"fractions", 0.1, 0.35, 6, "0.10 0.15 0.20 0.25 0.30 0.35"},
        {"far from zero", 1000000.1, 1000000.3, 3, "1000000.1 1000000.2 1000000.3"},
        {"large", 0, 3e9, 4, "0 1e9 2e9 3e9"},
        {"small", 0, 3e-8, 4, "0 1e-8 2e-8 3e-8"},
        {"one form", -1e9, 1e9, 5, "-1.0e9 -0.5e9 0 0.5e9 1.0e9"},
        {"one form over a power of ten", 9.8e6, 1.02e7, 5, "0.98e7 0.99e7 1.00e7 1.01e7 1.02e7"},
        {"reversed", 1, 0, 4, ""},
    };
    for (const auto& [name, min, max, labels, expected] : rows)
        EXPECT_EQ(majors(DecimalTicks::find(min, max, labels)).toStdString(), expected) << name;
}

TEST(LogTicks, StandAtDecades) {
    const Table<const char*, double, double, int, const char*, std::size_t> rows = {
        {"three decades", 1, 1000, 5, "1 10 100 1000", 28},
        {"plain to a million", 1e-3, 1e6, 9, "0.001 0.01 0.1 1 10 100 1000 10000 100000 1000000",
         82},
        {"one decade", 1, 10, 6, "1 2 5 10", 10},
        {"powers", 1e-5, 1e-3, 3, "10⁻⁵ 10⁻⁴ 10⁻³", 19},
        {"many decades", 1e-10, 1e10, 5, "10⁻⁸ 10⁻⁴ 1 10⁴ 10⁸", 21},
        {"hundreds of decades", 1, 1e300, 6, "1 10⁵⁰ 10¹⁰⁰ 10¹⁵⁰ 10²⁰⁰ 10²⁵⁰ 10³⁰⁰", 31},
        {"part of a decade", 3, 8, 6, "3 4 5 6 7 8", 26},
        {"not above zero", 0, 10, 5, "", 0},
    };
    for (const auto& [name, min, max, labels, expected, all] : rows) {
        const auto ticks = LogTicks::find(min, max, labels);
        EXPECT_EQ(majors(ticks).toStdString(), expected) << name;
        EXPECT_EQ(ticks.size(), all) << name;
    }
}

TEST(TimeTicks, FallOnRoundLocalTimes) {
    const Table<const char*, const char*, const char*, int, const char*> rows = {
        {"UTC", "2024-05-01T10:00:00.100", "2024-05-01T10:00:00.104", 5,
         "00.100 (1 May 2024 10:00) 00.101 00.102 00.103 00.104"},
        {"UTC", "2024-05-01T23:59:50", "2024-05-02T00:00:10", 4,
         "23:59:50 (1 May 2024) 23:59:55 00:00:00 (2 May 2024) 00:00:05 00:00:10"},
        {"Asia/Kolkata", "2024-05-01T18:00:00", "2024-05-01T22:00:00", 4,
         "00:00 (2 May 2024) 01:00 02:00 03:00"},
        {"America/New_York", "2024-03-10T05:00:00", "2024-03-10T09:00:00", 4,
         "00:00 (10 Mar 2024) 01:00 03:00 (EDT) 04:00 05:00"},
        {"America/New_York", "2024-11-03T04:00:00", "2024-11-03T08:00:00", 4,
         "00:00 (3 Nov 2024) 01:00 01:00 (EST) 02:00 03:00"},
        {"Australia/Sydney", "2024-04-06T14:00:00", "2024-04-06T18:00:00", 4,
         "01:00 (7 Apr 2024) 02:00 02:00 (AEST) 03:00 04:00"},
        {"Australia/Lord_Howe", "2024-04-06T14:00:00", "2024-04-06T16:30:00", 5,
         "01:00 (7 Apr 2024) 01:30 01:30 (UTC+10:30) 02:00 02:30 03:00"},
        {"America/New_York", "2024-03-08T00:00:00", "2024-03-13T00:00:00", 5,
         "8 Mar (2024) 9 Mar 10 Mar 11 Mar 12 Mar"},
        {"Australia/Sydney", "2023-11-15T00:00:00", "2024-02-15T00:00:00", 4,
         "Dec (2023) Jan (2024) Feb"},
        {"UTC", "1925-01-01T00:00:00", "2025-01-01T00:00:00", 6, "1940 1960 1980 2000 2020"},
    };
    QLocale::setDefault(QLocale::c());
    for (const auto& [zone, from, to, labels, expected] : rows) {
        const TimeTicks ticks{QTimeZone(zone)};
        const TimeMarks marks = ticks.find(utc(from), utc(to), labels);
        EXPECT_EQ(majors(marks.ticks).toStdString(), expected) << zone << ' ' << from;
        for (std::size_t i = 1; i < marks.ticks.size(); ++i)
            EXPECT_LT(marks.ticks[i - 1].value, marks.ticks[i].value) << zone << ' ' << from;
    }
}

TEST(TimeTicks, MarkWhereTheClockJumps) {
    const TimeTicks ticks{QTimeZone("America/New_York")};
    const auto spring =
        ticks.find(utc("2024-03-10T05:00:00"), utc("2024-03-10T09:00:00"), 5).changes;
    ASSERT_EQ(spring.size(), 1u);
    EXPECT_EQ(spring[0].time, utc("2024-03-10T07:00:00"));
    EXPECT_EQ(spring[0].label.toStdString(), "+1 h EDT");
    const auto autumn =
        ticks.find(utc("2024-11-02T00:00:00"), utc("2024-11-04T00:00:00"), 5).changes;
    ASSERT_EQ(autumn.size(), 1u);
    EXPECT_EQ(autumn[0].label.toStdString(), "−1 h EST");
    EXPECT_TRUE(
        ticks.find(utc("2024-01-01T00:00:00"), utc("2025-01-01T00:00:00"), 5).changes.empty());
}

TEST(TimeTicks, HaveAFewMarksOverAnySpan) {
    for (const char* zone : {"UTC", "America/New_York", "Australia/Sydney", "Asia/Kolkata"}) {
        const TimeTicks ticks{QTimeZone(zone)};
        for (double span = 1e-5; span < 3.2e9; span *= 1.37) {
            const double from = 1710050000.123456;
            const TimeMarks marks = ticks.find(from, from + span, 8);
            const auto count = std::count_if(marks.ticks.begin(), marks.ticks.end(),
                                             [](const AxisTick& tick) { return tick.major; });
            EXPECT_GE(count, 1) << zone << ' ' << span;
            EXPECT_LE(count, 10) << zone << ' ' << span;
        }
    }
}

TEST(TimeTicks, WriteTimesAndSpansInFull) {
    const TimeTicks ticks{QTimeZone("Asia/Kolkata")};
    EXPECT_EQ(ticks.fullText(utc("2024-12-31T18:29:59.250"), 2).toStdString(),
              "2024-12-31 23:59:59.25");
    EXPECT_EQ(ticks.fullText(utc("2024-12-31T18:29:59.999"), 1).toStdString(),
              "2025-01-01 00:00:00.0");
    const TimeTicks newYork{QTimeZone("America/New_York")};
    QStringList hours;
    for (const char* time : {"2024-11-03T04:59:59", "2024-11-03T05:00:00", "2024-11-03T06:59:59",
                             "2024-11-03T07:00:00", "2024-03-10T07:00:00"})
        hours += newYork.fullText(utc(time), 0).mid(11);
    EXPECT_EQ(hours.join(u' ').toStdString(),
              "00:59:59 01:00:00 EDT 01:59:59 EST 02:00:00 03:00:00");
    EXPECT_EQ(TimeTicks::spanText(0.00025, 6).toStdString(), "0.000250 s");
    EXPECT_EQ(TimeTicks::spanText(-93784.5, 1).toStdString(), "−1 d 02:03:04.5");
}

TEST(XAxisTicks, MarkElapsedTimesAndRowsInWordsOfTheirOwn) {
    constexpr XAxis kClock{XAxis::Kind::Elapsed, 0};
    constexpr XAxis kRows{XAxis::Kind::Rows, 0};
    const Table<XAxis, double, double, int, const char*, std::size_t> rows = {
        {kClock, 0, 60, 5, "0:00:00 0:00:15 0:00:30 0:00:45 0:01:00", 13},
        {kClock, 7.2, 31, 6, "0:00:10 0:00:15 0:00:20 0:00:25 0:00:30", 24},
        {kClock, -20, 20, 5, "−0:00:20 −0:00:10 0:00:00 0:00:10 0:00:20", 21},
        {kClock, 59.8, 60.4, 4, "0:00:59.8 0:01:00.0 0:01:00.2 0:01:00.4", 13},
        {kClock, 0, 5 * 3600, 6, "0:00:00 1:00:00 2:00:00 3:00:00 4:00:00 5:00:00", 21},
        {kClock, 80000, 200000, 4, "0:00:00 (1 d) 12:00:00 0:00:00 (2 d)", 11},
        {kClock, -90000, 0, 3, "0:00:00 (−1 d) −12:00:00 (0 d) 0:00:00", 9},
        {kClock, 0, 30 * 86400, 5, "0 d 10 d 20 d 30 d", 16},
        {{XAxis::Kind::Elapsed, -3}, 0, 1, 5, "0 ms 500 ms 1000 ms", 11},
        {{XAxis::Kind::Elapsed, -3}, 0, 1, 6, "0 ms 200 ms 400 ms 600 ms 800 ms 1000 ms", 21},
        {{XAxis::Kind::Elapsed, -3}, 0.0101, 0.0109, 5, "10.2 ms 10.4 ms 10.6 ms 10.8 ms", 17},
        {{XAxis::Kind::Elapsed, -6}, -28e-6, 471.8e-6, 6, "0 µs 100 µs 200 µs 300 µs 400 µs", 25},
        {{XAxis::Kind::Elapsed, -9}, 0, 40e-9, 5, "0 ns 10 ns 20 ns 30 ns 40 ns", 21},
        {kRows, 1, 3000, 4, "row 1000 row 2000 row 3000", 15},
        {kRows, 1, 5, 5, "row 1 row 2 row 3 row 4 row 5", 5},
        {kRows, -30, 2, 5, "row 1 row 2", 2},
        {kRows, 7.2, 7.8, 5, "", 0},
    };
    const TimeTicks calendar;
    for (const auto& [axis, from, to, labels, expected, all] : rows) {
        const XAxisTicks ticks(axis, calendar);
        const auto marks = ticks.find(from, to, labels).ticks;
        EXPECT_EQ(majors(marks).toStdString(), expected) << from << ' ' << to;
        EXPECT_EQ(marks.size(), all) << from << ' ' << to;
        for (const AxisTick& tick : marks)
            EXPECT_LE(tick.label.size(), ticks.sampleLabel(from, to, labels).size()) << from;
    }
}

TEST(XAxisTicks, ReadElapsedTimesAndRows) {
    const Table<XAxis, double, int, const char*, const char*> rows = {
        {{XAxis::Kind::Elapsed, 0}, 10, 0, "0:00:10", "0:00:10"},
        {{XAxis::Kind::Elapsed, 0}, -10.25, 2, "−0:00:10.25", "−0:00:10.25"},
        {{XAxis::Kind::Elapsed, 0}, 59.9996, 3, "0:01:00.000", "0:01:00.000"},
        {{XAxis::Kind::Elapsed, 0}, 93784.5, 1, "1 d 2:03:04.5", "1 d 2:03:04.5"},
        {{XAxis::Kind::Elapsed, -3}, 0.25, 3, "250 ms", "250 ms"},
        {{XAxis::Kind::Elapsed, -3}, -0.0005, 6, "−0.500 ms", "−0.500 ms"},
        {{XAxis::Kind::Elapsed, -6}, 12.2e-6, 7, "12.2 µs", "12.2 µs"},
        {{XAxis::Kind::Rows, 0}, 1199.6, 6, "row 1200", "1200 rows"},
        {{XAxis::Kind::Rows, 0}, 1, 0, "row 1", "1 row"},
        {{XAxis::Kind::Rows, 0}, -3, 0, "row -3", "−3 rows"},
        {{XAxis::Kind::Elapsed, 0}, NAN, 0, "", ""},
    };
    const TimeTicks calendar;
    for (const auto& [axis, value, digits, full, span] : rows) {
        const XAxisTicks ticks(axis, calendar);
        EXPECT_EQ(ticks.fullText(value, digits).toStdString(), full);
        EXPECT_EQ(ticks.spanText(value, digits).toStdString(), span);
    }
}

TEST(XAxisTicks, HaveAFewMarksOverAnySpan) {
    const TimeTicks calendar;
    for (const XAxis axis : {XAxis{XAxis::Kind::Elapsed, 0}, XAxis{XAxis::Kind::Elapsed, -6},
                             XAxis{XAxis::Kind::Rows, 0}}) {
        const double least = axis.kind == XAxis::Kind::Rows ? 2 : 1e-8;
        for (double span = least; span < 1e10; span *= 1.37) {
            for (const double from : {1.0, -span / 3, 1234.5}) {
                const auto ticks = XAxisTicks(axis, calendar).find(from, from + span, 8).ticks;
                const auto count = std::count_if(ticks.begin(), ticks.end(),
                                                 [](auto& tick) { return tick.major; });
                EXPECT_GE(count, 1) << span << ' ' << from;
                EXPECT_LE(count, 8) << span << ' ' << from;
                EXPECT_LE(ticks.size(), 60u) << span << ' ' << from;
            }
        }
    }
}

TEST(ScaleMap, MakesAnyRangeDrawable) {
    struct Row {
        const char* name;
        double min, max;
        bool logarithmic;
        double drawnMin, drawnMax;
    };

    const Row rows[] = {
        {"plain", -2, 8, false, -2, 8},
        {"reversed", 8, -2, false, -2, 8},
        {"equal", 5, 5, false, 4.75, 5.25},
        {"zero", 0, 0, false, -1, 1},
        {"not a number", NAN, NAN, false, 0, 1},
        {"too narrow for doubles", 0, 1e-310, false, -1, 1},
        {"beyond all doubles", -INFINITY, INFINITY, false, -8e307, 8e307},
        {"logarithmic", 1, 1000, true, 1, 1000},
        {"logarithmic from zero", 0, 100, true, 0.1, 100},
        {"logarithmic below zero", -5, -1, true, 0.01, 10},
    };
    for (const Row& row : rows) {
        const ScaleMap map(row.min, row.max, row.logarithmic, 200, 0);
        EXPECT_DOUBLE_EQ(map.min(), row.drawnMin) << row.name;
        EXPECT_DOUBLE_EQ(map.max(), row.drawnMax) << row.name;
        EXPECT_NEAR(map.toPixel(map.min()), 200, 1e-6) << row.name;
        EXPECT_NEAR(map.toPixel(map.toValue(37)), 37, 1e-6) << row.name;
    }
}
