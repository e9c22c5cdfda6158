#include "trend/control/TrendOperations.h"

#include "trend/paint/TrendExport.h"

#include <QPaintEngine>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <limits>

namespace pellam {

TrendOperations::TrendOperations() = default;

TrendOperations::~TrendOperations() = default;

template <typename Value>
void TrendOperations::setSetting(Value& setting, const Value& value) {
    if (setting == value) return;
    setting = value;
    chartChanged(Change::Display);
}

void TrendOperations::SetRotated(int rotated) {
    setSetting(m_chart.state.rotated, rotated != 0);
}

void TrendOperations::SetIdenticalXData(int identical) {
    setSetting(m_chart.state.identicalXData, identical != 0);
}

void TrendOperations::SetCurveButtons(int buttons) {
    setSetting(m_chart.state.curveButtons, buttons);
}

void TrendOperations::SetFollowModeButton(int shown) {
    setSetting(m_chart.state.followModeButton, shown);
}

void TrendOperations::SetDrawMultithreaded(int threads) {
    setSetting(m_chart.state.drawMultithreaded, threads);
}

void TrendOperations::SetDockingScales(int docking) {
    setSetting(m_chart.state.dockingScales, docking != 0);
}

void TrendOperations::SetBackColor(const QColor& colour) {
    setSetting(m_chart.state.backColor, colour);
}

void TrendOperations::SetTrendBackColor(const QColor& colour) {
    setSetting(m_chart.state.trendBackColor, colour);
}

void TrendOperations::SetLassoZoom(int on) {
    setSetting(m_chart.state.lassoZoom, on != 0);
}

int TrendOperations::GetLassoZoom() const {
    return m_chart.state.lassoZoom ? 1 : 0;
}

void TrendOperations::SetFontScaleFactor(double factor) {
    if (!std::isfinite(factor)) return;
    setSetting(m_chart.state.fontScaleFactor, std::clamp(factor, 0.1, 1.0));
}

double TrendOperations::GetFontScaleFactor() const {
    return m_chart.state.fontScaleFactor;
}

TrendFont TrendOperations::GetFont() {
    return TrendFont(m_chart.state.fontName, [this] { chartChanged(Change::Display); });
}

void TrendOperations::setTitle(const QString& title) {
    setSetting(m_chart.state.title, title);
}

void TrendOperations::setXAxis(const XAxis& axis) {
    setSetting(m_chart.state.xAxis, axis);
}

void TrendOperations::setPaperNotes(const QStringList& notes) {
    setSetting(m_chart.state.paperNotes, notes);
}

void TrendOperations::setNotes(const QStringList& notes) {
    setSetting(m_chart.state.notes, notes);
}

void TrendOperations::setDecimalPoint(QChar point) {
    setSetting(m_chart.state.decimalPoint, point);
}

void TrendOperations::setBreakGaps(bool on) {
    setSetting(m_chart.state.breakGaps, on);
}

void TrendOperations::SetXScActualRangeMin(double time) {
    m_chart.state.timeMin = time;
    chartChanged(Change::Range);
}

void TrendOperations::SetXScActualRangeMax(double time) {
    m_chart.state.timeMax = time;
    chartChanged(Change::Range);
}

double TrendOperations::GetXScActualRangeMin() const {
    return m_chart.state.timeMin;
}

double TrendOperations::GetXScActualRangeMax() const {
    return m_chart.state.timeMax;
}

void TrendOperations::setUtcOffset(std::optional<int> offset) {
    setSetting(m_chart.state.utcOffset, offset);
}

void TrendOperations::SetLockUpdate(int lock) {
    if (lock != 0) {
        ++m_locks;
    } else if (m_locks > 0 && --m_locks == 0) {
        unlocked();
    }
}

void TrendOperations::SaveTrend() {
    m_saved.push_back(m_chart.save());
}

void TrendOperations::RestoreTrend() {
    if (m_saved.empty()) return;
    m_chart.restore(m_saved.back());
    m_saved.pop_back();
    chartChanged(Change::Range);
}

void TrendOperations::PrintTrend(QPainter& painter, const QRectF& target,
                                 double unitsPerInch) const {
    const TrendTheme theme = TrendTheme::paper().with(m_chart.state);
    if (painter.paintEngine()->type() != QPaintEngine::Raster)
        return paintChart(painter, target, unitsPerInch, m_chart, theme);
    // Pixels are filled far quicker column by column than as lines.
    const double scale = unitsPerInch / 96;
    QImage image = chartImage(m_chart, (target.size() / scale).toSize(), theme, scale);
    image.setDevicePixelRatio(1);
    painter.drawImage(target.topLeft().toPoint(), image);
}

} // namespace pellam
