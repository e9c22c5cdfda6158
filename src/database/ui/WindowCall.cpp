#include "database/ui/WindowCall.h"

#include "ui/dialogs/InputEvents.h"

#include <QApplication>
#include <QKeyEvent>

#include <chrono>

namespace pellam {

namespace {

qint64 now() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

} // namespace

void WindowCall::begin() {
    m_running = true;
    m_stopped = false;
    m_lastPaint = now();
}

void WindowCall::end() {
    m_running = false;
    if (std::exchange(m_cursor, false)) QApplication::restoreOverrideCursor();
}

bool WindowCall::run(std::function<void()> work, Limit limit) {
    // Many quick calls after each other must not starve the windows.
    if (now() - m_lastPaint >= kPaintEvery) paint();
    if (m_stopped) return false;
    return BackgroundCall::run(std::move(work), limit);
}

bool WindowCall::whileWaiting() {
    paint();
    return !m_stopped;
}

void WindowCall::paint() {
    if (!std::exchange(m_cursor, true)) QApplication::setOverrideCursor(Qt::BusyCursor);
    qApp->installEventFilter(this);
    QCoreApplication::processEvents(QEventLoop::AllEvents, kPaintEvery / 2);
    qApp->removeEventFilter(this);
    m_lastPaint = now();
}

bool WindowCall::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress &&
        static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Escape)
        m_stopped = true;
    if (event->type() == QEvent::Close && watched->isWidgetType()) {
        m_stopped = true;
        event->ignore();
        return true;
    }
    // What comes to a window goes on to its widgets, and through here again.
    return isInput(event->type()) && watched != m_stopButton && !watched->isWindowType();
}

} // namespace pellam
