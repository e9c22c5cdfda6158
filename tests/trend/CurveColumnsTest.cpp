#include "trend/paint/CurveColumns.h"

#include "trend/curves/TrendCurve.h"

#include <algorithm>
#include <cmath>
#include <random>

using namespace pellam;

namespace {

struct Case {
    const char* name;
    std::size_t samples;
    double missing; // share of samples without a value
    double spikes;
    double jumps; // share of steps that are long
    bool logarithmic;
    double from; // of the data's span
    double to;
};

const Case cases[] = {
    {"fewer samples than pixels", 40, 0, 0, 0, false, 0, 1},
    {"many a pixel, spikes", 60000, 0, 0.001, 0, false, 0, 1},
    {"many a pixel, gaps", 60000, 0.3, 0.001, 0.002, false, 0, 1},
    {"nearly nothing there", 30000, 0.999, 0, 0, false, 0, 1},
    {"zoomed in between samples", 5000, 0.1, 0.01, 0.01, false, 0.4001, 0.4003},
    {"zoomed to one hundredth", 50000, 0.1, 0.01, 0.01, false, 0.3, 0.31},
    {"wider than the data", 3000, 0.2, 0.01, 0.01, false, -1, 2},
    {"before the data", 300, 0, 0, 0, false, -2, -1},
    {"logarithmic, half of it negative", 20000, 0.1, 0.01, 0.001, true, 0, 1},
    {"logarithmic, few samples", 150, 0.1, 0.1, 0.01, true, 0.1, 0.9},
};

TrendCurve randomCurve(const Case& c, unsigned seed) {
    std::mt19937 generator(seed);
    std::uniform_real_distribution<double> part(0, 1);
    std::vector<double> times;
    std::vector<double> values;
    double time = 1.7e9;
    for (std::size_t i = 0; i < c.samples; ++i) {
        time += part(generator) < c.jumps ? 20 + 200 * part(generator) : 0.5 + part(generator);
        times.push_back(time);
        double value = 10 * std::sin(static_cast<double>(i) / 500) + part(generator);
        if (part(generator) < c.spikes) value = 300 * (part(generator) - 0.5);
        values.push_back(part(generator) < c.missing ? NAN : value);
    }
    TrendCurve curve;
    EXPECT_TRUE(curve.setPoints(TrendTimes::create(std::move(times)), std::move(values)));
    return curve;
}

// The columns of a curve found sample by sample: what the pyramid has to agree with.
std::vector<ColumnSpan> plainColumns(const TrendCurve& curve, const ColumnGrid& grid,
                                     const ScaleMap& map, double longestStep) {
    std::vector<ColumnSpan> spans(static_cast<std::size_t>(grid.columns));
    const double width = (grid.to - grid.from) / grid.columns;
    const auto border = [&](int column) {
        return column == grid.columns ? grid.to : grid.from + width * column;
    };
    const auto include = [](ColumnSpan& span, double pixel) {
        const auto y = static_cast<float>(pixel);
        if (span.empty || y < span.top) span.top = y;
        if (span.empty || y > span.bottom) span.bottom = y;
        span.empty = false;
    };
    double lastTime = NAN;
    double lastPixel = NAN;
    for (std::size_t i = 0; i < curve.size(); ++i) {
        const double time = (*curve.times())[i];
        const double value = curve.values()[i];
        if (std::isnan(value) || (map.logarithmic() && value <= 0)) continue;
        const double pixel = map.toPixel(value);
        for (int column = 0; column < grid.columns; ++column) {
            const bool last = column + 1 == grid.columns;
            if (time >= border(column) && (time < border(column + 1) || (last && time == grid.to)))
                include(spans[static_cast<std::size_t>(column)], pixel);
        }
        for (int column = 0; column <= grid.columns; ++column) {
            const bool crosses = lastTime < border(column) && time >= border(column);
            const bool atEnd = column == grid.columns && time == grid.to;
            if (!crosses || atEnd || time - lastTime > longestStep) continue;
            const double part = (grid.from + width * column - lastTime) / (time - lastTime);
            const double y = lastPixel + (pixel - lastPixel) * part;
            if (column > 0) include(spans[static_cast<std::size_t>(column - 1)], y);
            if (column < grid.columns) include(spans[static_cast<std::size_t>(column)], y);
        }
        lastTime = time;
        lastPixel = pixel;
    }
    return spans;
}

} // namespace

// One value that is known to be missing is a gap, unless the curve has none there as a rule.
TEST(CurveColumns, NoLineGoesOverAMissingValue) {
    const Table<const char*, std::vector<double>, std::vector<std::uint32_t>, bool, bool> rows = {
        {"missing", {1, 1, 1, NAN, 1, 1, 1}, {3}, true, false},
        {"two of them", {1, 1, NAN, NAN, 1, 1, 1}, {2}, true, false},
        {"no sample", {1, 1, 1, NAN, 1, 1, 1}, {}, true, true},
        {"missing elsewhere", {1, 1, 1, NAN, 1, NAN, 1}, {5}, true, true},
        {"gaps are bridged", {1, 1, 1, NAN, 1, 1, 1}, {3}, false, true},
        {"every other one", {1, NAN, 1, NAN, 1, NAN, 1}, {1, 3, 5}, true, true},
    };
    for (const auto& [name, values, gaps, breakGaps, joined] : rows) {
        TrendCurve curve;
        ASSERT_TRUE(curve.setPoints(TrendTimes::create({0, 1, 2, 3, 4, 5, 6}),
                                    std::vector<double>(values), std::vector<std::uint32_t>(gaps)));
        const ColumnGrid grid{0, 6, 60};
        const auto starts = curve.times()->columnStarts(grid.from, grid.to, grid.columns);
        const auto spans =
            CurveColumns::find(curve, starts, grid, ScaleMap(0, 3, false, 30, 0), breakGaps);
        EXPECT_EQ(!spans[32].empty, joined) << name;
        EXPECT_FALSE(spans[0].empty) << name;
    }
}

TEST(CurveColumns, EqualWhatEverySampleGives) {
    for (const Case& c : cases) {
        for (const bool breakGaps : {true, false}) {
            const TrendCurve curve = randomCurve(c, 11);
            const double start = curve.times()->first();
            const double span = curve.times()->last() - start;
            const ColumnGrid grid{start + c.from * span, start + c.to * span, 97};
            const ScaleMap map(c.logarithmic ? 0.01 : -20, 20, c.logarithmic, 300, 0);
            const auto starts = curve.times()->columnStarts(grid.from, grid.to, grid.columns);
            const auto quick = CurveColumns::find(curve, starts, grid, map, breakGaps);
            const double longest = breakGaps ? 3 * curve.usualStep() : INFINITY;
            const auto expected = plainColumns(curve, grid, map, longest);
            for (std::size_t i = 0; i < expected.size(); ++i) {
                ASSERT_EQ(quick[i].empty, expected[i].empty) << c.name << ", column " << i;
                if (expected[i].empty) continue;
                ASSERT_NEAR(quick[i].top, expected[i].top, 1e-3) << c.name << ", column " << i;
                ASSERT_NEAR(quick[i].bottom, expected[i].bottom, 1e-3)
                    << c.name << ", column " << i;
            }
        }
    }
}

TEST(CurveColumns, KeepOneSpikeInMillionsStays) {
    constexpr std::size_t count = 3000000;
    std::vector<double> times(count);
    for (std::size_t i = 0; i < count; ++i)
        times[i] = static_cast<double>(i);
    const auto shared = TrendTimes::create(std::move(times));
    for (const std::size_t at : {0u, 15u, 16u, 4095u, 4096u, 1234567u, 2999999u}) {
        std::vector<double> values(count, 1.0);
        values[at] = 9;
        TrendCurve curve;
        curve.setPoints(shared, std::move(values));
        const ColumnGrid grid{0, count - 1.0, 1000};
        const auto spans = CurveColumns::find(curve, shared->columnStarts(0, grid.to, 1000), grid,
                                              ScaleMap(0, 10, false, 100, 0), true);
        const auto spiky = std::count_if(
            spans.begin(), spans.end(), [](const ColumnSpan& span) { return span.top <= 10.001f; });
        EXPECT_EQ(spiky, 1) << at;
    }
}

TEST(CurveColumns, AreStraightWithinMicroseconds) {
    std::vector<double> times; // far finer columns than moments of today can be told apart
    std::vector<double> values;
    for (int i = 0; i <= 20; ++i) {
        times.push_back(1.7e9 + i * 1e-6);
        values.push_back(times.back() - times.front());
    }
    const ColumnGrid grid{times.front(), times.back(), 500};
    const ScaleMap map(0, values.back(), false, 500, 0);
    TrendCurve curve;
    curve.setPoints(TrendTimes::create(std::move(times)), std::move(values));
    const auto starts = curve.times()->columnStarts(grid.from, grid.to, grid.columns);
    const auto spans = CurveColumns::find(curve, starts, grid, map, true);
    for (int i = 0; i < grid.columns; ++i) {
        const ColumnSpan& span = spans[static_cast<std::size_t>(i)];
        ASSERT_NEAR(span.bottom, 500 - i, 0.01) << i;
        ASSERT_NEAR(span.top, 499 - i, 0.01) << i;
    }
}

TEST(CurveColumns, ALineBreaksOnlyOverMoreThanThreeSteps) {
    for (const auto& [gap, joined] :
         {std::pair{2.0, true}, {3, true}, {3.01, false}, {40, false}}) {
        std::vector<double> times{0, 1, 2, 3, 4};
        for (int i = 0; i < 4; ++i)
            times.push_back(4 + gap + i);
        std::vector<double> values(times.size(), 5.0);
        TrendCurve curve;
        curve.setPoints(TrendTimes::create(std::move(times)), std::move(values));
        const ColumnGrid grid{0, 4 + gap + 3, 400};
        const auto starts = curve.times()->columnStarts(grid.from, grid.to, grid.columns);
        const auto spans =
            CurveColumns::find(curve, starts, grid, ScaleMap(0, 10, false, 100, 0), true);
        const auto middle = static_cast<std::size_t>((4 + gap / 2) / grid.to * 400);
        EXPECT_EQ(!spans[middle].empty, joined) << gap;
    }
}
