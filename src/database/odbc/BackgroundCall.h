#pragma once

#include "database/odbc/LongCall.h"

#include <memory>

namespace pellam {

/// Runs the work on a thread of its own while the caller waits. A derived class keeps its window
/// painted in whileWaiting(). One call at a time.
class BackgroundCall : public LongCall {
  public:
    static constexpr std::chrono::milliseconds kWaitStep{20};

    BackgroundCall();
    /// Does not wait for work that passed its limit.
    ~BackgroundCall() override;
    BackgroundCall(const BackgroundCall&) = delete;
    BackgroundCall& operator=(const BackgroundCall&) = delete;

    bool run(std::function<void()> work, Limit limit) override;

  protected:
    /// Called on the caller's thread about every kWaitStep while the work runs. False stops the
    /// waiting, as if the limit had passed.
    virtual bool whileWaiting() { return true; }

  private:
    struct Worker;

    static void serve(const std::shared_ptr<Worker>& worker);
    void dismiss();

    std::shared_ptr<Worker> m_worker; ///< none before the first call and after a passed limit
};

} // namespace pellam
