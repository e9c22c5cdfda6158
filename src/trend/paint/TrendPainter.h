#pragma once

#include "trend/curves/TrendChart.h"
#include "trend/layout/TrendLayout.h"
#include "trend/paint/TrendTheme.h"

#include <QImage>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace pellam {

/// Draws a chart: to an image column by column, or as lines with a QPainter to anything else. What
/// it costs depends on the pixels, not on the number of points. Crosshair, lasso and cursors are
/// not drawn: put them over the finished image.
class TrendPainter {
  public:
    explicit TrendPainter(const QTimeZone& zone = QTimeZone::systemTimeZone()) : m_times(zone) {}

    /// Times are those of the chart's clock from here on.
    void follow(const TrendState& state) { m_times.setUtcOffset(state.utcOffset); }

    /// Lays the chart out, and follows its clock.
    TrendLayout layout(const TrendChart& chart, const QSizeF& size);

    /// Fills an image (Format_ARGB32_Premultiplied or Format_RGB32, its devicePixelRatio respected)
    /// with a chart whose layout was made for its logical size.
    void draw(QImage& image, const TrendChart& chart, const TrendLayout& layout,
              const TrendTheme& theme) const;
    /// Draws a chart into (0, 0, layout.size), for SVG, PDF and printers. At most `columns` columns
    /// per logical pixel are told apart.
    void draw(QPainter& painter, const TrendChart& chart, const TrendLayout& layout,
              const TrendTheme& theme, double columns = 2) const;

    const TimeTicks& times() const { return m_times; }

  private:
    TimeTicks m_times;
};

} // namespace pellam
