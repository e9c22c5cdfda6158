#include "trend/control/TrendKeys.h"

#include "trend/control/CTrend.h"
#include "trend/control/TrendCommands.h"
#include "trend/control/TrendInteraction.h"
#include "trend/control/TrendScene.h"
#include "ui/commands/CommandSet.h"

#include <QKeyEvent>

namespace pellam {

namespace {

constexpr double kStep = 0.1;
constexpr double kManyPixels = 10;
constexpr double kPage = 0.9;
constexpr double kCloser = 0.8;

Qt::KeyboardModifiers modifiers(const QKeyEvent& event) {
    return event.modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
}

} // namespace

TrendKeys::TrendKeys(CTrend& trend, TrendInteraction& interaction)
    : m_trend(trend),
      m_scene(trend.scene()),
      m_commands(trend.commands()),
      m_interaction(interaction) {}

bool TrendKeys::handles(const QKeyEvent& event) const {
    const auto held = modifiers(event);
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        return !(held & Qt::AltModifier) || !(held & Qt::ControlModifier);
    case Qt::Key_Plus:
    case Qt::Key_Equal:
    case Qt::Key_Minus:
        return !(held & Qt::ControlModifier) || m_trend.actions().handles(event);
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
        return held == Qt::NoModifier;
    default:
        return m_trend.actions().handles(event);
    }
}

bool TrendKeys::press(const QKeyEvent& event) {
    if (m_trend.locked() || !handles(event)) return false;
    if (m_scene.marks.legendFocus >= 0 && pressInLegend(event)) return true;
    return move(event) || mark(event) || m_trend.actions().press(event);
}

bool TrendKeys::release(const QKeyEvent& event) {
    if (event.key() != Qt::Key_Space || event.isAutoRepeat()) return false;
    m_interaction.setSpaceHeld(false);
    return true;
}

bool TrendKeys::pressInLegend(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
        m_commands.moveInLegend(-1);
        return true;
    case Qt::Key_Right:
    case Qt::Key_Down:
        m_commands.moveInLegend(1);
        return true;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!event.isAutoRepeat()) m_commands.pressInLegend();
        return true;
    case Qt::Key_Escape:
        m_commands.leaveLegend();
        return true;
    default:
        return false;
    }
}

bool TrendKeys::move(const QKeyEvent& event) {
    const auto held = modifiers(event);
    const bool pan = held != Qt::NoModifier;
    const bool alt = held & Qt::AltModifier;
    const double pixels = held & Qt::ShiftModifier ? kManyPixels : 1;
    switch (event.key()) {
    case Qt::Key_Left:
        if (alt) return m_commands.moveCrosshair(-pixels), true;
        pan ? m_commands.panTime(-kStep) : m_commands.stepCrosshair(-1);
        return true;
    case Qt::Key_Right:
        if (alt) return m_commands.moveCrosshair(pixels), true;
        pan ? m_commands.panTime(kStep) : m_commands.stepCrosshair(1);
        return true;
    case Qt::Key_Up:
        m_commands.panValues(kStep);
        return true;
    case Qt::Key_Down:
        m_commands.panValues(-kStep);
        return true;
    case Qt::Key_PageUp:
        m_commands.panTime(-kPage);
        return true;
    case Qt::Key_PageDown:
        m_commands.panTime(kPage);
        return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
    case Qt::Key_Minus:
        // Those with Ctrl are commands.
        if (event.modifiers() & Qt::ControlModifier) return false;
        m_commands.zoomIn(event.key() == Qt::Key_Minus ? 1 / kCloser : kCloser,
                          event.modifiers() & Qt::AltModifier);
        return true;
    default:
        return false;
    }
}

bool TrendKeys::mark(const QKeyEvent& event) {
    const auto& crosshair = m_scene.marks.crosshair;
    switch (event.key()) {
    case Qt::Key_Space:
        if (!event.isAutoRepeat()) m_interaction.setSpaceHeld(true);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (crosshair) m_commands.chooseTime(*crosshair);
        return crosshair.has_value();
    case Qt::Key_Escape:
        if (m_interaction.cancel()) return true;
        if (!crosshair) return false;
        m_commands.setCrosshair(std::nullopt);
        return true;
    default:
        return false;
    }
}

} // namespace pellam
