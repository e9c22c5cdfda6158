#pragma once

#include <QMenu>
#include <optional>

namespace pellam {

class CTrend;

/// The control's pop-up menu.
class TrendMenu : public QMenu {
    Q_OBJECT
  public:
    /// `time` is where cursors would be set; `axis` the scale that was pointed at, 0 = none.
    TrendMenu(CTrend& trend, std::optional<double> time, int axis);

  private:
    template <typename Do>
    QAction* add(const QString& text, const char* key, bool enabled, Do act);
    template <typename Do>
    QAction* addToggle(const QString& text, const char* key, bool on, Do act);
    void addZoom();
    void addCursors(std::optional<double> time);
    void addScales(int axis);

    CTrend& m_trend;
};

} // namespace pellam
