#include "trend/control/TrendScene.h"

#include <QPainter>

namespace pellam {

TrendScene::TrendScene(const TrendChart& chart, const QTimeZone& zone)
    : m_chart(chart),
      m_painter(zone),
      m_reading(chart, m_painter.times()) {}

void TrendScene::setSurface(const QSize& size, double pixelRatio,
                            const TrendOverlay::Colours& colours) {
    m_size = size;
    m_pixelRatio = pixelRatio;
    m_colours = colours;
    invalidate();
}

void TrendScene::invalidate() {
    m_painter.follow(m_chart.state);
    m_laidOut = false;
    m_overlaid = false;
    m_drawn = false;
}

const TrendLayout& TrendScene::layout() {
    if (!m_laidOut) {
        m_layout = m_painter.layout(m_chart, QSizeF(m_size));
        m_laidOut = true;
    }
    return m_layout;
}

const QImage& TrendScene::image(bool keep) {
    if (m_drawn || (keep && !m_image.isNull())) return m_image;
    const QSize pixels = (QSizeF(m_size) * m_pixelRatio).toSize().expandedTo(QSize(1, 1));
    if (m_image.size() != pixels) m_image = QImage(pixels, QImage::Format_RGB32);
    m_image.setDevicePixelRatio(m_pixelRatio);
    if (keep) {
        m_image.fill(m_colours.theme.with(m_chart.state).background);
        return m_image;
    }
    m_painter.draw(m_image, m_chart, layout(), m_colours.theme.with(m_chart.state));
    m_drawn = true;
    ++m_drawings;
    return m_image;
}

QRegion TrendScene::refreshOverlay() {
    const QRegion before = m_overlay.region();
    m_overlay.prepare(m_chart, layout(), m_reading, marks, lasso);
    m_overlaid = true;
    return before + m_overlay.region();
}

void TrendScene::paintOverlay(QPainter& painter) {
    if (!m_overlaid) refreshOverlay();
    const TrendTheme theme = m_colours.theme.with(m_chart.state);
    m_overlay.paint(painter, TrendOverlay::Colours::of(theme, m_colours.accent));
}

} // namespace pellam
