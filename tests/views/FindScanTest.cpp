#include "views/FindScan.h"
#include "GridText.h"

#include <gtest/gtest.h>

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
                   "t2  |12.5 |\xDC"
                   "ber\n"
                   "t3  |\xC3\x9C"
                   "BER |12.5\n");

    const struct {
        const char* name;
        FindQuery query;
        FindScan::Place from;
        const char* expected;
    } rows[] = {
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
        {"Windows-1252 and UTF-8",
         query("\xC3\xBC"
               "ber"),
         {0, 0},
         "2,2"},
        {"UTF-8 capital",
         query("\xC3\xBC"
               "ber"),
         {2, 2},
         "1,3"},
        {"whole cell of other length",
         query("\xC3\xBC"
               "be",
               "w"),
         {0, 0},
         "none"},
        {"from the axis row", query("t0"), {2, -1}, "0,0"},
        {"backwards from the axis row", query("12.5", "b"), {1, -1}, "2,3 wrapped"},
        {"column left of the current cell", query("t1", "0"), {2, 1}, "0,1 wrapped"},
        {"column right of the current cell", query("pump", "2"), {1, 0}, "2,0"},
        {"nothing to look for", query(""), {0, 0}, "none"},
    };

    for (const auto& row : rows) {
        EXPECT_EQ(outcome(FindScan(grid, row.query, row.from)), row.expected) << row.name;
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

} // namespace
} // namespace pellam
