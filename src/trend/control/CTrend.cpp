#include "trend/control/CTrend.h"

#include "trend/control/TrendAccessible.h"
#include "trend/control/TrendActions.h"
#include "trend/control/TrendCommands.h"
#include "trend/control/TrendInteraction.h"
#include "trend/control/TrendKeys.h"
#include "trend/control/TrendScene.h"
#include "ui/commands/CommandSet.h"

#include <QContextMenuEvent>
#include <QFontInfo>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace pellam {

CTrend::CTrend(QWidget* parent, const QTimeZone& zone)
    : QWidget(parent),
      m_scene(std::make_unique<TrendScene>(chart(), zone)),
      m_actions(new CommandSet(this)) {
    m_commands = std::make_unique<TrendCommands>(*this);
    m_interaction = std::make_unique<TrendInteraction>(*this);
    m_keys = std::make_unique<TrendKeys>(*this, *m_interaction);
    addTrendCommands(*m_actions, *this);
    TrendAccessible::install();
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(tr("Trend chart"));
    m_chart.state.baseFontPixels = QFontInfo(font()).pixelSize();
    setColours();
}

CTrend::~CTrend() = default;

void CTrend::Create(QWidget* parent, int controlId) {
    setParent(parent);
    setObjectName(QStringLiteral("Trend1"));
    setProperty("controlId", controlId);
    show();
}

void CTrend::setColours() {
    const TrendTheme theme = TrendTheme::fromPalette(palette());
    m_scene->setSurface(size(), devicePixelRatioF(), {theme, palette().color(QPalette::Highlight)});
}

void CTrend::chartChanged(Change change) {
    m_scene->invalidate();
    if (change == Change::Data) {
        m_scene->reading().forgetPoints();
        m_commands->dataChanged();
    }
    if (!locked()) unlocked();
}

void CTrend::unlocked() {
    update();
    Q_EMIT zoomChanged();
}

void CTrend::SetLassoZoom(int on) {
    if ((on != 0) == (GetLassoZoom() != 0)) return;
    TrendOperations::SetLassoZoom(on);
    m_interaction->cancel();
    Q_EMIT selectionZoomChanged(on != 0);
}

void CTrend::SetCurveVisible(int curve, int visible) {
    const bool before = GetCurveVisible(curve) != 0;
    TrendOperations::SetCurveVisible(curve, visible);
    const bool after = GetCurveVisible(curve) != 0;
    if (before == after) return;
    TrendAccessible::curveSwitched(*this, curve);
    Q_EMIT curveVisibilityChanged(curve, after);
}

void CTrend::setBreakGaps(bool on) {
    if (on == chart().state.breakGaps) return;
    TrendOperations::setBreakGaps(on);
    Q_EMIT breakGapsChanged(on);
}

void CTrend::setCurveUnit(int curve, const QString& unit) {
    m_scene->reading().setUnit(curve, unit);
    m_commands->updateOverlay();
}

void CTrend::setTimeDigits(int digits) {
    m_scene->reading().setTimeDigits(digits);
    m_commands->updateOverlay();
}

int CTrend::timeDigits() const {
    return m_scene->reading().timeDigits();
}

void CTrend::setCurrentTime(std::optional<double> time) {
    if (m_scene->marks.current == time) return;
    m_scene->marks.current = time;
    m_commands->updateOverlay();
}

void CTrend::showTimes(double from, double to) {
    m_chart.state.timeMin = from;
    m_chart.state.timeMax = to;
    chartChanged(Change::Range);
}

bool CTrend::canZoomBack() const {
    return m_commands->history().canGoBack();
}

bool CTrend::canZoomForward() const {
    return m_commands->history().canGoForward();
}

void CTrend::rememberZoom(const TrendRanges& before) {
    m_commands->remember(before);
}

void CTrend::zoomBack() {
    m_commands->zoomBack();
}

void CTrend::zoomForward() {
    m_commands->zoomForward();
}

void CTrend::zoomAll() {
    m_commands->zoomAll();
}

QSize CTrend::sizeHint() const {
    return {800, 500};
}

QSize CTrend::minimumSizeHint() const {
    return {240, 160};
}

void CTrend::paintEvent(QPaintEvent* event) {
    // A window that moves to another screen is painted there before anything else says so.
    if (m_pixelRatio != devicePixelRatioF()) {
        m_pixelRatio = devicePixelRatioF();
        setColours();
    }
    QPainter painter(this);
    const QImage& image = m_scene->image(locked());
    // A locked control that was resized shows what it has.
    if (locked()) painter.fillRect(rect(), palette().window());
    const auto ratio = static_cast<int>(m_pixelRatio);
    const bool whole = ratio != m_pixelRatio;
    // Rectangles cut out at whole pixels are copied; other pixel ratios need the clip.
    if (whole) painter.drawImage(QPoint(0, 0), image);
    for (const QRect& rect : event->region())
        if (!whole)
            painter.drawImage(rect.topLeft(), image,
                              QRect(rect.topLeft() * ratio, rect.size() * ratio));
    if (!locked()) m_scene->paintOverlay(painter);
}

void CTrend::resizeEvent(QResizeEvent*) {
    setColours();
    update();
}

void CTrend::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    const auto type = event->type();
    if (type != QEvent::FontChange && type != QEvent::PaletteChange &&
        type != QEvent::StyleChange && type != QEvent::ApplicationFontChange)
        return;
    m_chart.state.baseFontPixels = QFontInfo(font()).pixelSize();
    setColours();
    update();
}

bool CTrend::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        if (!m_keys->handles(*static_cast<QKeyEvent*>(event))) return QWidget::event(event);
        event->accept();
        return true;
    }
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        if (!showToolTip(help->pos(), help->globalPos())) event->ignore();
        return true;
    }
    return QWidget::event(event);
}

bool CTrend::showToolTip(const QPoint& at, const QPoint& global) {
    const TrendHit hit = m_scene->layout().hit(at);
    QString full;
    QString shown;
    if (hit.part == TrendPart::Legend) {
        full = GetCurveText(hit.index).trimmed();
        for (const LegendItem& item : m_scene->layout().legendItems)
            if (item.curve == hit.index) shown = item.text;
    } else if (const ScaleBand* band = m_scene->layout().scale(hit.index);
               band && hit.part == TrendPart::Scale) {
        full = GetYScText(hit.index);
        shown = band->titleText;
    }
    if (full == shown) {
        QToolTip::hideText();
        return false;
    }
    QToolTip::showText(global, full, this);
    Q_EMIT textCutShort();
    return true;
}

void CTrend::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        openMenuByKey();
    } else if (m_keys->press(*event)) {
        showFocus(true);
    } else {
        QWidget::keyPressEvent(event);
    }
}

// The key Menu is the toolkit's.
void CTrend::openMenuByKey() {
    const QRectF& plot = m_scene->layout().plot;
    const auto crosshair = m_scene->marks.crosshair;
    const double x = crosshair ? m_scene->layout().timeMap.toPixel(*crosshair) : plot.center().x();
    const QPoint at =
        QPointF(std::clamp(x, plot.left(), plot.right()), plot.center().y()).toPoint();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, at, mapToGlobal(at));
    contextMenuEvent(&event);
}

// The frame is for those who use keys; it would only disturb others.
void CTrend::showFocus(bool shown) {
    if (m_scene->marks.focused == shown) return;
    m_scene->marks.focused = shown;
    m_commands->updateOverlay();
}

void CTrend::keyReleaseEvent(QKeyEvent* event) {
    if (!m_keys->release(*event)) QWidget::keyReleaseEvent(event);
}

void CTrend::mousePressEvent(QMouseEvent* event) {
    showFocus(false);
    m_interaction->press(*event);
}

void CTrend::mouseMoveEvent(QMouseEvent* event) {
    m_interaction->move(*event);
}

void CTrend::mouseReleaseEvent(QMouseEvent* event) {
    m_interaction->release(*event);
}

void CTrend::mouseDoubleClickEvent(QMouseEvent* event) {
    m_interaction->doubleClick(*event);
}

void CTrend::wheelEvent(QWheelEvent* event) {
    event->setAccepted(m_interaction->wheel(*event));
}

void CTrend::leaveEvent(QEvent*) {
    m_interaction->leave();
}

bool CTrend::focusNextPrevChild(bool next) {
    const bool legend = m_scene->marks.legendFocus >= 0;
    const bool reachable =
        !m_scene->layout().legendItems.empty() && chart().state.curveButtons != 0;
    if (next && !legend && reachable) {
        showFocus(true);
        m_commands->enterLegend();
        return true;
    }
    if (!next && legend) {
        m_commands->leaveLegend();
        return true;
    }
    return QWidget::focusNextPrevChild(next);
}

void CTrend::focusInEvent(QFocusEvent* event) {
    const auto reason = event->reason();
    showFocus(reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
              reason == Qt::ShortcutFocusReason);
}

void CTrend::focusOutEvent(QFocusEvent* event) {
    m_interaction->setSpaceHeld(false);
    m_scene->marks.focused = false;
    if (event->reason() != Qt::PopupFocusReason) m_scene->marks.legendFocus = -1;
    m_commands->updateOverlay();
}

void CTrend::contextMenuEvent(QContextMenuEvent* event) {
    const TrendHit hit = m_scene->layout().hit(event->pos());
    m_interaction->cancel();
    m_actions->refresh();
    m_menu = new QMenu(this);
    m_menuTime = m_scene->marks.crosshair;
    fillTrendMenu(*m_menu, *m_actions, hit.part == TrendPart::Scale ? hit.index : 0);
    m_menu->setAttribute(Qt::WA_DeleteOnClose);
    m_menu->popup(event->globalPos());
}

} // namespace pellam
