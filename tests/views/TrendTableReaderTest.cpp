#include "GridText.h"
#include "ZoneScope.h"

#include "RecordingSinks.h"
#include "base/InternationalSettings.h"
#include "grid/DecimalCell.h"
#include "trend/control/TrendOperations.h"
#include "views/chart/LeftOutNotes.h"
#include "views/chart/RowsByTime.h"
#include "views/chart/ShowTable.h"
#include "views/series/SentinelText.h"
#include "views/series/TrendTableReader.h"

#include <cmath>
#include <random>
#include <sstream>

namespace pellam {

namespace {

/// A grid of '|'-separated cells; every channel is charted, its label may end in "@" and its axis.
void fillCharted(GridData& grid, const std::string& text) {
    fillGrid(grid, text);
    for (int i = 1; i <= grid.channelCount(); ++i) {
        std::string label = grid.column(i).label();
        if (const std::size_t at = label.find('@'); at != std::string::npos) {
            grid.column(i).setAxis(label[at + 1] - '0');
            label.resize(at);
        }
        grid.column(i).setLabel(label);
        grid.column(i).setCharted(true);
    }
}

TrendTable tableOf(GridData& grid) {
    test::RecordedProgress progress;
    return TrendTableReader(grid, {}, progress).read();
}

/// The points of each curve, "minute:value", and in brackets what was left out.
std::string pointsOf(const TrendTable& table) {
    std::ostringstream text;
    for (const auto& curve : table.curves) {
        text << curve.text << '=';
        for (std::size_t i = 0; i < table.times.size(); ++i) {
            if (std::isnan(curve.values[i])) continue;
            text << std::fmod(table.times[i], 3600) / 60 << ':' << curve.values[i] << ' ';
        }
        text << '[' << curve.leftOut.sentinels << ' ' << curve.leftOut.notNumbers << ' '
             << curve.leftOut.notLater << "]\n";
    }
    return text.str();
}

} // namespace

TEST(TrendTableReader, SkipsEmptyTimesSentinelsWordsAndTimesThatAreNotLater) {
    const ZoneScope zone("UTC");
    GridData grid;
    fillCharted(grid, "Time|A(m)|B(m)\n"
                      "2024/01/01 00:01:00|1|10\n"
                      "2024/01/01 00:02:00|99999.9|20\n"
                      "|3|30\n"
                      "2024/01/01 00:04:00|-99999.9|40\n"
                      "2024/01/01 00:05:00|-9.00000E9|50\n"
                      "2024/01/01 00:05:00|5|51\n" // the time again: A has no point there yet
                      "2024/01/01 00:03:00|3|60\n" // earlier
                      "tomorrow|6|66\n"
                      "1969/12/31 00:06:00|6|66\n"
                      "2024/01/01 00:07:00|wet|70\n"
                      "2024/01/01 00:08:00|1e1|\n");
    const TrendTable table = tableOf(grid);
    EXPECT_EQ(pointsOf(table), "A=1:1 5:5 8:10 [3 1 1]\n"
                               "B=1:10 2:20 4:40 5:50 7:70 [0 0 2]\n");
    EXPECT_EQ(leftOutNotes(table).join(u'\n').toStdString(),
              "Rows left out, time not readable: 1\nRows left out, before 1970 or after 2106: 1\n"
              "Rows left out, no time: 1\n"
              "Left out, sentinel values: A 3\nLeft out, no numbers: A 1\n"
              "Left out, time not later than before: A 1, B 2");
}

TEST(TrendTableReader, ClocksThatDoNotFollowTheZoneLoseNoRow) {
    constexpr const char* kWinter = "2024/03/31 01:30:00|1\n2024/03/31 02:00:00|2\n"
                                    "2024/03/31 02:30:00|3\n2024/03/31 03:00:00|4\n"
                                    "2024/03/31 03:30:00|5\n2024/07/01 12:00:00|6\n";
    constexpr const char* kSummer = "2024/03/31 01:30:00|1\n2024/03/31 03:00:00|2\n"
                                    "2024/10/27 02:30:00|3\n2024/10/27 02:30:00|4\n";
    constexpr const char* kDays = "2024-03-30|1\n2024-03-31|2\n2024-04-01|3\n";
    using enum ClockChoice;
    constexpr int kChanging = -1;

    struct Case {
        const char* name;
        const char* zone;
        const char* rows;
        std::optional<ClockChoice> choice;
        ClockChoice clock;
        int offset;
        std::size_t points;
        std::int64_t lost;
        double last; // time of the last row, as UTC from 2024-03-31 00:00 in hours
    };

    const Case cases[] = {
        {"proved by its rows", "Europe/Berlin", kWinter, {}, NoDaylightSaving, 3600, 6, 0, 2219},
        {"kept as chosen", "Europe/Berlin", kWinter, Computer, Computer, kChanging, 4, 2, 2218},
        {"chosen", "Europe/Berlin", kSummer, NoDaylightSaving, NoDaylightSaving, 3600, 3, 1,
         5041.5},
        {"UTC", "Europe/Berlin", kWinter, Utc, Utc, 0, 6, 0, 2220},
        {"follows the zone", "Europe/Berlin", kSummer, {}, Computer, kChanging, 4, 0, 5041.5},
        {"days alone prove nothing", "Asia/Beirut", kDays, {}, Computer, kChanging, 3, 0, 21},
        {"southern winter", "Australia/Sydney", "2024/01/01 10:00:00|1\n", NoDaylightSaving,
         NoDaylightSaving, 36000, 1, 0, -2160},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        const ZoneScope zone(row.zone);
        GridData grid;
        fillCharted(grid, std::string("Time|A\n") + row.rows);
        test::RecordedProgress progress;
        const TrendTable table = TrendTableReader(grid, {}, progress, row.choice).read();
        EXPECT_EQ(table.clock, row.clock);
        EXPECT_EQ(table.utcOffset.value_or(kChanging), row.offset);
        const auto& curve = table.curves.front();
        EXPECT_EQ(std::count_if(curve.values.begin(), curve.values.end(),
                                [](double value) { return value == value; }),
                  std::ptrdiff_t(row.points));
        EXPECT_EQ(curve.leftOut.notLater, row.lost);
        EXPECT_EQ((table.times.back() - 1711843200) / 3600, row.last);
        const bool told = !row.choice && row.clock == NoDaylightSaving;
        EXPECT_EQ(leftOutNotes(table).join(u' ').startsWith(u"Drawn without daylight saving"),
                  told);
        TrendOperations trend;
        TrendTable shown = table;
        showTable(trend, shown, grid.rowCount());
        EXPECT_EQ(trend.chart().state.utcOffset.value_or(kChanging), row.offset);
    }
}

// Each channel only looks at its own last point, so one schedule's clock doesn't hide another's.
TEST(TrendTableReader, ChannelsWithTimesOfTheirOwnKeepTheirPoints) {
    const ZoneScope zone("UTC");
    GridData grid;
    fillCharted(grid, "Time|A|B\n"
                      "2024/01/01 00:10:00||1\n"
                      "2024/01/01 00:05:00|2|\n"
                      "2024/01/01 00:20:00||3\n"
                      "2024/01/01 00:15:00|4|5\n");
    EXPECT_EQ(pointsOf(tableOf(grid)), "A=5:2 15:4 [0 0 0]\nB=10:1 20:3 [0 0 1]\n");
}

TEST(TrendTableReader, TakesSelectedChannelsAloneInColumnOrder) {
    const ZoneScope zone("UTC");
    GridData grid;
    fillCharted(grid, "Time|A (in) (l/s)@2|B@3|C@4\n2024/01/01 00:01:00|1|2|3\n");
    grid.column(2).setCharted(false);
    ASSERT_TRUE(grid.moveColumn(3, 1));
    const TrendTable table = tableOf(grid);
    EXPECT_EQ(pointsOf(table), "C=1:3 [0 0 0]\nA (in) =1:1 [0 0 0]\n");
    EXPECT_EQ(table.curves[1].units, "l/s");
    EXPECT_EQ(table.curves[0].axis, 4);
    EXPECT_EQ(table.curves[1].column, 2);
}

TEST(TrendTableReader, DecimalCommasInValuesTimesAndSentinels) {
    const ZoneScope zone("UTC");
    GridData grid(',');
    fillCharted(grid, "Time|A\n2024/01/01 00:01:00,5|1,25\n2024/01/01 00:01:30,25|99999,95\n");
    const TrendTable table = tableOf(grid);
    EXPECT_EQ(table.times, (std::vector<double>{1704067260.5, 1704067290.25}));
    EXPECT_EQ(table.curves[0].values[0], 1.25);
    EXPECT_EQ(table.curves[0].leftOut.sentinels, 1);
}

TEST(TrendTableReader, ReportsRowsInFifties) {
    const ZoneScope zone("UTC");
    GridData grid;
    fillCharted(grid, "Time|A\n2024/01/01 00:01:00|1\n");
    grid.setRowCount(40'000);
    test::RecordedProgress progress;
    static_cast<void>(TrendTableReader(grid, {}, progress).read());
    EXPECT_EQ(progress.log, "Loaded 0 Lines\nLoaded 16350 Lines\nLoaded 32750 Lines\n");
    progress.abortAfter = 0;
    const TrendTable stopped = TrendTableReader(grid, {}, progress).read();
    EXPECT_TRUE(stopped.aborted);
    EXPECT_EQ(stopped.curves[0].values.size(), stopped.times.size());
}

// Rows in order take the quick path, one pair of exchanged rows at the end makes it the plain one.
TEST(TrendTableReader, QuickPathAndPlainPathGiveTheSamePoints) {
    const ZoneScope zone("UTC");
    std::mt19937 random(5);
    constexpr int kRows = 20'000;
    GridData grid;
    fillCharted(grid, "Time|A\n");
    std::string text;
    for (int row = 0; row < kRows; ++row) {
        grid.setText(0, row,
                     "2024/01/0" + std::to_string(1 + row / 3600 / 24) + ' ' +
                         std::to_string(10 + row / 3600) + ':' +
                         std::to_string(10 + row / 60 % 60 % 50) + ':' +
                         std::to_string(10 + row % 50));
        const auto kind = random() % 20;
        text = std::to_string(static_cast<int>(random() % 4'000'000) - 2'000'000);
        if (kind > 3) text.insert(text.size() - 1, ".");
        if (kind == 0) text = "";
        if (kind == 1) text = "199999.95";
        if (kind == 2) text = "off";
        grid.setText(1, row, text);
    }
    grid.setRowCount(kRows);
    const std::string quick = pointsOf(tableOf(grid));
    grid.setText(0, kRows, "2024/01/01 00:00:00");
    grid.setRowCount(kRows + 1);
    EXPECT_EQ(pointsOf(tableOf(grid)), quick);
}

// With times in order and with two rows exchanged.
TEST(TrendTableReader, MissingTextsAreGapsUnlessTheyAreWanted) {
    const ZoneScope zone("UTC");
    for (const bool inOrder : {true, false}) {
        GridData grid;
        fillCharted(grid, "Time|A|B|C\n"
                          "2024/01/01 00:01:00|1|-9999|-9999\n"
                          "2024/01/01 00:02:00|-9999.0|---|-12000\n"
                          "2024/01/01 00:03:00|-9999|99999.9|5\n"
                          "2024/01/01 00:04:00|-9.999e3|4|off\n"
                          "2024/01/01 00:05:00|5|5|5\n");
        if (!inOrder) grid.setText(0, 5, "2024/01/01 00:00:00");
        grid.setRowCount(inOrder ? 5 : 6);
        grid.setMissing({{"---", {}}, {"-9999", -9999.0}});
        grid.column(3).setAsValue(1);
        TrendTable table = tableOf(grid);
        const std::uint32_t before = inOrder ? 0 : 1;
        EXPECT_EQ(pointsOf(table), "A=1:1 5:5 [0 0 0]\nB=4:4 5:5 [1 0 0]\n"
                                   "C=1:-9999 2:-12000 3:5 5:5 [0 1 0]\n");
        EXPECT_EQ(table.curves[0].gaps, std::vector<std::uint32_t>{1 + before});
        EXPECT_EQ(table.curves[1].gaps, std::vector<std::uint32_t>{before});
        EXPECT_TRUE(table.curves[2].gaps.empty());
        EXPECT_EQ(missingNumbersNote(table).join(u'\n').toStdString(),
                  "-9999 left out 4 times in 2 channels");
        EXPECT_EQ(leftOutNotes(table).first().toStdString(), "--- left out once in 1 channel");
        grid.setMissingAsNumbers(true);
        table = tableOf(grid);
        EXPECT_EQ(pointsOf(table), "A=1:1 2:-9999 3:-9999 4:-9999 5:5 [0 0 0]\n"
                                   "B=1:-9999 4:4 5:5 [1 0 0]\n"
                                   "C=1:-9999 2:-12000 3:5 5:5 [0 1 0]\n");
        EXPECT_TRUE(table.curves[0].gaps.empty());
        EXPECT_EQ(missingNumbersNote(table).join(u'\n').toStdString(),
                  "-9999 drawn as a value 4 times in 2 channels");
    }
}

TEST(SentinelText, SentinelsAreFoundOnDigitsAsInTheText) {
    const Table<const char*, bool> rows = {
        {"99999.9", true},     {"-99999.9", true}, {"199999.9", true},
        {"99999.95", true},    {"99999.90", true}, {"-99999.9123456", true},
        {"-9.00000E9", true},  {"99999.8", false}, {"99999", false},
        {"9999.99", false},    {"999999", false},  {"99999.09", false},
        {"9.00000E9", false},  {"999999.9", true}, {"0.0999999", false},
        {"-9.000000E9", false}};
    for (const auto& [text, sentinel] : rows) {
        EXPECT_EQ(containsSentinel(text, '.'), sentinel) << text;
        Cell cell;
        if (DecimalCell::packPlainly(text, '.', DecimalCell::Zeros::Keep, cell)) {
            EXPECT_EQ(isSentinel(cell), sentinel) << text << " packed";
        }
    }
    std::mt19937_64 random(3);
    for (int i = 0; i < 200'000; ++i) {
        std::string text = std::to_string(random() % 10'000'000'000);
        for (char& digit : text)
            if (random() % 4 != 0) digit = '9';
        text.insert(1 + random() % text.size(), ".");
        Cell cell;
        if (!DecimalCell::packPlainly(text, '.', DecimalCell::Zeros::Keep, cell)) continue;
        ASSERT_EQ(isSentinel(cell), text.find("99999.9") != std::string::npos) << text;
    }
}

TEST(ShowTable, TitlesOfCurvesAndScales) {
    const ZoneScope zone("UTC");
    GridData grid;
    fillCharted(grid, "Time|Temp (C)@1|Flow()@2|Level@3|Odd )m(@4|Air(K)(dry)@5|Water(degC)@1\n"
                      "2024/01/01 00:01:00|1|2|3|4|5|6\n");
    TrendTable table = tableOf(grid);
    TrendOperations trend;
    setUpTrend(trend);
    EXPECT_EQ(trend.GetYScActualRangeMax(6), 100);
    EXPECT_EQ(trend.GetYScRangeMin(1), -1000);
    showTable(trend, table, grid.rowCount());
    std::string curves;
    for (int i = 0; i < 6; ++i)
        curves += '<' + trend.GetCurveText(i).toStdString() + '>';
    EXPECT_EQ(curves, "<Temp ><Flow><Level><Odd )m(><Air(K)><Water>");
    std::string titles;
    for (int axis = 1; axis <= 6; ++axis)
        titles += '<' + trend.GetYScText(axis).toStdString() + '>';
    EXPECT_EQ(titles, "<degC><Data 2><Data 3><Data 4><dry><>");
    EXPECT_EQ(trend.GetYScEnabled(5), 1);
    EXPECT_EQ(trend.GetYScEnabled(6), 0);
    EXPECT_EQ(trend.chart().curves[0].times(), trend.chart().curves[5].times());
}

TEST(RowsByTime, FindRowsAndTimesBothWays) {
    const auto times = TrendTimes::create({10, 20, 30});
    const RowsByTime rows(times, {4, 1, 7});
    EXPECT_EQ(rows.nearest(-5), Row{4});
    EXPECT_EQ(rows.nearest(15), Row{4});
    EXPECT_EQ(rows.nearest(16), Row{1});
    EXPECT_EQ(rows.nearest(99), Row{7});
    EXPECT_EQ(rows.timeOf(1), 20.0);
    EXPECT_EQ(rows.timeOf(2), std::nullopt);
    EXPECT_EQ(RowsByTime(times, {}).timeOf(2), 30.0);
    EXPECT_EQ(RowsByTime(times, {}).timeOf(3), std::nullopt);
    EXPECT_EQ(RowsByTime().nearest(1), std::nullopt);
}

} // namespace pellam
