#pragma once

#include "trend/control/TrendOperations.h"

#include <QMenu>
#include <QPointer>
#include <QTimeZone>
#include <QWidget>
#include <memory>
#include <optional>

namespace pellam {

class CommandSet;
class TrendCommands;
class TrendInteraction;
class TrendKeys;
class TrendScene;
struct TrendRanges;

/// The trend chart control: curves against time on up to six Y scales, with legend, zooming,
/// crosshair and two measuring cursors. The operations of TrendOperations set it up.
class CTrend : public QWidget, public TrendOperations {
    Q_OBJECT
  public:
    static constexpr int kControlId = 1001;

    explicit CTrend(QWidget* parent = nullptr, const QTimeZone& zone = QTimeZone::systemTimeZone());
    ~CTrend() override;

    /// Makes the control a visible child of `parent`, named "Trend1".
    void Create(QWidget* parent, int controlId = kControlId);

    void SetLassoZoom(int on) override;
    void SetCurveVisible(int curve, int visible) override;
    void setBreakGaps(bool on) override;

    /// Text after a curve's values in readings; without one the title of its scale stands there.
    void setCurveUnit(int curve, const QString& unit);
    /// Fraction digits of times in readings, 0 to 6; -1 (at start) = what the points' times need.
    void setTimeDigits(int digits);
    int timeDigits() const;
    /// Marks the row of the table that is current; nothing takes the mark off.
    void setCurrentTime(std::optional<double> time);

    /// Shows these times; what zooming to everything comes back to stays as it is.
    void showTimes(double from, double to);
    bool canZoomBack() const;
    bool canZoomForward() const;
    /// Keeps what was shown before as a step that zooming back returns to, unless that is still
    /// shown. For changes of the ranges that a person asks for outside the control.
    void rememberZoom(const TrendRanges& before);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// The parts of the control, for its accessibility and its tests.
    TrendScene& scene() { return *m_scene; }

    const TrendScene& scene() const { return *m_scene; }

    TrendCommands& commands() { return *m_commands; }

    /// The actions of what a person can do with the control.
    CommandSet& actions() { return *m_actions; }

    /// The crosshair's time when the pop-up menu was opened, as long as that is there.
    std::optional<double> menuTime() const { return m_menu ? m_menuTime : std::nullopt; }

  public Q_SLOTS:
    void zoomBack();
    void zoomForward();
    /// To ranges that show all visible curves.
    void zoomAll();

  Q_SIGNALS:
    /// The drawing area was clicked (without a drag), or Enter was pressed: the time of the sample
    /// that the crosshair reads there, or, before the first one, of the place itself.
    void timeClicked(double time);
    void selectionZoomChanged(bool on);
    void breakGapsChanged(bool on);
    void curveVisibilityChanged(int curve, bool visible);
    /// The shown ranges or the steps back and forward have changed.
    void zoomChanged();
    /// Pointed at a text for which there was too little room; its tool tip says it in full.
    void textCutShort();
    // Commands that belong to the owner.
    void stripChartRequested();
    void autoScaleRequested();
    void editAxisRequested();
    void copyRequested();
    void exportImageRequested();

  protected:
    void chartChanged(Change change) override;
    void unlocked() override;
    bool focusNextPrevChild(bool next) override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    friend class TrendCommands;
    void setColours();
    void showFocus(bool shown);
    void openMenuByKey();
    bool showToolTip(const QPoint& at, const QPoint& global);

    std::unique_ptr<TrendScene> m_scene;
    std::unique_ptr<TrendCommands> m_commands;
    std::unique_ptr<TrendInteraction> m_interaction;
    std::unique_ptr<TrendKeys> m_keys;
    CommandSet* m_actions;
    QPointer<QMenu> m_menu;
    std::optional<double> m_menuTime;
    double m_pixelRatio = 0;
};

} // namespace pellam
