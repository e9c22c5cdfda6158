#include "trend/paint/TrendPainter.h"

#include "trend/paint/AxisPainter.h"
#include "trend/paint/ColumnRaster.h"
#include "trend/paint/CurveLines.h"
#include "trend/paint/PixelRects.h"
#include "trend/paint/SymbolPainter.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <map>

namespace pellam {
namespace {

constexpr double lineWidth = 1.5;
constexpr double dashUnit = 4;
// Below this contrast a curve gets a dark (or light) edge: bright yellow on white paper.
constexpr double leastContrast = 1.7;
constexpr double edgeWidth = 1.4;

struct DrawnColours {
    QColor line;
    QColor edge; ///< invalid = none
};

DrawnColours coloursOf(const TrendCurve& curve, const TrendTheme& theme) {
    DrawnColours colours{colourOnScreen(curve.style().colour, theme.plot), {}};
    if (colourContrast(colours.line, theme.plot) < leastContrast)
        colours.edge = colourOfContrast(colours.line, theme.plot, 3);
    return colours;
}

int rounded(double value) {
    return static_cast<int>(std::lround(value));
}

QRect onPixels(const QRectF& rect, double ratio) {
    const QPoint from(rounded(rect.left() * ratio), rounded(rect.top() * ratio));
    return {from, QPoint(rounded(rect.right() * ratio) - 1, rounded(rect.bottom() * ratio) - 1)};
}

// Fills all curves into an image; the times' column borders are found once for all that share them.
class ImageCurves {
  public:
    ImageCurves(QImage& image, const TrendChart& chart, const TrendLayout& layout,
                const TrendTheme& theme)
        : m_image(image),
          m_chart(chart),
          m_layout(layout),
          m_theme(theme),
          m_ratio(image.devicePixelRatio()) {}

    void draw() {
        for (const TrendCurve& curve : m_chart.curves) {
            if (!m_chart.drawn(curve)) continue;
            if (const ScaleBand* band = m_layout.scale(curve.style().relatedScale))
                draw(curve, *band);
        }
    }

  private:
    void draw(const TrendCurve& curve, const ScaleBand& band) {
        const QRect clip = onPixels(band.band, m_ratio);
        if (clip.width() < 1 || clip.height() < 1) return;
        const ColumnGrid grid{m_layout.timeMap.min(), m_layout.timeMap.max(), clip.width()};
        const ScaleMap map = band.map.over(clip.bottom() + 1, clip.top());
        const auto spans =
            CurveColumns::find(curve, startsOf(curve, grid), grid, map, m_chart.state.breakGaps);
        const DrawnColours colours = coloursOf(curve, m_theme);
        ColumnPen pen{colours.edge, (lineWidth + edgeWidth) * m_ratio, curve.style().dash,
                      dashUnit * m_ratio};
        if (colours.edge.isValid()) ColumnRaster::fill(m_image, clip, spans, pen);
        pen.colour = colours.line;
        pen.width = lineWidth * m_ratio;
        ColumnRaster::fill(m_image, clip, spans, pen);
    }

    const std::vector<std::size_t>& startsOf(const TrendCurve& curve, const ColumnGrid& grid) {
        auto& starts = m_starts[curve.times().get()];
        if (starts.empty()) starts = curve.times()->columnStarts(grid.from, grid.to, grid.columns);
        return starts;
    }

    QImage& m_image;
    const TrendChart& m_chart;
    const TrendLayout& m_layout;
    const TrendTheme& m_theme;
    double m_ratio;
    std::map<const TrendTimes*, std::vector<std::size_t>> m_starts;
};

void drawPieces(QPainter& painter, const std::vector<QPolygonF>& pieces, const QColor& colour,
                double width) {
    painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (const QPolygonF& piece : pieces) {
        if (piece.size() == 1)
            painter.drawLine(piece[0], piece[0] + QPointF(0.05, 0));
        else
            painter.drawPolyline(piece);
    }
}

void drawLines(QPainter& painter, const TrendChart& chart, const TrendLayout& layout,
               const TrendTheme& theme, double columns) {
    painter.setRenderHint(QPainter::Antialiasing);
    for (const TrendCurve& curve : chart.curves) {
        const ScaleBand* band = layout.scale(curve.style().relatedScale);
        if (!chart.drawn(curve) || !band) continue;
        const int count = std::max(1, rounded(band->band.width() * columns));
        const ColumnGrid grid{layout.timeMap.min(), layout.timeMap.max(), count};
        const ColumnPen pen{curve.style().colour, lineWidth, curve.style().dash,
                            dashUnit * columns};
        const auto pieces =
            CurveLines::find(curve, grid, band->map, band->band, chart.state.breakGaps, pen);
        const DrawnColours colours = coloursOf(curve, theme);
        if (colours.edge.isValid())
            drawPieces(painter, pieces, colours.edge, lineWidth + edgeWidth);
        drawPieces(painter, pieces, colours.line, lineWidth);
    }
}

void drawSymbols(QPainter& painter, const TrendChart& chart, const TrendLayout& layout,
                 const TrendTheme& theme) {
    painter.setRenderHint(QPainter::Antialiasing);
    for (const TrendCurve& curve : chart.curves) {
        const ScaleBand* band = layout.scale(curve.style().relatedScale);
        if (curve.style().symbol < 0 || !chart.drawn(curve) || !band) continue;
        const ColumnGrid grid{layout.timeMap.min(), layout.timeMap.max(), 1};
        SymbolPainter::draw(painter, curve, grid, band->map, band->band,
                            coloursOf(curve, theme).line);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
}

} // namespace

TrendLayout TrendPainter::layout(const TrendChart& chart, const QSizeF& size) {
    follow(chart.state);
    return TrendLayout::compute(chart, size, m_times);
}

void TrendPainter::draw(QImage& image, const TrendChart& chart, const TrendLayout& layout,
                        const TrendTheme& theme) const {
    if (image.isNull()) return;
    if (image.format() != QImage::Format_RGB32 &&
        image.format() != QImage::Format_ARGB32_Premultiplied)
        image.convertTo(QImage::Format_ARGB32_Premultiplied);
    const TrendTheme colours = theme.with(chart.state);
    PixelRects rects(image); // before the painter: both write to the same memory in turn
    QPainter painter(&image);
    AxisPainter axes(painter, chart, layout, colours, &rects);
    axes.drawBehind();
    ImageCurves(image, chart, layout, colours).draw();
    drawSymbols(painter, chart, layout, colours);
    axes.drawFront();
}

void TrendPainter::draw(QPainter& painter, const TrendChart& chart, const TrendLayout& layout,
                        const TrendTheme& theme, double columns) const {
    const TrendTheme colours = theme.with(chart.state);
    painter.save();
    AxisPainter axes(painter, chart, layout, colours, nullptr);
    // Hair lines may be thinner than the device's pixels.
    painter.setRenderHint(QPainter::Antialiasing);
    axes.drawBehind();
    drawLines(painter, chart, layout, colours, columns);
    drawSymbols(painter, chart, layout, colours);
    painter.setRenderHint(QPainter::Antialiasing);
    axes.drawFront();
    painter.restore();
}

} // namespace pellam
