#pragma once

#include <chrono>
#include <functional>

namespace pellam {

/// How calls that may wait for a database are made, so that a window can repaint meanwhile.
class LongCall {
  public:
    using Limit = std::chrono::milliseconds;

    virtual ~LongCall() = default;

    /// Runs `work`, which throws nothing, and returns true when it has ended. Returns false when
    /// `limit` passed first: `work` then goes on in the background, so it owns all that it touches.
    [[nodiscard]] virtual bool run(std::function<void()> work, Limit limit) = 0;
};

/// Runs the work in place; no limit.
class InlineCall : public LongCall {
  public:
    bool run(std::function<void()> work, Limit) override {
        work();
        return true;
    }
};

} // namespace pellam
