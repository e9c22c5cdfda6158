#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QKeyEvent;
QT_END_NAMESPACE

namespace pellam {

class CTrend;
class TrendCommands;
class TrendInteraction;
class TrendScene;

/// The control's keys.
///
/// Left, Right: crosshair to the neighbouring sample; with Ctrl (or Shift): move a tenth in time.
/// Up, Down: move a tenth in values. PageUp, PageDown: a page earlier, later. Plus, Minus: zoom
/// time; with Alt: values. Home: everything. Backspace, Shift+Backspace: zoom back, forward.
/// A, B: set a cursor; Delete removes it, Shift+Delete both. C: crosshair on, off; G: lines broken
/// at gaps or not. 1 to 6: the dialog of a scale. F5, F6, F7, Ctrl+Shift+X: auto scale, selection
/// zoom, strip chart, axes. Ctrl+C: copy; I: export as an image. Enter: choose the crosshair's
/// time. Escape: give up a drag, else hide the crosshair. Space held: the left button moves the
/// chart. Tab goes to the legend: there arrows move, Space or Enter switch the curve.
class TrendKeys {
  public:
    TrendKeys(CTrend& trend, TrendInteraction& interaction);

    /// Whether the key was used.
    bool press(const QKeyEvent& event);
    bool release(const QKeyEvent& event);
    /// Whether press() would use the key; windows then must not take it as a shortcut.
    static bool handles(const QKeyEvent& event);

  private:
    bool pressInLegend(const QKeyEvent& event);
    bool move(const QKeyEvent& event);
    bool zoom(const QKeyEvent& event);
    bool mark(const QKeyEvent& event);
    bool cursor(const QKeyEvent& event);
    bool display(const QKeyEvent& event);
    bool request(const QKeyEvent& event);

    CTrend& m_trend;
    TrendScene& m_scene;
    TrendCommands& m_commands;
    TrendInteraction& m_interaction;
};

} // namespace pellam
