#include "views/CompareCells.h"
#include "views/AxisNumber.h"
#include "views/MyCug.h"

#include <gtest/gtest.h>

namespace pellam {
namespace {

using Type = SortCell::Type;

TEST(CompareCells, OrdersByTheTypeOfTheFirstCell) {
    const struct {
        const char* name;
        SortCell first;
        SortCell second;
        int ascending;
    } rows[] = {
        {"texts byte by byte", {Type::Text, "10"}, {Type::Text, "9"}, -1},
        {"bytes are unsigned", {Type::Text, "\xC4"}, {Type::Text, "z"}, 1},
        {"missing text last", {Type::Text, std::nullopt}, {Type::Text, "z"}, 1},
        {"two missing texts", {Type::Text, std::nullopt}, {Type::Text, std::nullopt}, 0},
        {"numbers by value", {Type::Number, "10", 10}, {Type::Number, "9", 9}, 1},
        {"equal numbers", {Type::Number, "1.0", 1}, {Type::Number, "1", 1}, 0},
        {"booleans by value", {Type::Boolean, "b", 0}, {Type::Boolean, "a", 1}, -1},
        {"currency by value", {Type::Currency, "b", 2}, {Type::Currency, "a", 3}, -1},
        {"other types by text", {Type::Other, "b", 2}, {Type::Other, "a", 3}, 1},
        {"number against text", {Type::Number, "5", 5}, {Type::Text, "4", 7}, -1},
    };

    for (const auto& row : rows) {
        EXPECT_EQ(MyCug::OnSortEvaluate(&row.first, &row.second, 0), row.ascending) << row.name;
        if (row.first.type != row.second.type) continue;
        EXPECT_EQ(MyCug::OnSortEvaluate(&row.first, &row.second, kSortDescending), -row.ascending)
            << row.name;
    }
}

TEST(CompareCells, MissingCellsSortLastAscendingAndFirstDescending) {
    const SortCell cell{Type::Number, "1", 1};
    EXPECT_GT(MyCug::OnSortEvaluate(nullptr, &cell, 0), 0);
    EXPECT_LT(MyCug::OnSortEvaluate(&cell, nullptr, 0), 0);
    EXPECT_EQ(MyCug::OnSortEvaluate(nullptr, nullptr, 0), 0);
    EXPECT_LT(MyCug::OnSortEvaluate(nullptr, &cell, kSortDescending), 0);
}

TEST(AxisNumber, WrapsUpwardAndStopsDownward) {
    const int up[] = {2, 3, 4, 5, 6, 1};
    const int down[] = {1, 1, 2, 3, 4, 5};
    for (int axis = 1; axis <= 6; ++axis) {
        EXPECT_EQ(axisAfterStep(axis, true), up[axis - 1]);
        EXPECT_EQ(axisAfterStep(axis, false), down[axis - 1]);
    }
    for (const long long typed : {0LL, -1LL, 7LL, 1LL << 40})
        EXPECT_EQ(axisFromTyped(typed), 1);
}

} // namespace
} // namespace pellam
