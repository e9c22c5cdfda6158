#include "trend/control/TrendAccessible.h"

#include "trend/control/CTrend.h"
#include "trend/control/TrendAccessiblePart.h"
#include "trend/control/TrendCommands.h"
#include "trend/control/TrendScene.h"

#include <QCoreApplication>
#include <algorithm>

namespace pellam {

namespace {

using Kind = TrendPartId::Kind;

QAccessibleInterface* makeInterface(const QString& className, QObject* object) {
    if (className != QLatin1String(CTrend::staticMetaObject.className())) return nullptr;
    auto* trend = qobject_cast<CTrend*>(object);
    return trend ? new TrendAccessible(*trend) : nullptr;
}

QString say(const char* text) {
    return QCoreApplication::translate("pellam::TrendAccessible", text);
}

} // namespace

TrendAccessible::TrendAccessible(CTrend& trend) : QAccessibleWidget(&trend, QAccessible::Chart) {}

TrendAccessible::~TrendAccessible() {
    for (const auto& [id, child] : m_ids)
        QAccessible::deleteAccessibleInterface(child);
}

void TrendAccessible::install() {
    static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(installed);
}

void TrendAccessible::curveSwitched(CTrend& trend, int curve) {
    if (!QAccessible::isActive()) return;
    auto* chart = dynamic_cast<TrendAccessible*>(QAccessible::queryAccessibleInterface(&trend));
    if (!chart) return;
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(chart->part({Kind::Curve, curve}), changed);
    QAccessible::updateAccessibility(&event);
}

CTrend& TrendAccessible::trend() const {
    return *static_cast<CTrend*>(widget());
}

std::vector<TrendPartId> TrendAccessible::parts() const {
    const TrendScene& scene = trend().scene();
    std::vector<TrendPartId> parts{{Kind::TimeAxis, 0}};
    for (int axis = 1; axis <= trendScaleCount; ++axis)
        if (trend().GetYScEnabled(axis)) parts.push_back({Kind::Scale, axis});
    for (int curve = 0; curve < trend().GetUsedCurveCount(); ++curve)
        if (trend().GetCurveRelatedScale(curve) > 0) parts.push_back({Kind::Curve, curve});
    if (scene.marks.crosshair) parts.push_back({Kind::Crosshair, 0});
    for (int cursor = 0; cursor < 2; ++cursor)
        if (scene.marks.cursors[static_cast<std::size_t>(cursor)])
            parts.push_back({Kind::Cursor, cursor});
    return parts;
}

QAccessibleInterface* TrendAccessible::part(const TrendPartId& id) const {
    const auto known = m_ids.find(id);
    if (known != m_ids.end()) return QAccessible::accessibleInterface(known->second);
    auto* made = new TrendAccessiblePart(trend(), id);
    m_ids[id] = QAccessible::registerAccessibleInterface(made);
    return made;
}

int TrendAccessible::childCount() const {
    return static_cast<int>(parts().size());
}

QAccessibleInterface* TrendAccessible::child(int index) const {
    const auto all = parts();
    if (index < 0 || index >= static_cast<int>(all.size())) return nullptr;
    return part(all[static_cast<std::size_t>(index)]);
}

int TrendAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto* found = dynamic_cast<const TrendAccessiblePart*>(child);
    if (!found) return -1;
    const auto all = parts();
    const auto at = std::find(all.begin(), all.end(), found->id());
    return at == all.end() ? -1 : static_cast<int>(at - all.begin());
}

QAccessibleInterface* TrendAccessible::childAt(int x, int y) const {
    for (const TrendPartId& id : parts()) {
        QAccessibleInterface* found = part(id);
        if (found && found->rect().contains(x, y)) return found;
    }
    return nullptr;
}

QAccessibleInterface* TrendAccessible::focusChild() const {
    const int curve = trend().commands().focusedCurve();
    if (curve < 0 || !trend().hasFocus()) return QAccessibleWidget::focusChild();
    return part({Kind::Curve, curve});
}

QString TrendAccessible::text(QAccessible::Text type) const {
    if (type == QAccessible::Value) return trend().scene().overlay().content().text().join(u'\n');
    if (type == QAccessible::Description)
        return say("A reading is that of the last sample at or before its time.");
    return QAccessibleWidget::text(type);
}

} // namespace pellam
