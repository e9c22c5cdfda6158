#include "trend/curves/MinMaxPyramid.h"

#include <algorithm>
#include <cmath>
#include <random>

using namespace pellam;

namespace {

std::vector<double> someValues(std::size_t count, double missing, unsigned seed) {
    std::mt19937 generator(seed);
    std::uniform_real_distribution<double> part(0, 1);
    std::vector<double> values(count);
    for (double& value : values) {
        value = part(generator) < missing ? NAN : 100 * (part(generator) - 0.5);
    }
    return values;
}

} // namespace

TEST(MinMaxPyramid, AgreesWithEverySample) {
    for (const auto kind : {MinMaxPyramid::Samples::All, MinMaxPyramid::Samples::Positive}) {
        for (const std::size_t count : {1u, 15u, 16u, 17u, 256u, 4097u, 70000u}) {
            for (const double missing : {0.0, 0.4, 0.999}) {
                const auto values = someValues(count, missing, 3);
                MinMaxPyramid pyramid(kind);
                pyramid.build(values.data(), count / 2); // and the rest as it is appended
                for (std::size_t i = count / 2 + 1; i <= count; i += 1 + i / 64)
                    pyramid.extend(values.data(), i);
                pyramid.extend(values.data(), count);
                std::mt19937 generator(5);
                for (int question = 0; question < 60; ++question) {
                    const std::size_t first = generator() % count;
                    const std::size_t last = first + generator() % (count - first + 1);
                    ValueRange plain;
                    std::size_t next = count;
                    std::size_t previous = count;
                    for (std::size_t i = 0; i < count; ++i) {
                        if (!pyramid.counts(values[i])) continue;
                        if (i >= first && next == count) next = i;
                        if (i < first) previous = i;
                        if (i < first || i >= last) continue;
                        plain.min = std::min(plain.min, values[i]);
                        plain.max = std::max(plain.max, values[i]);
                    }
                    const ValueRange quick = pyramid.range(values.data(), first, last);
                    ASSERT_EQ(quick.min, plain.min) << count << ": " << first << ".." << last;
                    ASSERT_EQ(quick.max, plain.max) << count << ": " << first << ".." << last;
                    ASSERT_EQ(pyramid.nextSample(values.data(), first), next) << count;
                    ASSERT_EQ(pyramid.previousSample(values.data(), first), previous) << count;
                }
            }
        }
    }
}

TEST(MinMaxPyramid, IsSmall) {
    const auto values = someValues(100000, 0, 1);
    MinMaxPyramid pyramid;
    pyramid.build(values.data(), values.size());
    EXPECT_LT(static_cast<double>(pyramid.bytes()) / 100000, 1.4);
}
