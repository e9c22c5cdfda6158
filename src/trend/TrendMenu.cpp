#include "trend/TrendMenu.h"

#include "trend/CTrend.h"
#include "trend/TrendCommands.h"
#include "trend/TrendScene.h"

namespace pellam {

namespace {

int enabledScales(const TrendChart& chart) {
    int count = 0;
    for (const TrendScale& scale : chart.state.scales)
        count += scale.enabled;
    return count;
}

} // namespace

template <typename Do>
QAction* TrendMenu::add(const QString& text, const char* key, bool enabled, Do act) {
    // The key is only shown: the control itself reads it.
    QAction* action = addAction(*key ? text + u'\t' + tr(key) : text);
    action->setEnabled(enabled);
    connect(action, &QAction::triggered, &m_trend, act);
    return action;
}

template <typename Do>
void TrendMenu::addToggle(const QString& text, bool on, Do act) {
    QAction* action = addAction(text);
    action->setCheckable(true);
    action->setChecked(on);
    connect(action, &QAction::toggled, &m_trend, act);
}

TrendMenu::TrendMenu(CTrend& trend, std::optional<double> time, int axis)
    : QMenu(&trend),
      m_trend(trend) {
    const TrendChart& chart = trend.chart();
    addZoom();
    addSeparator();
    addToggle(tr("&Crosshair"), trend.commands().crosshairFollows(),
              [this](bool on) { m_trend.commands().setCrosshairFollows(on); });
    addCursors(time);
    addSeparator();
    add(tr("S&trip Chart"), "", enabledScales(chart) > 1,
        [this] { Q_EMIT m_trend.stripChartRequested(); });
    addToggle(tr("&Break Lines at Gaps"), chart.state.breakGaps,
              [this](bool on) { m_trend.setBreakGaps(on); });
    addSeparator();
    addScales(axis);
    addSeparator();
    add(tr("C&opy"), "", true, [this] { Q_EMIT m_trend.copyRequested(); });
    add(tr("E&xport Image..."), "", true, [this] { Q_EMIT m_trend.exportImageRequested(); });
}

void TrendMenu::addZoom() {
    addToggle(tr("Selection &Zoom"), m_trend.GetLassoZoom() != 0,
              [this](bool on) { m_trend.SetLassoZoom(on ? 1 : 0); });
    add(tr("Zoom &Back"), QT_TR_NOOP("Backspace"), m_trend.canZoomBack(),
        [this] { m_trend.zoomBack(); });
    add(tr("Zoom &Forward"), QT_TR_NOOP("Shift+Backspace"), m_trend.canZoomForward(),
        [this] { m_trend.zoomForward(); });
    const bool zoomed = TrendRanges::of(m_trend.chart().state) != m_trend.homeRanges();
    add(tr("Show &Everything"), QT_TR_NOOP("Home"), zoomed, [this] { m_trend.zoomAll(); });
}

void TrendMenu::addCursors(std::optional<double> time) {
    const bool any = !m_trend.scene().reading().drawnCurves().empty();
    add(tr("Set Cursor &A"), QT_TR_NOOP("A"), any,
        [this, time] { m_trend.commands().setCursor(0, time); });
    add(tr("Set C&ursor B"), QT_TR_NOOP("B"), any,
        [this, time] { m_trend.commands().setCursor(1, time); });
    add(tr("&Remove Cursors"), "", m_trend.scene().marks.measuring(),
        [this] { m_trend.commands().removeCursors(); });
}

void TrendMenu::addScales(int axis) {
    const TrendScale* scale = m_trend.chart().scale(axis);
    if (scale && scale->enabled && scale->userDialogEnabled)
        add(tr("Y Axis &%1...").arg(axis), "", true,
            [this, axis] { m_trend.commands().editScale(axis); });
    add(tr("Edit A&xis..."), "", true, [this] { Q_EMIT m_trend.editAxisRequested(); });
    add(tr("Auto &Scale"), "", true, [this] { Q_EMIT m_trend.autoScaleRequested(); });
}

} // namespace pellam
