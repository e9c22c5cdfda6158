#include "database/odbc/BackgroundCall.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace pellam {

struct BackgroundCall::Worker {
    std::mutex mutex;
    std::condition_variable wake;  ///< for the worker: work or the end
    std::condition_variable ended; ///< for the caller
    std::function<void()> work;
    bool busy = false;
    bool leave = false;
};

BackgroundCall::BackgroundCall() = default;

BackgroundCall::~BackgroundCall() {
    dismiss();
}

void BackgroundCall::dismiss() {
    if (!m_worker) return;
    const std::lock_guard lock(m_worker->mutex);
    m_worker->leave = true;
    m_worker->wake.notify_one();
}

void BackgroundCall::serve(const std::shared_ptr<Worker>& worker) {
    std::unique_lock lock(worker->mutex);
    while (true) {
        worker->wake.wait(lock, [&] { return worker->busy || worker->leave; });
        if (!worker->busy) return;
        std::function<void()> work = std::move(worker->work);
        lock.unlock();
        work();
        // What the work owns goes before the caller hears of its end.
        work = nullptr;
        lock.lock();
        worker->busy = false;
        worker->ended.notify_one();
    }
}

bool BackgroundCall::run(std::function<void()> work, Limit limit) {
    if (!m_worker) {
        m_worker = std::make_shared<Worker>();
        std::thread([worker = m_worker] { serve(worker); }).detach();
    }
    const auto worker = m_worker;
    const auto deadline = std::chrono::steady_clock::now() + limit;
    std::unique_lock lock(worker->mutex);
    worker->work = std::move(work);
    worker->busy = true;
    worker->wake.notify_one();
    while (!worker->ended.wait_for(lock, kWaitStep, [&] { return !worker->busy; })) {
        lock.unlock();
        const bool goOn = whileWaiting();
        if (!goOn || std::chrono::steady_clock::now() >= deadline) {
            dismiss();
            m_worker.reset();
            return false;
        }
        lock.lock();
    }
    return true;
}

} // namespace pellam
