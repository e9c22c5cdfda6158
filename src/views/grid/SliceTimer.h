#pragma once

#include <QObject>

#include <functional>

namespace pellam {

/// Runs long work in slices of a few milliseconds between events, on the thread of the window.
class SliceTimer : public QObject {
    Q_OBJECT
  public:
    using QObject::QObject;

    static constexpr int kSliceMilliseconds = 6;

    /// Calls `work` over and over until it returns false; one call must take well below a slice.
    /// Takes the place of any work under way.
    void start(std::function<bool()> work);
    /// Drops the work under way; harmless without any.
    void stop();

    [[nodiscard]] bool isActive() const { return m_timer != 0; }

  protected:
    void timerEvent(QTimerEvent* event) override;

  private:
    std::function<bool()> m_work;
    int m_timer = 0;
};

} // namespace pellam
