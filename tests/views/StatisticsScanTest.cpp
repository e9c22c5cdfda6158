#include "views/StatisticsScan.h"
#include "GridText.h"

#include <gtest/gtest.h>

#include <random>

namespace pellam {
namespace {

std::string statistics(const GridData& grid, std::vector<CellArea> areas) {
    StatisticsScan scan(grid, std::move(areas));
    while (scan.step()) {
    }
    return StatisticsScan::text(scan.result(), std::to_string(scan.result().count),
                                grid.decimalSeparator());
}

TEST(StatisticsScan, CountsNumbersAlone) {
    GridData grid;
    fillGrid(grid, "Time               |A   |B\n"
                   "2024/01/02 10:00:00|1.5 |x\n"
                   "2024/01/02 10:01:00|-2  |7\n"
                   "2024/01/02 10:02:00|    |0.25\n");
    grid.column(1).setAxis(6);

    const struct {
        const char* name;
        std::vector<CellArea> areas;
        const char* expected;
    } rows[] = {
        {"one column", {{1, 1, 1, 3}}, "Count: 2   Min: -2   Max: 1.5   Mean: -0.25   Sum: -0.5"},
        {"the axis row is no data",
         {{1, 1, 0, 1}},
         "Count: 1   Min: 1.5   Max: 1.5   Mean: 1.5   Sum: 1.5"},
        {"times and texts", {{0, 0, 1, 3}, {2, 2, 1, 1}}, "Count: 0"},
        {"two areas",
         {{1, 1, 1, 1}, {2, 2, 2, 3}},
         "Count: 3   Min: 0.25   Max: 7   Mean: 2.916666667   Sum: 8.75"},
        {"past the data",
         {{1, 15, 1, 32767}},
         "Count: 4   Min: -2   Max: 7   Mean: 1.6875   Sum: 6.75"},
        {"nothing", {}, "Count: 0"},
        {"axis row alone", {{1, 2, 0, 0}}, "Count: 0"},
    };

    for (const auto& row : rows)
        EXPECT_EQ(statistics(grid, row.areas), row.expected) << row.name;
}

TEST(StatisticsScan, WritesTheDecimalSeparatorOfTheData) {
    GridData grid(',');
    fillGrid(grid, "Time|A\n1|0,1\n2|0,2\n");
    EXPECT_EQ(statistics(grid, {{1, 1, 1, 2}}),
              "Count: 2   Min: 0,1   Max: 0,2   Mean: 0,15   Sum: 0,3");
}

TEST(StatisticsScan, KeepsSmallNumbersBesideLargeOnes) {
    GridData grid;
    fillGrid(grid, "Time|A\n1|10000000000000000\n2|1\n3|-10000000000000000\n4|1\n");
    EXPECT_EQ(statistics(grid, {{1, 1, 1, 4}}),
              "Count: 4   Min: -1e+16   Max: 1e+16   Mean: 0.5   Sum: 2");
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
    EXPECT_LT(steps, 20);
}

} // namespace
} // namespace pellam
