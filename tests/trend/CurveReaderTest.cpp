#include "trend/curves/CurveReader.h"

#include "trend/curves/TrendCurve.h"

#include <cmath>

using namespace pellam;

namespace {

TrendCurve fiveSamples() {
    TrendCurve curve;
    curve.setPoints(TrendTimes::create({10, 20, 30, 40, 50}), {1, NAN, 3, INFINITY, -5});
    return curve;
}

} // namespace

TEST(CurveReader, ReadsTheSampleAtOrBefore) {
    const TrendCurve curve = fiveSamples();
    // The values that are read, NaN for none.
    const Table<double, double, double, double, double> rows = {
        {9.9, NAN, NAN, 1, 1}, {10, 1, NAN, 3, 1}, {25, 1, 1, 3, 3},
        {30, 3, 1, -5, 3},     {40, 3, 3, -5, 3},  {60, -5, -5, NAN, -5},
    };
    const auto valueOf = [](const std::optional<CurveSample>& sample) {
        return sample ? sample->value : NAN;
    };
    for (const auto& [time, before, previous, next, nearest] : rows) {
        const CurveReader reader(curve);
        const auto same = [](double a, double b) { return a == b || (a != a && b != b); };
        EXPECT_TRUE(same(valueOf(reader.atOrBefore(time)), before)) << time;
        EXPECT_TRUE(same(valueOf(reader.previous(time)), previous)) << time;
        EXPECT_TRUE(same(valueOf(reader.next(time)), next)) << time;
        EXPECT_TRUE(same(valueOf(reader.nearest(time)), nearest)) << time;
    }
}

TEST(CurveReader, SumsUpBetweenTwoTimes) {
    std::vector<double> times;
    std::vector<double> values;
    for (int i = 0; i < 2000; ++i) {
        times.push_back(i);
        values.push_back(i % 7 == 0 ? std::nan("") : i);
    }
    TrendCurve curve;
    curve.setPoints(TrendTimes::create(std::move(times)), std::move(values));
    const CurveStatistics all = CurveReader(curve).statistics(1500.5, 99);
    double total = 0;
    std::size_t count = 0;
    for (int i = 99; i <= 1500; ++i) {
        if (i % 7 == 0) continue;
        total += i;
        ++count;
    }
    EXPECT_EQ(all.count, count);
    EXPECT_EQ(all.min, 99);
    EXPECT_EQ(all.max, 1500);
    EXPECT_DOUBLE_EQ(all.mean, total / static_cast<double>(count));
    EXPECT_EQ(CurveReader(curve).statistics(7, 7).count, 0u);
}

TEST(TrendCurve, KeepsSharedTimesWhenPointsAreAppended) {
    const auto shared = TrendTimes::create({1, 2, 3});
    TrendCurve one;
    TrendCurve other;
    one.setPoints(shared, {1, 2, 3});
    other.setPoints(shared, {4, 5, 6});
    EXPECT_TRUE(one.append(4, 7));
    EXPECT_EQ(one.size(), 4u);
    EXPECT_EQ(other.times()->size(), 3u);
    EXPECT_EQ(other.times(), shared);
}

TEST(TrendCurve, CountsWhatALogarithmicScaleLeavesOut) {
    TrendCurve curve;
    curve.setPoints(TrendTimes::create({1, 2, 3, 4, 5}), {0, -1, NAN, 2, 3});
    EXPECT_EQ(curve.notPositiveCount(), 2u);
    EXPECT_EQ(curve.valueCount(), 4u);
    EXPECT_EQ(curve.pyramid(true).range(curve.values(), 0, 5).min, 2);
}
