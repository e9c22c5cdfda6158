#include "trend/control/TrendInteraction.h"

#include "trend/control/CTrend.h"
#include "trend/control/TrendCommands.h"
#include "trend/control/TrendScene.h"
#include "trend/control/TrendZoom.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace pellam {

namespace {

constexpr double kGrab = 6;     // pixels beside a cursor that still grab it
constexpr double kNotch = 120;  // what one notch of a wheel turns
constexpr double kCloser = 0.8; // range after one notch
constexpr double kMoved = 4;    // pixels up to which a press and release are a click

using Step = TrendCommands::Step;

} // namespace

TrendInteraction::TrendInteraction(CTrend& trend)
    : m_trend(trend),
      m_scene(trend.scene()),
      m_commands(trend.commands()) {}

int TrendInteraction::cursorAt(const QPointF& at) {
    const TrendLayout& layout = m_scene.layout();
    if (!layout.plot.contains(at)) return -1;
    int found = m_scene.overlay().gripAt(at);
    if (found >= 0) return found;
    double nearest = kGrab;
    for (int i = 0; i < 2; ++i) {
        const auto& cursor = m_scene.marks.cursors[static_cast<std::size_t>(i)];
        if (!cursor) continue;
        const double distance = std::abs(layout.timeMap.toPixel(*cursor) - at.x());
        if (distance > nearest) continue;
        nearest = distance;
        found = i;
    }
    return found;
}

TrendInteraction::Drag TrendInteraction::dragFor(const QMouseEvent& event) {
    const QPointF at = event.position();
    const TrendHit hit = m_scene.layout().hit(at);
    const bool left = event.button() == Qt::LeftButton;
    if (!left && event.button() != Qt::MiddleButton) return Drag::None;
    m_index = hit.index;
    switch (hit.part) {
    case TrendPart::Legend:
    case TrendPart::LegendMore:
        return left ? Drag::Click : Drag::None;
    case TrendPart::TimeAxis:
        return Drag::PanTime;
    case TrendPart::Scale:
        return Drag::PanScale;
    case TrendPart::Nothing:
        return Drag::None;
    case TrendPart::Plot:
        break;
    }
    if (!left || m_space) return Drag::Pan;
    m_index = cursorAt(at);
    if (m_index >= 0) return Drag::Cursor;
    return m_trend.GetLassoZoom() ? Drag::Lasso : Drag::Pan;
}

void TrendInteraction::press(const QMouseEvent& event) {
    if (m_drag != Drag::None || m_trend.locked()) return;
    m_pressed = m_last = event.position();
    m_moved = false;
    m_drag = dragFor(event);
    m_button = m_drag == Drag::None ? Qt::NoButton : event.button();
    m_commands.endStep();
    if (m_drag == Drag::Lasso) m_scene.lasso.start(m_pressed, m_scene.layout().plot);
    if (m_drag == Drag::Cursor) {
        m_scene.marks.activeCursor = m_index;
        m_commands.updateOverlay();
    }
    if (m_drag == Drag::Pan) m_trend.setCursor(Qt::ClosedHandCursor);
}

void TrendInteraction::pan(const QPointF& to) {
    const QPointF by = to - m_last;
    m_last = to;
    m_commands.zoom(Step::Drag, [&](TrendZoom& zoom) {
        bool changed = false;
        if (m_drag != Drag::PanScale) changed = zoom.panTime(by.x());
        if (m_drag == Drag::Pan) changed |= zoom.panValues(by.y(), m_pressed.y());
        if (m_drag == Drag::PanScale) changed |= zoom.panValues(by.y(), 0, m_index);
        return changed;
    });
}

void TrendInteraction::move(const QMouseEvent& event) {
    const QPointF at = event.position();
    if (m_drag == Drag::None || m_drag == Drag::Click) {
        showPointer(at);
        return;
    }
    const QPointF off = at - m_pressed;
    m_moved = m_moved || std::hypot(off.x(), off.y()) > kMoved;
    if (!m_moved) return;
    if (m_drag == Drag::Lasso) {
        m_scene.lasso.moveTo(at);
        m_scene.marks.pointer = at;
        m_commands.updateOverlay();
    } else if (m_drag == Drag::Cursor) {
        const QRectF& plot = m_scene.layout().plot;
        const double x = std::clamp(at.x(), plot.left(), plot.right());
        m_commands.pointAt(QPointF(x, std::clamp(at.y(), plot.top(), plot.bottom())));
        m_commands.setCursor(m_index, m_scene.layout().timeMap.toValue(x));
    } else {
        m_commands.pointAt(at);
        pan(at);
    }
}

void TrendInteraction::click(const QPointF& at) {
    const TrendHit hit = m_scene.layout().hit(at);
    if (m_drag == Drag::Click) {
        if (hit.part == TrendPart::Legend && hit.index == m_index)
            m_commands.toggleCurve(hit.index);
        if (hit.part == TrendPart::LegendMore) m_commands.openLegendMenu();
    } else if (hit.part == TrendPart::Plot && m_button == Qt::LeftButton &&
               m_drag != Drag::Cursor) {
        m_commands.chooseTime(m_scene.layout().timeMap.toValue(at.x()));
    }
}

void TrendInteraction::release(const QMouseEvent& event) {
    if (m_drag == Drag::None || event.button() != m_button) return;
    const QPointF at = event.position();
    if (m_drag == Drag::Lasso) {
        const LassoZoom lasso = m_scene.lasso;
        m_scene.lasso.cancel();
        const auto rect = lasso.rect();
        if (rect) {
            m_commands.zoom(Step::Single, [&](TrendZoom& zoom) {
                return zoom.zoomTo(*rect, lasso.selectsTime(), lasso.selectsValues());
            });
        } else {
            click(at);
        }
    } else if (!m_moved) {
        click(at);
    }
    m_drag = Drag::None;
    m_commands.endStep();
    m_commands.updateOverlay();
    showPointer(at);
}

void TrendInteraction::doubleClick(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton || m_trend.locked()) return;
    const TrendHit hit = m_scene.layout().hit(event.position());
    if (hit.part == TrendPart::Scale) {
        m_commands.editScale(hit.index);
    } else if (hit.part == TrendPart::Legend || hit.part == TrendPart::LegendMore) {
        press(event); // a quick second click switches the curve again
    } else if (hit.part != TrendPart::Nothing) {
        m_commands.zoomAll();
    }
}

bool TrendInteraction::wheel(const QWheelEvent& event) {
    const QPointF at = event.position();
    const TrendHit hit = m_scene.layout().hit(at);
    const bool usable = hit.part == TrendPart::Plot || hit.part == TrendPart::TimeAxis ||
                        hit.part == TrendPart::Scale;
    if (!usable || m_drag != Drag::None) return false;
    const QPointF turned = QPointF(event.angleDelta()) / kNotch;
    const bool values = hit.part == TrendPart::Scale ||
                        (hit.part == TrendPart::Plot && event.modifiers() & Qt::ShiftModifier);
    // Some systems turn the wheel sideways while Shift is held.
    const double notches = turned.y() != 0 || !values ? turned.y() : turned.x();
    if (notches == 0 && turned.x() != 0) {
        m_commands.zoom(Step::WheelTime,
                        [&](TrendZoom& zoom) { return zoom.panTime(turned.x() * kNotch / 2); });
    } else if (notches != 0) {
        const double factor = std::pow(kCloser, notches);
        const int axis = hit.part == TrendPart::Scale ? hit.index : 0;
        m_commands.zoom(values ? Step::WheelValues : Step::WheelTime, [&](TrendZoom& zoom) {
            return values ? zoom.zoomValues(factor, at.y(), axis) : zoom.zoomTime(factor, at.x());
        });
    }
    return true;
}

void TrendInteraction::leave() {
    m_commands.pointAt(std::nullopt);
}

void TrendInteraction::setSpaceHeld(bool held) {
    m_space = held;
    if (m_drag == Drag::None && m_scene.marks.pointer) showPointer(*m_scene.marks.pointer);
}

bool TrendInteraction::cancel() {
    if (m_drag == Drag::None) return false;
    m_drag = Drag::None;
    m_scene.lasso.cancel();
    m_commands.endStep();
    m_commands.updateOverlay();
    if (m_scene.marks.pointer) showPointer(*m_scene.marks.pointer);
    return true;
}

Qt::CursorShape TrendInteraction::shapeAt(const QPointF& at) {
    switch (m_scene.layout().hit(at).part) {
    case TrendPart::Legend:
    case TrendPart::LegendMore:
        return Qt::PointingHandCursor;
    case TrendPart::TimeAxis:
        return Qt::SizeHorCursor;
    case TrendPart::Scale:
        return Qt::SizeVerCursor;
    case TrendPart::Nothing:
        return Qt::ArrowCursor;
    case TrendPart::Plot:
        break;
    }
    if (m_space) return Qt::OpenHandCursor;
    if (cursorAt(at) >= 0) return Qt::SplitHCursor;
    return m_trend.GetLassoZoom() ? Qt::CrossCursor : Qt::OpenHandCursor;
}

void TrendInteraction::showPointer(const QPointF& at) {
    m_commands.pointAt(at);
    m_trend.setCursor(shapeAt(at));
}

} // namespace pellam
