#include "trend/paint/AxisPainter.h"

#include "trend/curves/TrendChart.h"
#include "trend/layout/TextMeasure.h"
#include "trend/paint/PixelRects.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace pellam {

AxisPainter::AxisPainter(QPainter& painter, const TrendChart& chart, const TrendLayout& layout,
                         const TrendTheme& theme, PixelRects* rects)
    : m_painter(painter),
      m_chart(chart),
      m_layout(layout),
      m_theme(theme),
      m_font(TextMeasure::of(layout.font)),
      m_rects(rects),
      m_pixels(rects ? rects->ratio() : 0),
      m_hair(rects ? std::max(1.0, std::floor(m_pixels)) / m_pixels : 0.7),
      m_tick(std::round(m_font.height() * 0.4)) {}

void AxisPainter::fill(const QRectF& rect, const QColor& colour) {
    if (m_rects)
        m_rects->fill(rect, colour.rgb());
    else
        m_painter.fillRect(rect, colour);
}

// Filled and not stroked: a rectangle on whole pixels is crisp.
void AxisPainter::horizontal(double y, double left, double right, const QColor& colour) {
    if (m_pixels > 0) y = std::floor(y * m_pixels + 1e-6) / m_pixels;
    fill(QRectF(left, y, right - left, m_hair), colour);
}

void AxisPainter::vertical(double x, double top, double bottom, const QColor& colour) {
    if (m_pixels > 0) x = std::floor(x * m_pixels + 1e-6) / m_pixels;
    fill(QRectF(x, top, m_hair, bottom - top), colour);
}

void AxisPainter::text(const QRectF& rect, const QString& text, const QColor& colour) {
    m_painter.setPen(colour);
    // A file gets text as text, that can be searched and edited.
    if (m_pixels > 0)
        m_font.draw(m_painter, rect.topLeft(), text);
    else
        m_painter.drawText(QPointF(rect.left(), rect.top() + m_font.ascent()), text);
}

QColor AxisPainter::scaleColour(int axis) const {
    const TrendScale& scale = *m_chart.scale(axis);
    if (scale.foreColor.isValid() && scale.foreColor != QColor(0, 0, 0))
        return colourOfContrast(scale.foreColor, m_theme.background, 3.5);
    const TrendCurve* only = m_chart.state.colourScales ? m_chart.onlyCurve(axis) : nullptr;
    return only ? colourOfContrast(only->style().colour, m_theme.background, 3.5) : m_theme.text;
}

void AxisPainter::drawBehind() {
    const QRectF& plot = m_layout.plot;
    const double height = m_layout.size.height();
    if (m_rects) {
        // One row of each kind, and the others after it: on a large window, putting colour behind
        // everything is what a redraw costs most for.
        const double row = 1 / m_pixels;
        const int first = m_rects->rowAt(plot.top());
        const int end = m_rects->rowAt(plot.bottom());
        drawBackground(0, row, false);
        drawBackground(first * row, (first + 1) * row, true);
        drawTimeGrid(first * row, (first + 1) * row);
        drawBackground(end * row, (end + 1) * row, false);
        m_rects->repeatRow(0, first);
        m_rects->repeatRow(first, end);
        m_rects->repeatRow(end, m_rects->rowAt(height) + 1);
    } else {
        drawBackground(0, plot.top(), false);
        drawBackground(plot.top(), plot.bottom(), true);
        drawBackground(plot.bottom(), height, false);
        drawTimeGrid(plot.top(), plot.bottom());
    }
    drawGrid();
}

// Between two heights, which are inside the drawing area or not.
void AxisPainter::drawBackground(double top, double bottom, bool inside) {
    const QRectF& plot = m_layout.plot;
    fill(QRectF(0, top, m_layout.size.width(), bottom - top), m_theme.background);
    if (inside) fill(QRectF(plot.left(), top, plot.width(), bottom - top), m_theme.plot);
}

void AxisPainter::drawTimeGrid(double top, double bottom) {
    const QRectF& plot = m_layout.plot;
    for (const AxisTick& tick : m_layout.timeMarks.ticks) {
        const double x = m_layout.timeMap.toPixel(tick.value);
        const bool inside = x > plot.left() + 1 && x < plot.right() - 1;
        if (tick.major && inside) vertical(x, top, bottom, m_theme.grid);
    }
}

void AxisPainter::drawGrid() {
    const QRectF& plot = m_layout.plot;
    for (std::size_t i = 0; i < m_layout.scales.size(); ++i) {
        const ScaleBand& band = m_layout.scales[i];
        const auto overlaps = [&](const ScaleBand& other) {
            return !other.ticks.empty() && other.band.intersects(band.band);
        };
        const auto begin = m_layout.scales.begin();
        // Lines of two scales over one another would help nobody.
        if (std::any_of(begin, begin + static_cast<std::ptrdiff_t>(i), overlaps)) continue;
        for (const AxisTick& tick : band.ticks) {
            const double y = band.map.toPixel(tick.value);
            if (y < band.band.top() + 1 || y > band.band.bottom() - 1) continue;
            if (tick.major)
                horizontal(y, plot.left(), plot.right(), m_theme.grid);
            else if (band.map.logarithmic())
                horizontal(y, plot.left(), plot.right(), m_theme.minorGrid);
        }
        if (i == 0 || band.band.top() < plot.top() + 1) continue;
        // What lies between two strips belongs to neither.
        const double above = m_layout.scales[i - 1].band.bottom() + m_hair;
        fill(QRectF(plot.left(), above, plot.width(), band.band.top() - above), m_theme.background);
    }
}

void AxisPainter::drawScale(const ScaleBand& band) {
    if (band.rect.isEmpty()) return;
    const QColor colour = band.idle ? m_theme.faintText : scaleColour(band.axis);
    const bool coloured = !band.idle && colour != m_theme.text;
    const QColor line = coloured ? colour : band.idle ? m_theme.grid : m_theme.line;
    const double edge = band.right ? band.rect.left() : band.rect.right() - m_hair;
    vertical(edge, band.band.top(), band.band.bottom() + m_hair, line);
    for (const AxisTick& tick : band.ticks) {
        const double y = std::min(band.map.toPixel(tick.value), band.band.bottom());
        const double length = tick.major ? m_tick : m_tick / 2;
        if (band.right)
            horizontal(y, edge, edge + length, line);
        else
            horizontal(y, edge - length, edge, line);
    }
    for (const AxisLabel& label : band.labels)
        text(label.rect, label.text, m_theme.text);
    if (band.titleText.isEmpty()) return;
    m_painter.save();
    m_painter.translate(band.title.center());
    m_painter.rotate(-90);
    const double width = m_font.width(band.titleText);
    text(QRectF(-width / 2, -m_font.height() / 2, width, m_font.height()), band.titleText, colour);
    m_painter.restore();
}

void AxisPainter::drawTimeAxis() {
    const QRectF& axis = m_layout.timeAxis;
    horizontal(axis.top(), axis.left(), axis.right(), m_theme.line);
    for (const AxisTick& tick : m_layout.timeMarks.ticks) {
        const double x = std::min(m_layout.timeMap.toPixel(tick.value), axis.right() - m_hair);
        vertical(x, axis.top(), axis.top() + (tick.major ? m_tick : m_tick / 2), m_theme.line);
    }
    for (const AxisLabel& label : m_layout.timeLabels)
        text(label.rect, label.text, label.context ? m_theme.faintText : m_theme.text);
}

void AxisPainter::drawClockChanges() {
    const QRectF& plot = m_layout.plot;
    for (const ClockChange& change : m_layout.timeMarks.changes) {
        const double x = m_layout.timeMap.toPixel(change.time);
        const double dash = std::max(2.0, m_tick);
        for (double y = plot.top(); y < plot.bottom(); y += 2 * dash)
            vertical(x, y, std::min(y + dash, plot.bottom()), m_theme.clockChange);
        const double width = m_font.width(change.label);
        const double left = x + width + 8 > plot.right() ? x - width - 6 : x + 6;
        const QRectF rect(left, plot.top() + 2, width, m_font.height());
        fill(rect.adjusted(-2, 0, 2, 0), m_theme.plot);
        text(rect, change.label, m_theme.clockChange);
    }
}

// Corners are cut by a pixel: rounded ones cost more than all labels together.
void AxisPainter::drawButton(const QRectF& rect, const QColor& frame, const QColor& face) {
    const QRectF inner = rect.adjusted(m_hair, m_hair, -m_hair, -m_hair);
    fill(inner, face);
    fill(QRectF(inner.left(), rect.top(), inner.width(), m_hair), frame);
    fill(QRectF(inner.left(), inner.bottom(), inner.width(), m_hair), frame);
    fill(QRectF(rect.left(), inner.top(), m_hair, inner.height()), frame);
    fill(QRectF(inner.right(), inner.top(), m_hair, inner.height()), frame);
}

QColor AxisPainter::buttonFrame() const {
    return m_theme.grid.darker(m_theme.isDark() ? 60 : 112);
}

void AxisPainter::drawLegendItem(const LegendItem& item) {
    const CurveStyle& style = m_chart.curves[static_cast<std::size_t>(item.curve)].style();
    const bool button = m_chart.state.curveButtons != 0;
    if (button) {
        const QColor frame = style.visible ? buttonFrame() : m_theme.grid;
        drawButton(item.rect, frame, style.visible ? m_theme.plot : m_theme.background);
    }
    const QColor& behind = button && style.visible ? m_theme.plot : m_theme.background;
    const QColor colour = style.visible ? colourOnScreen(style.colour, behind) : m_theme.grid;
    const double middle = std::round(item.swatch.center().y());
    QRectF bar(item.swatch.left() + 1, middle - 1.5, item.swatch.width() - 2, 3);
    if (m_pixels > 0) bar.moveTop(std::round(bar.top() * m_pixels) / m_pixels);
    if (style.visible && colourContrast(colour, behind) < 1.7)
        fill(bar.adjusted(0, -1, 0, 1), colourOfContrast(colour, behind, 3));
    if (style.dash == CurveDash::Solid) {
        fill(bar, colour);
    } else {
        QPen pen(colour, 3, Qt::SolidLine, Qt::FlatCap);
        pen.setDashPattern(dashPattern(style.dash));
        m_painter.setPen(pen);
        m_painter.drawLine(QPointF(bar.left(), bar.center().y()),
                           QPointF(bar.right(), bar.center().y()));
    }
    QRectF rect = item.textRect;
    rect.setTop(std::round(rect.center().y() - m_font.height() / 2));
    text(rect, item.text, style.visible ? m_theme.text : m_theme.faintText);
}

void AxisPainter::drawLegend() {
    for (const LegendItem& item : m_layout.legendItems)
        drawLegendItem(item);
    if (m_layout.legendLeftOut.empty()) return;
    QRectF rect = m_layout.legendMore;
    if (m_chart.state.curveButtons != 0) drawButton(rect, buttonFrame(), m_theme.plot);
    rect.setLeft(rect.left() + std::round(m_font.height() / 2));
    rect.setTop(std::round(rect.center().y() - m_font.height() / 2));
    text(rect, m_layout.moreText(), m_theme.text);
}

void AxisPainter::drawTexts() {
    QRectF line(m_layout.notes.topLeft(), QSizeF(m_layout.notes.width(), m_font.height()));
    for (const QString& note : m_layout.noteLines) {
        text(line, note, m_theme.faintText);
        line.translate(0, std::ceil(m_font.height()));
    }
    if (m_layout.title.isEmpty()) return;
    TextMeasure& large = TextMeasure::of(m_layout.titleFont);
    const QString title = large.elided(m_chart.state.title, m_layout.title.width());
    m_painter.setFont(m_layout.titleFont);
    m_painter.setPen(m_theme.text);
    const double x = m_layout.title.center().x() - large.width(title) / 2;
    m_painter.drawText(QPointF(x, m_layout.title.top() + large.ascent()), title);
    m_painter.setFont(m_layout.font);
}

void AxisPainter::drawFront() {
    m_painter.setFont(m_layout.font);
    for (const ScaleBand& band : m_layout.scales)
        drawScale(band);
    drawTimeAxis();
    drawLegend();
    drawClockChanges();
    drawTexts();
}

} // namespace pellam
