#pragma once

#include <QPointF>
#include <Qt>

QT_BEGIN_NAMESPACE
class QKeyEvent;
class QMouseEvent;
class QWheelEvent;
QT_END_NAMESPACE

namespace pellam {

class CTrend;
class TrendCommands;
class TrendScene;

/// Turns mouse and wheel into commands.
///
/// Wheel: time around the pointer; with Shift, or over a scale, values. Left button in the drawing
/// area: lasso while the selection zoom is on, else moving; on a cursor: the cursor; on an axis:
/// that axis. Middle button, or Space held down: moving. A click without a drag chooses a time, or
/// switches a curve in the legend. Double click: everything; on a scale: its dialog.
class TrendInteraction {
  public:
    explicit TrendInteraction(CTrend& trend);

    void press(const QMouseEvent& event);
    void move(const QMouseEvent& event);
    void release(const QMouseEvent& event);
    void doubleClick(const QMouseEvent& event);
    /// Whether the wheel was used.
    bool wheel(const QWheelEvent& event);
    void leave();
    void setSpaceHeld(bool held);
    /// Gives a drag up; false when there is none.
    bool cancel();

  private:
    enum class Drag { None, Click, Lasso, Pan, PanTime, PanScale, Cursor };
    Drag dragFor(const QMouseEvent& event);
    int cursorAt(const QPointF& at);
    void pan(const QPointF& to);
    void click(const QPointF& at);
    void showPointer(const QPointF& at);
    Qt::CursorShape shapeAt(const QPointF& at);

    CTrend& m_trend;
    TrendScene& m_scene;
    TrendCommands& m_commands;
    Drag m_drag = Drag::None;
    Qt::MouseButton m_button = Qt::NoButton;
    QPointF m_pressed;
    QPointF m_last;
    bool m_moved = false;
    int m_index = 0; ///< scale or cursor that is dragged
    bool m_space = false;
};

} // namespace pellam
