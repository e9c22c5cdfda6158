#pragma once

#include "trend/layout/TrendLayout.h"
#include "trend/paint/TrendTheme.h"

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace pellam {

class PixelRects;
class TextMeasure;

/// Draws everything of a chart but its curves.
class AxisPainter {
  public:
    /// `rects`: those of the image that the painter draws to, on whose pixels lines are put; null
    /// for a target without pixels.
    AxisPainter(QPainter& painter, const TrendChart& chart, const TrendLayout& layout,
                const TrendTheme& theme, PixelRects* rects);

    /// Backgrounds and grid lines.
    void drawBehind();
    /// Axes, labels, titles, legend and notes.
    void drawFront();

  private:
    void drawBackground(double top, double bottom, bool inside);
    void drawTimeGrid(double top, double bottom);
    void drawGrid();
    void drawScale(const ScaleBand& band);
    void drawTimeAxis();
    void drawClockChanges();
    void drawLegend();
    void drawLegendItem(const LegendItem& item);
    void drawButton(const QRectF& rect, const QColor& frame, const QColor& face);
    void drawTexts();
    void horizontal(double y, double left, double right, const QColor& colour);
    void vertical(double x, double top, double bottom, const QColor& colour);
    void text(const QRectF& rect, const QString& text, const QColor& colour);
    void fill(const QRectF& rect, const QColor& colour);
    QColor scaleColour(int axis) const;
    QColor buttonFrame() const;

    QPainter& m_painter;
    const TrendChart& m_chart;
    const TrendLayout& m_layout;
    const TrendTheme& m_theme;
    TextMeasure& m_font;
    PixelRects* m_rects;
    double m_pixels; ///< of the target, per logical pixel; 0 = it has none
    double m_hair;   ///< width of a thin line
    double m_tick;   ///< length of a major mark
};

} // namespace pellam
