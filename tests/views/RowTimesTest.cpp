#include "GridText.h"
#include "ZoneScope.h"

#include "base/InternationalSettings.h"
#include "replay/time/CMyTime.h"
#include "views/series/RowTimes.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <random>

namespace pellam {

namespace {

/// Moments of a column of time texts, as UTC, one a line; "-" for none.
std::string momentsOf(const std::vector<std::string>& texts,
                      const InternationalSettings& settings = {},
                      FractionUnit unit = FractionUnit::DecimalPlaces) {
    GridData grid(settings.decimalSeparator);
    grid.setFractionUnit(unit);
    for (std::size_t i = 0; i < texts.size(); ++i)
        grid.setText(0, static_cast<Row>(i), texts[i]);
    grid.setRowCount(static_cast<Row>(texts.size()));
    std::vector<double> moments(texts.size());
    RowTimes(grid, settings).read(0, moments);
    std::string lines;
    for (const double moment : moments) {
        if (!lines.empty()) lines += '|';
        if (std::isnan(moment)) {
            lines += '-';
            continue;
        }
        const auto seconds = static_cast<std::time_t>(moment);
        const std::tm* const fields = std::gmtime(&seconds);
        std::array<char, 64> text{};
        std::strftime(text.data(), text.size(), "%m-%d %H:%M:%S", fields);
        lines += text.data();
        const auto micro = std::llround((moment - std::floor(moment)) * 1e6);
        if (micro == 0) continue;
        std::snprintf(text.data(), text.size(), ".%06lld", micro);
        lines += text.data();
    }
    return lines;
}

} // namespace

TEST(RowTimes, ElapsedTimesAndRowsAreCountedAsSuch) {
    constexpr auto kElapsed = XAxis::Kind::Elapsed;
    const Table<const char*, std::vector<const char*>, std::vector<double>, XAxis> rows = {
        {"elapsed-s", {"-10", "0", "90.5"}, {-10, 0, 90.5}, {kElapsed, 0}},
        {"elapsed-s", {"-1E-1", "0.755"}, {-0.1, 0.755}, {kElapsed, -3}},
        {"elapsed-s", {"-0.000028", "4.7180E-4"}, {-0.000028, 0.0004718}, {kElapsed, -6}},
        {"elapsed-ms", {"0", "250", "45000"}, {0, 0.25, 45}, {kElapsed, -3}},
        {"elapsed-us", {"5", "7200000000"}, {5e-6, 7200}, {kElapsed, 0}},
        {"elapsed-clock", {"0:00:00.5", "49:00:00"}, {0.5, 176400}, {kElapsed, 0}},
        {"HH:mm:ss", {"23:59:59", "00:00:01", "12:00:00"}, {86399, 86401, 129600}, {kElapsed, 0}},
        {"", {"x", "", "2024/01/01 10:00:00"}, {1, 2, 3}, {XAxis::Kind::Rows, 0}},
    };
    for (const auto& [form, texts, expected, axis] : rows) {
        GridData grid;
        grid.setTimeForm(TimeForm::parse(form).value_or(TimeForm()));
        grid.setHasTimes(*form != '\0');
        for (std::size_t i = 0; i < texts.size(); ++i)
            grid.setText(0, static_cast<Row>(i), texts[i]);
        grid.setRowCount(static_cast<Row>(texts.size()));
        std::vector<double> times(texts.size());
        RowTimes reader(grid, {});
        reader.read(0, times);
        for (std::size_t i = 0; i < times.size(); ++i)
            EXPECT_NEAR(times[i], expected[i], 1e-12 * std::max(1.0, std::abs(times[i]))) << form;
        EXPECT_EQ(reader.axis(std::abs(times.back())), axis) << form << ' ' << texts[0];
    }
}

TEST(RowTimes, FormsThatAreRead) {
    const ZoneScope zone("UTC");
    const Table<const char*, const char*, const char*> rows = {
        {"Loader", "2008/02/25 12:00:05", "02-25 12:00:05"},
        {"Six digits", "2008/02/25 12:00:05.000488", "02-25 12:00:05.000488"},
        {"Two digits", "2008/02/25 12:00:05.25", "02-25 12:00:05.250000"},
        {"Decimal comma", "2008/02/25 12:00:05,5", "02-25 12:00:05.500000"},
        {"Nine digits are cut", "2008-02-25T12:00:05.123456789", "02-25 12:00:05.123456"},
        {"Without seconds", "2008/2/25 7:05", "02-25 07:05:00"},
        {"Date alone", "2008-02-25", "02-25 00:00:00"},
        {"ISO with an offset", "2008-02-25T12:00:00+01:30", "02-25 10:30:00"},
        {"ISO, UTC", "2008-02-25T12:00:00.5Z", "02-25 12:00:00.500000"},
        {"ISO, compact", "20080225T120005", "02-25 12:00:05"},
        {"Locale pattern", "25/02/2008 12:00:05", "02-25 12:00:05"},
        {"Locale pattern with points", "25.02.2008 12:00:05.75", "02-25 12:00:05.750000"},
        {"Afternoon", "25/02/2008 01:05:00 PM", "02-25 13:05:00"},
        {"Midnight", "25/02/2008 12:05:00 am", "02-25 00:05:00"},
        {"Month first where the day says so", "02/25/2008 12:00:05", "02-25 12:00:05"},
        {"Month name", "25-Feb-2008 12:00:05", "02-25 12:00:05"},
        {"End of day", "2008/02/25 24:00:00", "02-26 00:00:00"},
        {"Leap day", "2008/02/29 01:00:00", "02-29 01:00:00"},
        {"No such day", "2007/02/29 01:00:00", "-"},
        {"No such hour", "2008/02/25 25:00:00", "-"},
        {"No such month", "2008/13/25 12:00:00", "-"},
        {"Before time stamps", "1969/12/31 23:00:00", "-"},
        {"After time stamps", "2107/01/01 00:00:00", "-"},
        {"Words", "first sample", "-"},
        {"Number", "17.5", "-"},
        {"Trailing words", "2008/02/25 12:00:05 rain", "-"},
    };
    for (const auto& [name, text, moment] : rows)
        EXPECT_EQ(momentsOf({text}), moment) << name;
}

TEST(RowTimes, LoggersCountMicroseconds) {
    const ZoneScope zone("UTC");
    EXPECT_EQ(momentsOf({"2008/02/25 12:00:05", "2008/02/25 12:00:05.5", "2008/02/25 12:00:05.25",
                         "2008/02/25 12:00:05,000488", "2008/02/25 12:00:05.500000",
                         "2008/02/25 12:00:05.1234567"},
                        {}, FractionUnit::Microseconds),
              "02-25 12:00:05|02-25 12:00:05.000005|02-25 12:00:05.000025|02-25 12:00:05.000488|"
              "02-25 12:00:05.500000|02-25 12:00:05.123456");
}

TEST(RowTimes, TheOrderOfDayAndMonthIsTheOneThatMostRowsAllow) {
    const ZoneScope zone("UTC");
    EXPECT_EQ(momentsOf({"03/04/2008 00:00", "03/14/2008 00:00", "03/24/2008 00:00"}),
              "03-04 00:00:00|03-14 00:00:00|03-24 00:00:00");
    EXPECT_EQ(momentsOf({"03/04/2008 00:00", "04/04/2008 00:00"}), "04-03 00:00:00|04-04 00:00:00");
}

TEST(RowTimes, TheSettingsPatternComesFirst) {
    const ZoneScope zone("UTC");
    InternationalSettings settings;
    settings.shortDatePattern = "M/d/yy";
    EXPECT_EQ(momentsOf({"03/04/08 10:00:00"}, settings), "03-04 10:00:00");
}

TEST(RowTimes, ARepeatedHourGoesOnAndAMissingOneIsSkipped) {
    const ZoneScope zone("America/New_York");
    EXPECT_EQ(momentsOf({"2024/11/03 01:30:00", "2024/11/03 01:45:00", "2024/11/03 01:30:00",
                         "2024/11/03 01:45:00", "2024/11/03 02:00:00"}),
              "11-03 05:30:00|11-03 05:45:00|11-03 06:30:00|11-03 06:45:00|11-03 07:00:00");
    EXPECT_EQ(momentsOf({"2024/03/10 01:59:59", "2024/03/10 03:00:00"}),
              "03-10 06:59:59|03-10 07:00:00");
}

// The C library's own conversion, one call a row, is the plain way.
TEST(RowTimes, AgreesWithTheCLibraryOnRandomTimes) {
    std::mt19937 random(17);
    for (const char* const name :
         {"America/New_York", "Europe/Berlin", "Australia/Lord_Howe", "Asia/Kolkata"}) {
        const ZoneScope zone(name);
        for (int i = 0; i < 3000; ++i) {
            const std::time_t moment = std::uniform_int_distribution<int>(0, 2'000'000'000)(random);
            std::tm fields = *std::localtime(&moment);
            std::array<char, 64> text{};
            std::strftime(text.data(), text.size(), "%Y/%m/%d %H:%M:%S", &fields);
            GridData grid;
            grid.setText(0, 0, text.data());
            grid.setRowCount(1);
            double read = 0;
            RowTimes(grid, {}).read(0, {&read, 1});
            // Of a repeated hour's two moments the first is taken.
            const auto seconds = static_cast<std::time_t>(read);
            std::tm back = *std::localtime(&seconds);
            std::array<char, 64> again{};
            std::strftime(again.data(), again.size(), "%Y/%m/%d %H:%M:%S", &back);
            ASSERT_STREQ(again.data(), text.data()) << name;
            ASSERT_LE(read, static_cast<double>(moment)) << name << ' ' << text.data();
        }
    }
}

TEST(RowTimes, FractionsAreThoseOfATimeStamp) {
    const ZoneScope zone("UTC");
    GridData grid;
    grid.setText(0, 0, "2024/03/10 14:05:09.000488");
    grid.setRowCount(1);
    double read = 0;
    RowTimes(grid, {}).read(0, {&read, 1});
    CMyTime stamp(std::int64_t{1710079509});
    stamp.SetDateTimeOffset("0.000488");
    EXPECT_EQ(read, stamp.GetMyTime());
}

TEST(RowTimes, TwelveThousandSamplesASecondStayApartToTheEndOfADay) {
    const ZoneScope zone("UTC");
    constexpr int kRate = 12'000;
    GridData grid;
    grid.setRowCount(2 * kRate);
    for (int i = 0; i < 2 * kRate; ++i) {
        std::array<char, 40> text{};
        const int second = i < kRate ? 0 : 59; // the first and the last second of the day
        std::snprintf(text.data(), text.size(), "2026/11/21 %02d:%02d:%02d.%06d",
                      i < kRate ? 0 : 23, second, second,
                      static_cast<int>((i % kRate) * 1'000'000LL / kRate));
        grid.setText(0, i, text.data());
    }
    std::vector<double> read(2 * kRate);
    RowTimes(grid, {}).read(0, read);
    for (std::size_t i = 1; i < read.size(); ++i) {
        ASSERT_LT(read[i - 1], read[i]) << i;
        if (i == kRate) continue; // the gap between the two seconds
        ASSERT_NEAR(read[i] - read[i - 1], 1.0 / kRate, 2e-6);
    }
}

} // namespace pellam
