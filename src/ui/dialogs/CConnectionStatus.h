#pragma once

#include "base/ProgressSink.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QPointer>

#include <ctime>
#include <string>

class QLabel;
class QProgressBar;
class QPushButton;

namespace pellam {

/// The modeless progress window of long operations on the user-interface thread. It appears when an
/// operation has taken kShowAfter milliseconds. Until the operation reports a position its bar is
/// busy. Operations within an operation share its window and its abort.
///
/// While the operation runs, adding text or moving the bar handles events at most every kPumpEvery
/// milliseconds: everything for this window, painting and other system events for all windows.
/// Input for other windows is dropped, not kept for later, since it was meant for what they showed
/// before the operation; a click or key there brings this window back when it was hidden. Only
/// closing another window is remembered: it aborts the operation, and the window is closed once the
/// operation has ended. Timers and queued calls of other objects run as ever.
class CConnectionStatus : public QDialog, public ProgressSink {
    Q_OBJECT

  public:
    static constexpr int kShowAfter = 300; ///< milliseconds
    static constexpr int kPumpEvery = 50;  ///< milliseconds

    explicit CConnectionStatus(QWidget* parent = nullptr, const QString& title = {});
    ~CConnectionStatus() override;

    /// Replaces the status line and appends "time text" to the log. It is shown at once when
    /// `atOnce` or when it differs from the line before in more than its numbers, else with the
    /// next pump.
    void AddString(std::string_view text, bool atOnce = false);
    /// The ends of the position range in the caller's own unit; 0 to 100 at first. The bar goes to
    /// its start.
    void SetProgressRange(std::int64_t first, std::int64_t last);
    /// Moves the bar; a position outside the range counts as its nearer end.
    void SetProgressPos(std::int64_t position);
    /// Moves the bar on by a tenth of the range.
    void StepIt();

    /// True once the person has asked to stop.
    [[nodiscard]] bool Aborted() const { return m_aborted; }

    /// Hides the window after so many milliseconds.
    void HideWindow(int milliseconds);

    /// From now on abortPosted() is emitted when the person asks to stop.
    void EnablePostingOfAbort() { m_postAbort = true; }

    /// The lines of text so far, each "yyyy/mm/dd hh:mm:ss text\r\n" in local time. A line that
    /// differs from the one before in its numbers only takes that one's place.
    [[nodiscard]] const std::string& LogText() const { return m_log; }

    /// Handles events when they are due, for an operation that has nothing to report.
    void handleEvents() { pumpIfDue(); }

    /// True between start() and finish().
    [[nodiscard]] bool isRunning() const { return m_running > 0; }

    /// Asks the operation to stop, as the abort button does.
    void requestAbort() { OnAbort(); }

    void start(std::string_view title, std::string_view firstLine, std::int64_t first,
               std::int64_t last) override;

    void setWindowText(std::string_view text) override;

    void addString(std::string_view text) override { AddString(text); }

    void setPosition(std::int64_t position) override { SetProgressPos(position); }

    bool aborted() override { return m_aborted; }

    void finish() override;

    /// Escape: asks to stop.
    void reject() override;

  public Q_SLOTS:
    /// The abort button.
    void OnAbort();
    /// The hide button.
    void OnButton2();

  Q_SIGNALS:
    /// The person asked to stop; only after EnablePostingOfAbort().
    void abortPosted();

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void buildLayout();
    void arrange();
    void log(std::string_view text, bool newStage);
    void pumpIfDue();
    void pump();
    void appear();
    void refresh();
    [[nodiscard]] bool isOwn(const QObject* object) const;
    void rememberClose(QObject* window);

    QLabel* m_heading = nullptr; ///< the title, where the window is named otherwise
    QLabel* m_line = nullptr;
    QProgressBar* m_bar = nullptr;
    QPushButton* m_abort = nullptr;
    QPushButton* m_hide = nullptr;

    std::string m_text; ///< the status line
    std::string m_log;
    std::time_t m_logTime = 0; ///< the second that m_logTimeText stands for
    std::string m_logTimeText;
    std::size_t m_lastLine = 0; ///< where the log's last line begins
    std::int64_t m_first = 0;
    std::int64_t m_last = 100;
    std::int64_t m_position = 0;
    bool m_positionKnown = true; ///< false from start() to the first position

    QElapsedTimer m_sinceStart;
    QElapsedTimer m_sincePump;
    QPointer<QWidget> m_closeLater; ///< window that the person closed meanwhile
    int m_running = 0;              ///< operations within each other
    bool m_aborted = false;
    bool m_hiddenByUser = false;
    bool m_postAbort = false;
    bool m_pumping = false;
};

} // namespace pellam
