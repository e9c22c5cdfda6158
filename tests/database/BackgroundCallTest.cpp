#include "database/odbc/BackgroundCall.h"

#include <atomic>
#include <thread>

namespace pellam {
namespace {

using namespace std::chrono_literals;

struct CountedCall : BackgroundCall {
    bool whileWaiting() override {
        ++waits;
        return true;
    }

    int waits = 0;
};

TEST(BackgroundCall, WorksElsewhereWhileTheCallerRepaints) {
    CountedCall call;
    const auto caller = std::this_thread::get_id();
    for (int i = 0; i < 3; ++i) {
        std::thread::id worker = caller;
        const auto work = [&] {
            worker = std::this_thread::get_id();
            std::this_thread::sleep_for(3 * BackgroundCall::kWaitStep);
        };
        ASSERT_TRUE(call.run(work, 1min));
        EXPECT_NE(worker, caller);
    }
    EXPECT_GE(call.waits, 3);
}

TEST(BackgroundCall, LeavesWorkThatPassesItsLimitToItself) {
    const auto release = std::make_shared<std::atomic<bool>>(false);
    const std::weak_ptr<std::atomic<bool>> owned = release;
    CountedCall call;
    const auto stuck = [release] {
        while (!*release)
            std::this_thread::sleep_for(1ms);
    };
    EXPECT_FALSE(call.run(stuck, 30ms));
    bool done = false;
    EXPECT_TRUE(call.run([&done] { done = true; }, 1min)) << "a new worker takes over";
    EXPECT_TRUE(done);
    EXPECT_GE(owned.use_count(), 2) << "what the stuck work uses stays";
    *release = true;
}

} // namespace
} // namespace pellam
