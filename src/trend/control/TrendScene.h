#pragma once

#include "trend/paint/TrendPainter.h"
#include "trend/reading/LassoZoom.h"
#include "trend/reading/TrendMarks.h"
#include "trend/reading/TrendOverlay.h"
#include "trend/reading/TrendReading.h"

namespace pellam {

/// What the control shows: the drawn chart, kept as an image until the chart changes, and what lies
/// over it.
class TrendScene {
  public:
    TrendScene(const TrendChart& chart, const QTimeZone& zone);

    /// Size in logical pixels, device pixels per logical one, and colours.
    void setSurface(const QSize& size, double pixelRatio, const TrendOverlay::Colours& colours);
    /// The chart must be laid out and drawn again.
    void invalidate();

    /// The layout of the chart as it is now.
    const TrendLayout& layout();
    /// The drawn chart; drawn anew when it is out of date, unless `keep`.
    const QImage& image(bool keep);

    /// How often the chart was drawn.
    int drawings() const { return m_drawings; }

    /// Lays out what lies over the chart; the region to be painted again.
    QRegion refreshOverlay();
    void paintOverlay(QPainter& painter);

    TrendMarks marks;
    LassoZoom lasso;

    TrendReading& reading() { return m_reading; }

    const TrendOverlay& overlay() const { return m_overlay; }

    const TrendChart& chart() const { return m_chart; }

  private:
    const TrendChart& m_chart;
    TrendPainter m_painter;
    TrendReading m_reading;
    TrendOverlay m_overlay;
    TrendOverlay::Colours m_colours;
    QSize m_size;
    double m_pixelRatio = 1;
    TrendLayout m_layout;
    bool m_laidOut = false;
    bool m_overlaid = false;
    bool m_drawn = false;
    QImage m_image;
    int m_drawings = 0;
};

} // namespace pellam
