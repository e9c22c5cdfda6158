#include "trend/reading/LassoZoom.h"

#include <algorithm>
#include <cmath>

namespace pellam {

namespace {

QPointF inside(const QPointF& point, const QRectF& plot) {
    return {std::clamp(point.x(), plot.left(), plot.right()),
            std::clamp(point.y(), plot.top(), plot.bottom())};
}

} // namespace

void LassoZoom::start(const QPointF& point, const QRectF& plot) {
    m_active = true;
    m_plot = plot;
    m_start = m_end = inside(point, plot);
}

void LassoZoom::moveTo(const QPointF& point) {
    m_end = inside(point, m_plot);
}

bool LassoZoom::selectsTime() const {
    return m_active && std::abs(m_end.x() - m_start.x()) >= kFlat;
}

bool LassoZoom::selectsValues() const {
    return m_active && std::abs(m_end.y() - m_start.y()) >= kFlat;
}

std::optional<QRectF> LassoZoom::rect() const {
    if (!selectsTime() && !selectsValues()) return std::nullopt;
    QRectF rect = QRectF(m_start, m_end).normalized();
    if (!selectsTime()) {
        rect.setLeft(m_plot.left());
        rect.setRight(m_plot.right());
    }
    if (!selectsValues()) {
        rect.setTop(m_plot.top());
        rect.setBottom(m_plot.bottom());
    }
    return rect;
}

} // namespace pellam
