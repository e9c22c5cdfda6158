#pragma once

#include "database/odbc/BackgroundCall.h"

#include <QObject>

namespace pellam {

/// Waits for a database under a dialog: all windows stay painted, what a person does meanwhile is
/// dropped; Escape, closing a window or the stop button stop the waiting.
class WindowCall : public QObject, public BackgroundCall {
    Q_OBJECT

  public:
    /// A button that takes clicks while a question runs; it calls stop().
    void setStopButton(QObject* button) { m_stopButton = button; }

    /// A question of several calls begins: nothing has been stopped yet.
    void begin();
    /// The question has ended.
    void end();

    /// Between begin() and end().
    [[nodiscard]] bool isRunning() const { return m_running; }

    /// The person stopped the question; every further call of it ends at once, unanswered.
    [[nodiscard]] bool stopped() const { return m_stopped; }

    void stop() { m_stopped = true; }

    bool run(std::function<void()> work, Limit limit) override;

  protected:
    bool whileWaiting() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    static constexpr int kPaintEvery = 50; ///< milliseconds

    void paint();

    QObject* m_stopButton = nullptr;
    qint64 m_lastPaint = 0; ///< milliseconds of the steady clock
    bool m_running = false;
    bool m_stopped = false;
    bool m_cursor = false; ///< the busy cursor is on
};

} // namespace pellam
