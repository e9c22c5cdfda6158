#include "replay/TimeCorrections.h"
#include "LoadHarness.h"

namespace pellam {
namespace {

TEST(TimeCorrections, ComeFromTheZone) {
    struct Row {
        const char* zone;
        std::int64_t now;
        int standard;
        int daylight;
    };

    constexpr std::int64_t kJanuary = 1'200'355'200; // 2008-01-15
    constexpr std::int64_t kJuly = 1'216'080'000;    // 2008-07-15
    const Row rows[] = {{"UTC", kJuly, 0, 0},
                        {"America/New_York", kJanuary, 18000, 0},
                        {"America/New_York", kJuly, 18000, -3600},
                        {"Australia/Sydney", kJanuary, -36000, -3600},
                        {"Australia/Sydney", kJuly, -36000, 0},
                        {"Australia/Lord_Howe", kJanuary, -37800, -1800},
                        {"Asia/Kolkata", kJanuary, -19800, 0}};
    for (const Row& row : rows) {
        const test::Zone zone(row.zone);
        const TimeCorrections corrections = TimeCorrections::fromZone(row.now);
        EXPECT_EQ(corrections.standardBias, row.standard) << row.zone;
        EXPECT_EQ(corrections.daylightBias, row.daylight) << row.zone;
    }
}

} // namespace
} // namespace pellam
