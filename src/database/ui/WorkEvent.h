#pragma once

#include <QCoreApplication>
#include <QEvent>

namespace pellam {

/// Tells the main window that work with a database starts or has ended: the application message
/// 1071. No window acts on it.
class WorkEvent : public QEvent {
  public:
    static constexpr auto kType = static_cast<QEvent::Type>(1071);

    explicit WorkEvent(bool starts) : QEvent(kType), m_starts(starts) {}

    [[nodiscard]] bool starts() const { return m_starts; }

    /// Posts it to a window, if there still is one.
    static void post(QObject* window, bool starts) {
        if (window) QCoreApplication::postEvent(window, new WorkEvent(starts));
    }

  private:
    bool m_starts;
};

} // namespace pellam
