#include "views/RowLocator.h"
#include "GridText.h"

#include <gtest/gtest.h>

namespace pellam {
namespace {

std::string located(const GridData& grid, const char* wanted) {
    RowLocator locator(grid, wanted);
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

    const struct {
        const char* wanted;
        const char* expected;
    } rows[] = {
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

    for (const auto& row : rows)
        EXPECT_EQ(located(grid, row.wanted), row.expected) << row.wanted;
}

TEST(RowLocator, LooksForTheBeginningOfOtherTimes) {
    GridData grid;
    fillGrid(grid, "Time|A\n25/02/2008 11:00|1\n26/02/2008 11:00|2\n");
    EXPECT_EQ(located(grid, "26/02"), "1");
    EXPECT_EQ(located(grid, "27/02"), "not understood");
}

} // namespace
} // namespace pellam
