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

/// The control's keys: those that move things, here, and those of its commands.
///
/// Left, Right: crosshair to the neighbouring sample; with Alt: by a pixel, with Alt+Shift by ten;
/// with Ctrl (or Shift): move a tenth in time.
/// Up, Down: move a tenth in values. PageUp, PageDown: a page earlier, later. Plus, Minus: zoom
/// time; with Alt: values. Enter: choose the crosshair's time. Escape: give up a drag, else hide
/// the crosshair. Space held: the left button moves the chart. Tab goes to the legend: there arrows
/// move, Space or Enter switch the curve.
class TrendKeys {
  public:
    TrendKeys(CTrend& trend, TrendInteraction& interaction);

    /// Whether the key was used.
    bool press(const QKeyEvent& event);
    bool release(const QKeyEvent& event);
    /// Whether press() would use the key; windows then must not take it as a shortcut.
    bool handles(const QKeyEvent& event) const;

  private:
    bool pressInLegend(const QKeyEvent& event);
    bool move(const QKeyEvent& event);
    bool mark(const QKeyEvent& event);

    CTrend& m_trend;
    TrendScene& m_scene;
    TrendCommands& m_commands;
    TrendInteraction& m_interaction;
};

} // namespace pellam
