#include "trend/control/TrendAccessiblePart.h"

#include "trend/control/CTrend.h"
#include "trend/control/TrendCommands.h"
#include "trend/control/TrendScene.h"

#include <QCoreApplication>
#include <QWindow>

namespace pellam {

namespace {

using Kind = TrendPartId::Kind;

QString say(const char* text) {
    return QCoreApplication::translate("pellam::TrendAccessible", text);
}

} // namespace

TrendAccessiblePart::TrendAccessiblePart(CTrend& trend, const TrendPartId& id)
    : m_trend(&trend),
      m_id(id) {}

TrendScene& TrendAccessiblePart::scene() const {
    return m_trend->scene();
}

bool TrendAccessiblePart::isValid() const {
    return m_trend && parent() && parent()->indexOfChild(this) >= 0;
}

QWindow* TrendAccessiblePart::window() const {
    return m_trend ? m_trend->window()->windowHandle() : nullptr;
}

QAccessibleInterface* TrendAccessiblePart::parent() const {
    return QAccessible::queryAccessibleInterface(m_trend.data());
}

QString TrendAccessiblePart::text(QAccessible::Text type) const {
    if (!isValid()) return {};
    if (type == QAccessible::Name) return name();
    if (type == QAccessible::Value) return value();
    return {};
}

QString TrendAccessiblePart::name() const {
    switch (m_id.kind) {
    case Kind::TimeAxis:
        return scene().chart().state.xAxis.kind == XAxis::Kind::Rows ? say("Row axis")
                                                                     : say("Time axis");
    case Kind::Scale:
        return say("Y axis %1: %2").arg(m_id.index).arg(m_trend->GetYScText(m_id.index));
    case Kind::Curve:
        return m_trend->GetCurveText(m_id.index).trimmed();
    case Kind::Crosshair:
        return say("Crosshair");
    case Kind::Cursor:
        break;
    }
    return m_id.index == 0 ? say("Cursor A") : say("Cursor B");
}

QString TrendAccessiblePart::scaleValue() const {
    const ScaleBand* band = scene().layout().scale(m_id.index);
    if (!band) return {};
    const QString range = say("%1 to %2")
                              .arg(scene().reading().number(band->map.min()),
                                   scene().reading().number(band->map.max()));
    return band->map.logarithmic() ? say("%1, logarithmic").arg(range) : range;
}

QString TrendAccessiblePart::curveValue() const {
    const TrendReading& reading = scene().reading();
    if (scene().marks.crosshair) return reading.valueAt(m_id.index, *scene().marks.crosshair);
    const auto extent = m_trend->GetDataRange(m_id.index);
    if (!extent) return say("no values");
    const auto& curve = m_trend->chart().curves[static_cast<std::size_t>(m_id.index)];
    const QString unit = reading.unit(m_id.index);
    return say("%1 to %2%3, %4 values")
        .arg(reading.number(extent->yFrom), reading.number(extent->yTo),
             unit.isEmpty() ? unit : u' ' + unit, QString::number(curve.valueCount()));
}

QString TrendAccessiblePart::value() const {
    const TrendReading& reading = scene().reading();
    const TrendMarks& marks = scene().marks;
    switch (m_id.kind) {
    case Kind::TimeAxis: {
        const ScaleMap& view = scene().layout().timeMap;
        return say("%1 to %2").arg(reading.timeText(view.min()), reading.timeText(view.max()));
    }
    case Kind::Scale:
        return scaleValue();
    case Kind::Curve:
        return curveValue();
    case Kind::Crosshair:
        return reading.timeText(*marks.crosshair);
    case Kind::Cursor:
        break;
    }
    return reading.timeText(*marks.cursors[static_cast<std::size_t>(m_id.index)]);
}

QRectF TrendAccessiblePart::lineAt(double time) const {
    const TrendLayout& layout = scene().layout();
    const double x = layout.timeMap.toPixel(time);
    return QRectF(x - 2, layout.plot.top(), 5, layout.plot.height()) & layout.plot;
}

QRectF TrendAccessiblePart::place() const {
    const TrendLayout& layout = scene().layout();
    const TrendMarks& marks = scene().marks;
    switch (m_id.kind) {
    case Kind::TimeAxis:
        return layout.timeAxis;
    case Kind::Scale: {
        const ScaleBand* band = layout.scale(m_id.index);
        return band ? band->rect : QRectF();
    }
    case Kind::Curve:
        for (const LegendItem& item : layout.legendItems)
            if (item.curve == m_id.index) return item.rect;
        return {};
    case Kind::Crosshair:
        return lineAt(*marks.crosshair);
    case Kind::Cursor:
        break;
    }
    return lineAt(*marks.cursors[static_cast<std::size_t>(m_id.index)]);
}

QRect TrendAccessiblePart::rect() const {
    if (!isValid()) return {};
    const QRect local = place().toAlignedRect();
    return local.isEmpty() ? QRect() : QRect(m_trend->mapToGlobal(local.topLeft()), local.size());
}

QAccessible::Role TrendAccessiblePart::role() const {
    switch (m_id.kind) {
    case Kind::TimeAxis:
    case Kind::Scale:
        return QAccessible::Grouping;
    case Kind::Curve:
        return QAccessible::CheckBox;
    case Kind::Crosshair:
    case Kind::Cursor:
        break;
    }
    return QAccessible::Indicator;
}

QAccessible::State TrendAccessiblePart::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    state.readOnly = m_id.kind != Kind::Curve;
    if (m_id.kind == Kind::Curve) {
        state.checkable = true;
        state.checked = m_trend->GetCurveVisible(m_id.index) != 0;
        state.focusable = true;
        state.focused = m_trend->hasFocus() && m_trend->commands().focusedCurve() == m_id.index;
    }
    return state;
}

void* TrendAccessiblePart::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ActionInterface && !actionNames().isEmpty())
        return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

QStringList TrendAccessiblePart::actionNames() const {
    if (m_id.kind == Kind::Curve) return {toggleAction()};
    if (m_id.kind == Kind::Scale) return {pressAction()};
    return {};
}

void TrendAccessiblePart::doAction(const QString& name) {
    if (!isValid() || !actionNames().contains(name)) return;
    if (m_id.kind == Kind::Curve) m_trend->commands().toggleCurve(m_id.index);
    if (m_id.kind == Kind::Scale) m_trend->commands().editScale(m_id.index);
}

QStringList TrendAccessiblePart::keyBindingsForAction(const QString& name) const {
    return m_id.kind == Kind::Curve && name == toggleAction() ? QStringList{say("Space")}
                                                              : QStringList();
}

} // namespace pellam
