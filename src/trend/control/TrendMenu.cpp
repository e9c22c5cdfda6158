#include "trend/control/TrendMenu.h"

#include "trend/control/CTrend.h"
#include "trend/control/TrendCommands.h"
#include "trend/control/TrendScene.h"

namespace pellam {

template <typename Do>
QAction* TrendMenu::add(const QString& text, const char* key, bool enabled, Do act) {
    // The key is only shown: the control itself reads it.
    QAction* action = addAction(text + u'\t' + tr(key));
    action->setEnabled(enabled);
    connect(action, &QAction::triggered, &m_trend, act);
    return action;
}

template <typename Do>
QAction* TrendMenu::addToggle(const QString& text, const char* key, bool on, Do act) {
    QAction* action = addAction(text + u'\t' + tr(key));
    action->setCheckable(true);
    action->setChecked(on);
    connect(action, &QAction::toggled, &m_trend, act);
    return action;
}

TrendMenu::TrendMenu(CTrend& trend, std::optional<double> time, int axis)
    : QMenu(&trend),
      m_trend(trend) {
    const TrendChart& chart = trend.chart();
    addZoom();
    addSeparator();
    addToggle(tr("&Crosshair"), QT_TR_NOOP("C"), trend.commands().crosshairFollows(),
              [this](bool on) { m_trend.commands().setCrosshairFollows(on); });
    addCursors(time);
    addSeparator();
    addToggle(tr("S&trip Chart"), QT_TR_NOOP("F7"), chart.isStrip(), [this] {
        Q_EMIT m_trend.stripChartRequested();
    })->setEnabled(chart.enabledScales() > 1);
    addToggle(tr("&Break Lines at Gaps"), QT_TR_NOOP("G"), chart.state.breakGaps,
              [this](bool on) { m_trend.setBreakGaps(on); });
    addSeparator();
    addScales(axis);
    addSeparator();
    add(tr("C&opy"), QT_TR_NOOP("Ctrl+C"), true, [this] { Q_EMIT m_trend.copyRequested(); });
    add(tr("E&xport Image..."), QT_TR_NOOP("I"), true,
        [this] { Q_EMIT m_trend.exportImageRequested(); });
}

void TrendMenu::addZoom() {
    addToggle(tr("Selection &Zoom"), QT_TR_NOOP("F6"), m_trend.GetLassoZoom() != 0,
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
    add(tr("&Remove Cursors"), QT_TR_NOOP("Shift+Delete"), m_trend.scene().marks.measuring(),
        [this] { m_trend.commands().removeCursors(); });
}

void TrendMenu::addScales(int axis) {
    const TrendScale* scale = m_trend.chart().scale(axis);
    if (scale && scale->enabled && scale->userDialogEnabled)
        add(tr("Y Axis &%1...").arg(axis), QByteArray::number(axis).constData(), true,
            [this, axis] { m_trend.commands().editScale(axis); });
    add(tr("Edit A&xis..."), QT_TR_NOOP("Ctrl+Shift+X"), true,
        [this] { Q_EMIT m_trend.editAxisRequested(); });
    add(tr("Auto &Scale"), QT_TR_NOOP("F5"), true, [this] { Q_EMIT m_trend.autoScaleRequested(); });
}

} // namespace pellam
