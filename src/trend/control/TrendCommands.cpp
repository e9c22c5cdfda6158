#include "trend/control/TrendCommands.h"

#include "trend/control/CTrend.h"
#include "trend/control/LegendMenu.h"
#include "trend/control/ScaleDialog.h"
#include "trend/control/TrendScene.h"
#include "trend/control/TrendZoom.h"
#include "trend/curves/CurveWalk.h"
#include "trend/curves/ScaleFit.h"

#include <QAccessible>
#include <algorithm>

namespace pellam {

TrendCommands::TrendCommands(CTrend& trend) : m_trend(trend), m_scene(trend.scene()) {
    m_clock.start();
}

void TrendCommands::rangesChanged() {
    m_scene.invalidate();
    if (m_scene.marks.pointer) pointAt(m_scene.marks.pointer);
    m_trend.update();
    Q_EMIT m_trend.zoomChanged();
}

void TrendCommands::zoom(Step step, const std::function<bool(TrendZoom&)>& edit) {
    if (m_trend.locked()) return;
    const TrendRanges before = TrendRanges::of(m_scene.chart().state);
    TrendZoom zoom(m_trend.m_chart.state, m_scene.layout());
    if (!edit(zoom)) return;
    const bool goesOn = step != Step::Single && step == m_lastStep &&
                        (step == Step::Drag || m_clock.elapsed() < kStepPause);
    if (!goesOn) m_history.leave(before);
    m_lastStep = step;
    m_clock.restart();
    rangesChanged();
}

void TrendCommands::remember(const TrendRanges& before) {
    if (before == TrendRanges::of(m_scene.chart().state)) return;
    m_history.leave(before);
    endStep();
    Q_EMIT m_trend.zoomChanged();
}

void TrendCommands::zoomBack() {
    if (!m_history.canGoBack() || m_trend.locked()) return;
    TrendState& state = m_trend.m_chart.state;
    m_history.back(TrendRanges::of(state)).applyTo(state);
    endStep();
    rangesChanged();
}

void TrendCommands::zoomForward() {
    if (!m_history.canGoForward() || m_trend.locked()) return;
    TrendState& state = m_trend.m_chart.state;
    m_history.forward(TrendRanges::of(state)).applyTo(state);
    endStep();
    rangesChanged();
}

void TrendCommands::zoomAll() {
    zoom(Step::Single, [this](TrendZoom&) {
        TrendState& state = m_trend.m_chart.state;
        const TrendRanges all = everything(m_trend.chart());
        if (TrendRanges::of(state) == all) return false;
        all.applyTo(state);
        return true;
    });
}

void TrendCommands::fitValues(int axis) {
    zoom(Step::Single, [this, axis](TrendZoom&) {
        TrendRanges ranges = TrendRanges::of(m_trend.chart().state);
        for (int each = 1; each <= trendScaleCount; ++each) {
            if (axis != 0 && axis != each) continue;
            auto& shown = ranges.scales[static_cast<std::size_t>(each - 1)].shown;
            shown = fittedToShownTimes(m_trend.chart(), each).value_or(shown);
        }
        if (TrendRanges::of(m_trend.chart().state) == ranges) return false;
        ranges.applyTo(m_trend.m_chart.state);
        return true;
    });
}

void TrendCommands::chooseTime(double time) {
    Q_EMIT m_trend.timeClicked(sampleTime(time).value_or(time));
}

void TrendCommands::panTime(double part) {
    const double width = m_scene.layout().plot.width();
    zoom(Step::KeyTime, [&](TrendZoom& zoom) { return zoom.panTime(-part * width); });
}

void TrendCommands::panValues(double part) {
    zoom(Step::KeyValues, [&](TrendZoom& zoom) {
        bool changed = false;
        for (const ScaleBand& band : m_scene.layout().scales)
            changed |= zoom.panValues(part * band.band.height(), 0, band.axis);
        return changed;
    });
}

void TrendCommands::zoomIn(double factor, bool values) {
    const TrendLayout& layout = m_scene.layout();
    zoom(values ? Step::KeyValues : Step::KeyTime, [&](TrendZoom& zoom) {
        const auto& crosshair = m_scene.marks.crosshair;
        const double x = crosshair ? layout.timeMap.toPixel(*crosshair) : layout.plot.center().x();
        const bool inView = x >= layout.plot.left() && x <= layout.plot.right();
        if (!values) return zoom.zoomTime(factor, inView ? x : layout.plot.center().x());
        bool changed = false;
        for (const ScaleBand& band : layout.scales)
            changed |= zoom.zoomValues(factor, band.band.center().y(), band.axis);
        return changed;
    });
}

void TrendCommands::updateOverlay() {
    if (m_trend.locked()) return;
    m_trend.update(m_scene.refreshOverlay());
}

void TrendCommands::pointAt(const std::optional<QPointF>& pointer) {
    TrendMarks& marks = m_scene.marks;
    if (!m_follow || m_trend.locked()) return;
    const TrendLayout& layout = m_scene.layout();
    const bool inside = pointer && layout.plot.contains(*pointer);
    if (!inside && !marks.pointer) return;
    marks.pointer = inside ? pointer : std::nullopt;
    marks.crosshair.reset();
    if (inside) marks.crosshair = layout.timeMap.toValue(pointer->x());
    updateOverlay();
}

void TrendCommands::setCrosshair(std::optional<double> time) {
    m_scene.marks.pointer.reset();
    m_scene.marks.crosshair = time;
    updateOverlay();
    announce();
}

void TrendCommands::setCrosshairFollows(bool on) {
    m_follow = on;
    if (!on) setCrosshair(std::nullopt);
    if (on && m_trend.underMouse()) pointAt(m_trend.mapFromGlobal(QPointF(QCursor::pos())));
}

std::optional<double> TrendCommands::sampleTime(double time) const {
    std::optional<double> latest;
    for (const int curve : m_scene.reading().drawnCurves())
        if (const auto sample = m_scene.reading().sample(curve, time))
            latest = std::max(latest.value_or(sample->time), sample->time);
    return latest;
}

std::optional<double> TrendCommands::neighbour(double time, int direction) const {
    std::optional<double> nearest;
    for (const int curve : m_scene.reading().drawnCurves()) {
        const CurveReader reader(m_scene.chart().curves[static_cast<std::size_t>(curve)]);
        const auto sample = direction > 0 ? reader.next(time) : reader.previous(time);
        if (!sample) continue;
        const bool nearer =
            !nearest || (direction > 0 ? sample->time < *nearest : sample->time > *nearest);
        if (nearer) nearest = sample->time;
    }
    return nearest;
}

void TrendCommands::stepCrosshair(int direction) {
    const ScaleMap view = m_scene.layout().timeMap;
    const double middle = (view.min() + view.max()) / 2;
    const auto crosshair = m_scene.marks.crosshair;
    const double start = sampleTime(crosshair.value_or(middle)).value_or(view.min());
    // The first step only shows the crosshair.
    const std::optional<double> target = crosshair ? neighbour(start, direction) : start;
    if (target) showCrosshair(*target);
}

// Outside the shown times, these are moved until it stands in their middle.
void TrendCommands::showCrosshair(double time) {
    const ScaleMap view = m_scene.layout().timeMap;
    const double middle = (view.min() + view.max()) / 2;
    if (time < view.min() || time > view.max())
        zoom(Step::KeyTime, [&](TrendZoom& zoom) {
            return zoom.panTime(view.toPixel(middle) - view.toPixel(time));
        });
    setCrosshair(time);
}

void TrendCommands::moveCrosshair(double pixels) {
    const ScaleMap view = m_scene.layout().timeMap;
    const auto crosshair = m_scene.marks.crosshair;
    if (!crosshair) return showCrosshair((view.min() + view.max()) / 2);
    showCrosshair(view.toValue(view.toPixel(*crosshair) + pixels));
}

void TrendCommands::stepToNearest(int direction, const Next& next) {
    const ScaleMap& view = m_scene.layout().timeMap;
    const double start = m_scene.marks.crosshair.value_or(direction > 0 ? view.min() : view.max());
    std::optional<double> nearest;
    for (const int curve : m_scene.reading().drawnCurves()) {
        const auto sample = next(curve, start);
        if (!sample) continue;
        const bool nearer = !nearest || (sample->time - *nearest) * direction < 0;
        if (nearer) nearest = sample->time;
    }
    if (nearest) showCrosshair(*nearest);
}

void TrendCommands::stepToExtreme(int direction) {
    constexpr double kDepth = 0.04; // of the height of a scale: smaller turns are ripples
    const TrendLayout layout = m_scene.layout();
    stepToNearest(direction, [&](int index, double time) -> std::optional<CurveSample> {
        const TrendCurve& curve = m_scene.chart().curves[static_cast<std::size_t>(index)];
        const ScaleBand* const band = layout.scale(curve.style().relatedScale);
        if (!band) return {};
        return CurveWalk(curve, direction).extreme(time, band->map, kDepth * band->band.height());
    });
}

void TrendCommands::stepToGap(int direction) {
    stepToNearest(direction, [&](int index, double time) {
        return CurveWalk(m_scene.chart().curves[static_cast<std::size_t>(index)], direction)
            .gap(time);
    });
}

void TrendCommands::setCursor(int cursor, std::optional<double> time) {
    TrendMarks& marks = m_scene.marks;
    const ScaleMap& view = m_scene.layout().timeMap;
    double at = time ? *time : marks.crosshair.value_or((view.min() + view.max()) / 2);
    const auto sample = sampleTime(at);
    if (sample && *sample >= view.min() && *sample <= view.max()) at = *sample;
    marks.cursors[static_cast<std::size_t>(cursor)] = at;
    marks.activeCursor = cursor;
    updateOverlay();
    announce();
}

void TrendCommands::removeCursor() {
    TrendMarks& marks = m_scene.marks;
    if (marks.activeCursor < 0) return;
    marks.cursors[static_cast<std::size_t>(marks.activeCursor)].reset();
    const int other = 1 - marks.activeCursor;
    marks.activeCursor = marks.cursors[static_cast<std::size_t>(other)] ? other : -1;
    updateOverlay();
    announce();
}

void TrendCommands::removeCursors() {
    m_scene.marks.cursors = {};
    m_scene.marks.activeCursor = -1;
    updateOverlay();
    announce();
}

void TrendCommands::toggleCurve(int curve) {
    m_trend.SetCurveVisible(curve, m_trend.GetCurveVisible(curve) == 0 ? 1 : 0);
}

void TrendCommands::enterLegend() {
    m_scene.marks.legendFocus = m_scene.layout().legendItems.empty() ? -1 : 0;
    updateOverlay();
    announce();
}

void TrendCommands::moveInLegend(int by) {
    const TrendLayout& layout = m_scene.layout();
    const auto more = layout.legendLeftOut.empty() ? 0 : 1;
    const auto count = static_cast<int>(layout.legendItems.size()) + more;
    if (count == 0) return;
    m_scene.marks.legendFocus = std::clamp(m_scene.marks.legendFocus + by, 0, count - 1);
    updateOverlay();
    announce();
}

void TrendCommands::leaveLegend() {
    m_scene.marks.legendFocus = -1;
    updateOverlay();
    announce();
}

int TrendCommands::focusedCurve() {
    const auto& items = m_scene.layout().legendItems;
    const auto item = static_cast<std::size_t>(m_scene.marks.legendFocus);
    return m_scene.marks.legendFocus >= 0 && item < items.size() ? items[item].curve : -1;
}

void TrendCommands::openLegendMenu() {
    auto* menu = new LegendMenu(m_trend, m_scene.layout().legendLeftOut);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(m_trend.mapToGlobal(m_scene.layout().legendMore.bottomLeft().toPoint()));
}

void TrendCommands::pressInLegend() {
    const int curve = focusedCurve();
    curve >= 0 ? toggleCurve(curve) : openLegendMenu();
}

void TrendCommands::editScale(int axis) {
    const TrendScale* scale = m_scene.chart().scale(axis);
    if (!scale || !scale->enabled || !scale->userDialogEnabled) return;
    ScaleDialog dialog(axis, m_scene.chart().state, &m_trend);
    if (dialog.exec() != QDialog::Accepted) return;
    const TrendScale edited = dialog.scale();
    zoom(Step::Single, [&](TrendZoom&) {
        *m_trend.m_chart.scale(axis) = edited;
        return true;
    });
}

void TrendCommands::announce() {
    if (!QAccessible::isActive()) return;
    if (focusedCurve() >= 0) {
        QAccessibleEvent event(&m_trend, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
        return;
    }
    QAccessibleValueChangeEvent event(&m_trend, m_scene.overlay().content().text().join(u'\n'));
    QAccessible::updateAccessibility(&event);
}

} // namespace pellam
