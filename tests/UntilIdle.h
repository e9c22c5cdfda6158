#pragma once

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEventLoop>

namespace pellam {

/// Runs the event loop until all that was due has been done: until it would wait.
inline void untilIdle() {
    QEventLoop loop;
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                     &loop, &QEventLoop::quit);
    loop.exec();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace pellam
