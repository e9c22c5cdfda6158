#include "views/grid/SliceTimer.h"

#include <QElapsedTimer>

namespace pellam {

void SliceTimer::start(std::function<bool()> work) {
    stop();
    m_work = std::move(work);
    m_timer = startTimer(0);
}

void SliceTimer::stop() {
    if (m_timer != 0) killTimer(m_timer);
    m_timer = 0;
}

void SliceTimer::timerEvent(QTimerEvent*) {
    QElapsedTimer clock;
    clock.start();
    const int timer = m_timer;
    // The work may start other work here when it is done; a copy keeps it alive until it returns.
    const auto work = m_work;
    while (clock.elapsed() < kSliceMilliseconds) {
        const bool more = work();
        if (m_timer != timer) return;
        if (!more) {
            stop();
            return;
        }
    }
}

} // namespace pellam
