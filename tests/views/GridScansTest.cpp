#include "GridText.h"
#include "base/InternationalSettings.h"
#include "views/scan/FindScan.h"
#include "views/scan/RowLocator.h"
#include "views/scan/StatisticsScan.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <set>

namespace pellam {
namespace {

std::string outcome(FindScan scan, std::int64_t step = 3) {
    while (scan.step(step) == FindScan::State::Searching) {
    }
    if (scan.state() == FindScan::State::NotFound) return "none";
    return std::to_string(scan.place().column) + "," + std::to_string(scan.place().row) +
           (scan.wrapped() ? " wrapped" : "");
}

FindQuery query(const char* text, const char* options = "") {
    const std::string_view flags(options);
    FindQuery query;
    query.text = text;
    query.caseSensitive = flags.find('c') != flags.npos;
    query.wholeCell = flags.find('w') != flags.npos;
    query.forward = flags.find('b') == flags.npos;
    for (const char flag : flags) {
        if (flag >= '0' && flag <= '9') query.column = flag - '0';
    }
    return query;
}

TEST(FindScan, FindsTheNextPlaceInReadingOrder) {
    GridData grid;
    fillGrid(grid, "Time|A    |B\n"
                   "t0  |12.5 |Pump\n"
                   "t1  |2.5  |PUMP ON\n"
                   "t2  |12.5 |\334ber\n"
                   "t3  |ÜBER |12.5\n");
    const Table<const char*, FindQuery, FindScan::Place, const char*> rows = {
        {"part of a number", query("2.5"), {1, 0}, "1,1"},
        {"whole number", query("2.5", "w"), {1, 0}, "1,1"},
        {"whole number, other one", query("12.5", "w"), {1, 0}, "1,2"},
        {"backwards", query("12.5", "b"), {1, 2}, "1,0"},
        {"wraps", query("12.5", "1"), {1, 2}, "1,0 wrapped"},
        {"wraps backwards", query("12.5", "b"), {1, 0}, "2,3 wrapped"},
        {"comes back to itself", query("t2"), {0, 2}, "0,2 wrapped"},
        {"any case", query("pump on"), {0, 0}, "2,1"},
        {"this case", query("pump", "c"), {0, 0}, "none"},
        {"this case, found", query("PUMP", "c"), {0, 0}, "2,1"},
        {"Windows-1252 and UTF-8", query("über"), {0, 0}, "2,2"},
        {"UTF-8 capital", query("über"), {2, 2}, "1,3"},
        {"whole cell of other length", query("übe", "w"), {0, 0}, "none"},
        {"from the axis row", query("t0"), {2, -1}, "0,0"},
        {"backwards from the axis row", query("12.5", "b"), {1, -1}, "2,3 wrapped"},
        {"column left of the current cell", query("t1", "0"), {2, 1}, "0,1 wrapped"},
        {"column right of the current cell", query("pump", "2"), {1, 0}, "2,0"},
        {"nothing to look for", query(""), {0, 0}, "none"},
    };
    for (const auto& [name, query, from, expected] : rows) {
        EXPECT_EQ(outcome(FindScan(grid, query, from)), expected) << name;
    }
}

TEST(FindScan, VisitsEveryMatchOnceLikeBruteForce) {
    std::mt19937 random(7);
    GridData grid;
    fillGrid(grid, "Time|A|B|C\n0|0|0|0\n");
    constexpr Row rows = 57;
    grid.setRowCount(rows);
    std::set<std::pair<Row, int>> expected;
    for (Row row = 0; row < rows; ++row) {
        for (int column = 0; column < 4; ++column) {
            const std::string text = std::to_string(random() % 60);
            grid.setText(column, row, text);
            if (text.find('4') != std::string::npos) expected.insert({row, column});
        }
    }
    for (const bool forward : {true, false}) {
        std::vector<std::pair<Row, int>> visited;
        FindQuery asked = query("4", forward ? "" : "b");
        FindScan::Place place{forward ? -1 : 0, 0};
        while (true) {
            FindScan scan(grid, asked, place);
            while (scan.step(5) == FindScan::State::Searching) {
            }
            if (scan.wrapped() && !visited.empty()) break;
            place = scan.place();
            visited.emplace_back(place.row, place.column);
        }
        if (!forward) std::reverse(visited.begin(), visited.end());
        EXPECT_EQ(visited, std::vector(expected.begin(), expected.end())) << forward;
    }
}

std::string located(const GridData& grid, const char* wanted, Row from = 0) {
    RowLocator locator(grid, {}, wanted, from);
    while (locator.step(2) == RowLocator::State::Searching) {
    }
    switch (locator.state()) {
    case RowLocator::State::Found:
        return std::to_string(locator.row());
    case RowLocator::State::NoSuchRow:
        return "no such row";
    case RowLocator::State::NoRowAtOrAfter:
        return "no row at or after";
    default:
        return "not understood";
    }
}

TEST(RowLocator, TakesRowNumbersAndTimes) {
    GridData grid;
    fillGrid(grid, "Time                  |A\n"
                   "2008/02/25 11:53:15   |1\n"
                   "2008/02/25 12:00:00   |2\n"
                   "2008/02/25 12:00:00.25|3\n"
                   "                      |4\n"
                   "2008/03/01 00:00:00   |5\n"
                   "2008/02/28 00:00:00   |6\n");
    const Table<const char*, const char*> rows = {
        {"1", "0"},
        {"6", "5"},
        {"7", "no such row"},
        {"0", "no such row"},
        {"99999999999999999999", "no such row"},
        {"2008/02/25 12", "1"},
        {"2008-2-25T12:00:00", "1"},
        {"2008/02/25 12:00:00.1", "2"},
        {"2008/02/25 12:00:00,3", "4"},
        {"  2008/02/26 ", "4"},
        {"2008/", "0"},
        {"1999/01/01", "0"},
        {"2008/03/01 00:00:01", "no row at or after"},
        {"2009", "no such row"},
        {"", "not understood"},
        {"pump", "not understood"},
        {"2008/02/25 12:xx", "not understood"},
    };
    for (const auto& [wanted, expected] : rows)
        EXPECT_EQ(located(grid, wanted), expected) << wanted;
}

TEST(RowLocator, LooksForTheBeginningOfOtherTimes) {
    GridData grid;
    fillGrid(grid, "Time|A\n25/02/2008 11:00|1\n26/02/2008 11:00|2\n");
    EXPECT_EQ(located(grid, "26/02"), "1");
    EXPECT_EQ(located(grid, "27/02"), "not understood");
}

TEST(RowLocator, ReadsTimesAsTheChartDoes) {
    GridData grid;
    fillGrid(grid, "Time|A\n03/02/2008 23:55|1\n04/02/2008 12:00|2\n04/02/2008 12:40|3\n"
                   "rain|4\n25/02/2008 12:03|5\n");
    const Table<const char*, Row, const char*> rows = {
        {"25/02/2008 12:03", 0, "4"},
        {"25/02/2008 12:04", 0, "no row at or after"},
        {"4.2.08", 0, "1"},
        {"2008-02-04 12:01", 0, "2"},
        {"Feb 2008", 0, "0"},
        {"rain", 0, "3"},
        {"12:30", 0, "2"},
        {"12:30", 2, "4"},
        {"12:30", 4, "2"},
        {"23:55", 0, "0"},
        {"11:59:59", 1, "4"},
    };
    for (const auto& [wanted, from, expected] : rows)
        EXPECT_EQ(located(grid, wanted, from), expected) << wanted << " from " << from;
}

TEST(RowLocator, UnderstandsTheWordsOfTheChart) {
    GridData grid;
    fillGrid(grid, "Time|A\n-0.5|1\n0|2\n0.25|3\n90000|4\n");
    grid.setTimeForm(*TimeForm::parse("elapsed-s"));
    const Table<const char*, const char*> rows = {{"row 2", "1"},
                                                  {"−0:00:00.5", "0"},
                                                  {"250 ms", "2"},
                                                  {"1 d 0:00:00", "3"},
                                                  {"row 9", "no such row"}};
    for (const auto& [wanted, expected] : rows)
        EXPECT_EQ(located(grid, wanted), expected) << wanted;
}

TEST(RowLocator, CountsFractionsAsTheGridDoes) {
    GridData grid;
    fillGrid(grid, "Time|A\n2008/02/25 12:00:00.25|1\n2008/02/25 12:00:00.100|2\n");
    grid.setFractionUnit(FractionUnit::Microseconds);
    EXPECT_EQ(located(grid, "2008/02/25 12:00:00.30"), "1");
}

std::string statistics(const GridData& grid, std::vector<CellArea> areas) {
    StatisticsScan scan(grid, std::move(areas));
    while (scan.step()) {
    }
    std::string all;
    const auto count = [](std::int64_t number) { return std::to_string(number); };
    for (const auto& text : StatisticsScan::texts(scan.result(), count, grid.decimalSeparator()))
        all += (all.empty() ? "" : "   ") + text;
    return all;
}

TEST(StatisticsScan, CountsNumbersAlone) {
    GridData grid;
    fillGrid(grid, "Time               |A   |B\n"
                   "2024/01/02 10:00:00|1.5 |x\n"
                   "2024/01/02 10:01:00|-2  |7\n"
                   "2024/01/02 10:02:00|    |0.25\n");
    grid.column(1).setAxis(6);
    const Table<const char*, std::vector<CellArea>, const char*> rows = {
        {"one column",
         {{1, 1, 1, 3}},
         "Count: 2   Mean: -0.25   Min: -2   Max: 1.5   Std dev: 2.47487   Sum: -0.5"},
        {"the axis row is no data",
         {{1, 1, 0, 1}},
         "Count: 1   Mean: 1.5   Min: 1.5   Max: 1.5   Sum: 1.5"},
        {"times and texts", {{0, 0, 1, 3}, {2, 2, 1, 1}}, "Count: 0"},
        {"two areas",
         {{1, 1, 1, 1}, {2, 2, 2, 3}},
         "Count: 3   Mean: 2.916666667   Min: 0.25   Max: 7   Std dev: 3.59108   Sum: 8.75"},
        {"past the data",
         {{1, 15, 1, 32767}},
         "Count: 4   Mean: 1.6875   Min: -2   Max: 7   Std dev: 3.82631   Sum: 6.75"},
        {"nothing", {}, "Count: 0"},
        {"axis row alone", {{1, 2, 0, 0}}, "Count: 0"},
    };
    for (const auto& [name, areas, expected] : rows)
        EXPECT_EQ(statistics(grid, areas), expected) << name;
}

TEST(StatisticsScan, LeavesOutWhatTheChartLeavesOut) {
    GridData grid;
    fillGrid(grid, "Time|A|B|C\n1|1|-9999|-9999\n2|-9999.0|---|99999.9\n3|3|x|-9e3\n");
    grid.setMissing({{"-9999", -9999.0}, {"---", {}}});
    grid.column(3).setAsValue(0);
    EXPECT_EQ(
        statistics(grid, {{1, 1, 1, 3}}),
        "Count: 2   1 missing value left out   Mean: 2   Min: 1   Max: 3   Std dev: 1.41421   "
        "Sum: 4");
    EXPECT_EQ(statistics(grid, {{2, 2, 1, 3}}), "Count: 0   2 missing values left out");
    EXPECT_EQ(statistics(grid, {{3, 3, 1, 3}}),
              "Count: 2   1 sentinel left out   Mean: -9499.5   Min: -9999   Max: -9000   "
              "Std dev: 706.4   Sum: -18999");
    grid.setMissingAsNumbers(true);
    EXPECT_EQ(
        statistics(grid, {{1, 1, 1, 3}}),
        "Count: 3   Mean: -3331.666667   Min: -9999   Max: 3   Std dev: 5774.08   Sum: -9995");
}

TEST(StatisticsScan, WritesTheDecimalSeparatorOfTheData) {
    GridData grid(',');
    fillGrid(grid, "Time|A\n1|0,1\n2|0,2\n");
    EXPECT_EQ(statistics(grid, {{1, 1, 1, 2}}),
              "Count: 2   Mean: 0,15   Min: 0,1   Max: 0,2   Std dev: 0,0707107   Sum: 0,3");
}

TEST(StatisticsScan, LeavesSentinelsOutAndCountsThem) {
    GridData grid;
    fillGrid(grid, "Time|A|B\n"
                   "1|14.1|99999.9\n2|99999.9|-99999.90\n3|14.3|-9.00000E9\n4|-99999.9|x\n");
    EXPECT_EQ(statistics(grid, {{1, 1, 1, 4}}),
              "Count: 2   2 sentinels left out   Mean: 14.2   Min: 14.1   Max: 14.3   "
              "Std dev: 0.141421   Sum: 28.4");
    EXPECT_EQ(statistics(grid, {{1, 1, 1, 2}}),
              "Count: 1   1 sentinel left out   Mean: 14.1   Min: 14.1   Max: 14.1   Sum: 14.1");
    EXPECT_EQ(statistics(grid, {{2, 2, 1, 4}}), "Count: 0   3 sentinels left out");
}

TEST(StatisticsScan, KeepsSmallNumbersBesideLargeOnes) {
    GridData grid;
    fillGrid(grid, "Time|A\n1|10000000000000000\n2|1\n3|-10000000000000000\n4|1\n");
    EXPECT_EQ(
        statistics(grid, {{1, 1, 1, 4}}),
        "Count: 4   Mean: 0.5   Min: -1e+16   Max: 1e+16   Std dev: 8.164965809e+15   Sum: 2");
    fillGrid(grid, "Time|A\n1|10000000\n2|-10000000\n");
    EXPECT_EQ(
        statistics(grid, {{1, 1, 1, 2}}),
        "Count: 2   Mean: 0   Min: -10000000   Max: 10000000   Std dev: 14142135.62   Sum: 0");
}

TEST(StatisticsScan, ReadsEveryRowOfSeveralChunksOnce) {
    GridData grid;
    constexpr Row rows = 3 * Column::kChunkRows + 17;
    grid.setRowCount(rows);
    std::int64_t count = 0;
    std::int64_t sum = 0;
    for (Row row = 0; row < rows; ++row) {
        // The second chunk stays unwritten.
        if (row / Column::kChunkRows == 1) continue;
        grid.setText(2, row, std::to_string(row));
        if (row < 4999) continue;
        ++count;
        sum += row;
    }
    StatisticsScan scan(grid, {{2, 2, 5000, rows}});
    int steps = 1;
    while (scan.step())
        ++steps;
    EXPECT_EQ(scan.result().count, count);
    EXPECT_EQ(scan.result().sum, static_cast<double>(sum));
    EXPECT_EQ(scan.result().minimum, 4999);
    // Of the rows from a to b and from c to d: the sum of squares in closed form.
    const auto squares = [](double n) { return n * (n + 1) * (2 * n + 1) / 6; };
    const auto n = static_cast<double>(count);
    constexpr auto chunk = static_cast<double>(Column::kChunkRows);
    const double all = squares(chunk - 1) - squares(4998) + squares(static_cast<double>(rows) - 1) -
                       squares(2 * chunk - 1);
    const double mean = static_cast<double>(sum) / n;
    const double deviation = std::sqrt((all - n * mean * mean) / (n - 1));
    EXPECT_NEAR(scan.result().standardDeviation, deviation, deviation * 1e-9);
    EXPECT_LT(steps, 20);
}

} // namespace
} // namespace pellam
