#include "trend/control/TrendKeys.h"

#include "trend/control/CTrend.h"
#include "trend/control/TrendCommands.h"
#include "trend/control/TrendInteraction.h"
#include "trend/control/TrendScene.h"
#include "trend/control/TrendZoom.h"

#include <QKeyEvent>

namespace pellam {

namespace {

constexpr double kStep = 0.1;
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

bool TrendKeys::handles(const QKeyEvent& event) {
    const auto held = modifiers(event);
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        return !(held & Qt::AltModifier);
    case Qt::Key_Plus:
    case Qt::Key_Equal:
    case Qt::Key_Minus:
        return !(held & Qt::ControlModifier);
    case Qt::Key_Backspace:
        return held == Qt::NoModifier || held == Qt::ShiftModifier;
    case Qt::Key_C:
        return held == Qt::NoModifier || held == Qt::ControlModifier;
    case Qt::Key_X:
        return held == (Qt::ControlModifier | Qt::ShiftModifier);
    case Qt::Key_Delete:
        return held == Qt::NoModifier || held == Qt::ShiftModifier;
    case Qt::Key_1:
    case Qt::Key_2:
    case Qt::Key_3:
    case Qt::Key_4:
    case Qt::Key_5:
    case Qt::Key_6:
    case Qt::Key_F5:
    case Qt::Key_F6:
    case Qt::Key_F7:
    case Qt::Key_G:
    case Qt::Key_I:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_A:
    case Qt::Key_B:
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
        return held == Qt::NoModifier;
    default:
        return false;
    }
}

bool TrendKeys::press(const QKeyEvent& event) {
    if (m_trend.locked() || !handles(event)) return false;
    if (m_scene.marks.legendFocus >= 0 && pressInLegend(event)) return true;
    return move(event) || zoom(event) || cursor(event) || mark(event) || display(event) ||
           request(event);
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
    const bool pan = modifiers(event) != Qt::NoModifier;
    switch (event.key()) {
    case Qt::Key_Left:
        pan ? m_commands.panTime(-kStep) : m_commands.stepCrosshair(-1);
        return true;
    case Qt::Key_Right:
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
    default:
        return false;
    }
}

bool TrendKeys::zoom(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
    case Qt::Key_Minus:
        m_commands.zoomIn(event.key() == Qt::Key_Minus ? 1 / kCloser : kCloser,
                          event.modifiers() & Qt::AltModifier);
        return true;
    case Qt::Key_Home:
        m_commands.zoomAll();
        return true;
    case Qt::Key_Backspace:
        if (event.modifiers() & Qt::ShiftModifier) {
            m_commands.zoomForward();
        } else {
            m_commands.zoomBack();
        }
        return true;
    default:
        return false;
    }
}

bool TrendKeys::cursor(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_A:
        m_commands.setCursor(0);
        return true;
    case Qt::Key_B:
        m_commands.setCursor(1);
        return true;
    case Qt::Key_Delete:
        modifiers(event) == Qt::ShiftModifier ? m_commands.removeCursors()
                                              : m_commands.removeCursor();
        return true;
    default:
        return false;
    }
}

bool TrendKeys::display(const QKeyEvent& event) {
    const int key = event.key();
    if (key == Qt::Key_F6)
        m_trend.SetLassoZoom(m_trend.GetLassoZoom() == 0 ? 1 : 0);
    else if (key == Qt::Key_G)
        m_trend.setBreakGaps(!m_scene.chart().state.breakGaps);
    else if (key == Qt::Key_C && modifiers(event) == Qt::NoModifier)
        m_commands.setCrosshairFollows(!m_commands.crosshairFollows());
    else if (key >= Qt::Key_1 && key <= Qt::Key_6)
        m_commands.editScale(key - Qt::Key_0);
    else
        return false;
    return true;
}

// What the owner does.
bool TrendKeys::request(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_C:
        Q_EMIT m_trend.copyRequested();
        return true;
    case Qt::Key_I:
        Q_EMIT m_trend.exportImageRequested();
        return true;
    case Qt::Key_X:
        Q_EMIT m_trend.editAxisRequested();
        return true;
    case Qt::Key_F5:
        Q_EMIT m_trend.autoScaleRequested();
        return true;
    case Qt::Key_F7:
        if (m_scene.chart().enabledScales() > 1) Q_EMIT m_trend.stripChartRequested();
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
        if (crosshair) Q_EMIT m_trend.timeClicked(*crosshair);
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
