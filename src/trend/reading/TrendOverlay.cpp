#include "trend/reading/TrendOverlay.h"

#include "trend/curves/CurveReader.h"
#include "trend/curves/TrendChart.h"
#include "trend/layout/TrendLayout.h"
#include "trend/reading/LassoZoom.h"
#include "trend/reading/TrendMarks.h"
#include "trend/reading/TrendReading.h"

#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

namespace pellam {

namespace {

constexpr double kDot = 3.5;
constexpr double kTriangle = 5;

} // namespace

TrendOverlay::Colours TrendOverlay::Colours::of(const TrendTheme& theme, const QColor& accent) {
    constexpr double kSeen = 3; // as WCAG 2.1 wants it of what is no text
    return {theme, colourOfContrast(accent, theme.plot, kSeen)};
}

void TrendOverlay::addLine(Line::Kind kind, double time, const TrendLayout& layout,
                           const QString& label) {
    const double x = layout.timeMap.toPixel(time);
    if (x < m_plot.left() - 0.5 || x > m_plot.right() + 0.5) return;
    m_lines.push_back({kind, std::floor(x) + 0.5, label});
}

void TrendOverlay::addDots(const TrendChart& chart, const TrendLayout& layout,
                           const TrendReading& reading, double time) {
    for (const int curve : reading.drawnCurves()) {
        const TrendCurve& drawn = chart.curves[static_cast<std::size_t>(curve)];
        const ScaleBand* band = layout.scale(drawn.style().relatedScale);
        const auto sample = reading.sample(curve, time);
        if (!band || !sample || (band->map.logarithmic() && sample->value <= 0)) continue;
        const QPointF at(layout.timeMap.toPixel(sample->time), band->map.toPixel(sample->value));
        if (m_plot.contains(at) && at.y() >= band->band.top() && at.y() <= band->band.bottom())
            m_dots.push_back({at, drawn.style().colour});
    }
}

void TrendOverlay::findFocus(const TrendLayout& layout, const TrendMarks& marks) {
    m_focus = QRectF();
    if (!marks.focused) return;
    m_focus = m_plot.adjusted(-2, -2, 2, 2);
    const auto item = static_cast<std::size_t>(marks.legendFocus);
    if (marks.legendFocus >= 0 && item < layout.legendItems.size())
        m_focus = layout.legendItems[item].rect.adjusted(-1, -1, 1, 1);
    else if (marks.legendFocus >= 0 && !layout.legendLeftOut.empty())
        m_focus = layout.legendMore.adjusted(-1, -1, 1, 1);
}

void TrendOverlay::prepare(const TrendChart& chart, const TrendLayout& layout,
                           const TrendReading& reading, const TrendMarks& marks,
                           const LassoZoom& lasso) {
    m_font = layout.font;
    m_plot = layout.plot;
    m_lines.clear();
    m_dots.clear();
    if (marks.current) addLine(Line::Kind::Current, *marks.current, layout);
    for (int i = 0; i < 2; ++i) {
        const auto& cursor = marks.cursors[static_cast<std::size_t>(i)];
        const bool active = marks.activeCursor == i;
        if (cursor)
            addLine(active ? Line::Kind::ActiveCursor : Line::Kind::Cursor, *cursor, layout,
                    i == 0 ? QStringLiteral("A") : QStringLiteral("B"));
    }
    partGrips();
    m_lasso = lasso.rect().value_or(QRectF());
    ReadoutTable::Avoid avoid{m_lasso, marks.pointer};
    if (lasso.active()) {
        m_content = m_lasso.isEmpty() ? ReadoutContent()
                                      : reading.spans(m_lasso, layout, lasso.selectsTime(),
                                                      lasso.selectsValues());
        m_table.arrange({}, m_font, m_plot, {});
        arrange(m_spans, layout, avoid);
    } else {
        if (marks.crosshair) {
            addLine(Line::Kind::Crosshair, *marks.crosshair, layout);
            addDots(chart, layout, reading, *marks.crosshair);
            const double x = layout.timeMap.toPixel(*marks.crosshair);
            avoid.rect = QRectF(x - kDot, m_plot.top(), 2 * kDot, m_plot.height());
        }
        m_content = reading.table(marks);
        m_spans.arrange({}, m_font, m_plot, {});
        arrange(m_table, layout, avoid);
    }
    findFocus(layout, marks);
    findRegion();
}

// In a small window a reading may lie over legend and axes, or come down to its first lines.
void TrendOverlay::arrange(ReadoutTable& table, const TrendLayout& layout,
                           const ReadoutTable::Avoid& avoid) const {
    const QRectF whole(QPointF(0, 0), layout.size);
    QRectF belowGrips = m_plot;
    for (const Line& line : m_lines)
        if (!line.label.isEmpty()) belowGrips.setTop(gripRect(line).bottom());
    if (table.arrange(m_content, m_font, belowGrips, avoid)) return;
    if (table.arrange(m_content, m_font, whole, avoid)) return;
    ReadoutContent lines;
    lines.lines = m_content.lines;
    table.arrange(lines, m_font, whole, avoid);
}

QRectF TrendOverlay::gripRect(const Line& line) const {
    const QFontMetricsF metrics(m_font);
    const double side = std::ceil(metrics.height());
    return {line.x - side / 2 + line.gripShift, m_plot.top(), side, side};
}

int TrendOverlay::gripAt(const QPointF& point) const {
    for (const Line& line : m_lines)
        if (!line.label.isEmpty() && gripRect(line).contains(point))
            return line.label == u"A" ? 0 : 1;
    return -1;
}

// The grips of cursors that are close to each other stand side by side.
void TrendOverlay::partGrips() {
    std::vector<Line*> cursors;
    for (Line& line : m_lines)
        if (!line.label.isEmpty()) cursors.push_back(&line);
    if (cursors.size() < 2) return;
    if (cursors[1]->x < cursors[0]->x) std::swap(cursors[0], cursors[1]);
    const double missing = gripRect(*cursors[0]).right() + 1 - gripRect(*cursors[1]).left();
    if (missing <= 0) return;
    cursors[0]->gripShift = -std::ceil(missing / 2);
    cursors[1]->gripShift = std::ceil(missing / 2);
}

void TrendOverlay::findRegion() {
    QRegion region;
    const auto add = [&region](const QRectF& rect) {
        if (!rect.isEmpty()) region += rect.adjusted(-2, -2, 2, 2).toAlignedRect();
    };
    for (const Line& line : m_lines) {
        const double half = line.kind == Line::Kind::Current ? kTriangle + 1 : 1;
        add(QRectF(line.x - half, m_plot.top() - kTriangle - 1, 2 * half,
                   m_plot.height() + 2 * kTriangle + 2));
        if (!line.label.isEmpty()) add(gripRect(line));
    }
    for (const Dot& dot : m_dots)
        add(QRectF(dot.at.x() - kDot, dot.at.y() - kDot, 2 * kDot, 2 * kDot));
    add(m_lasso);
    add(m_table.rect());
    add(m_spans.rect());
    if (!m_focus.isEmpty()) {
        const QRect outer = m_focus.adjusted(-2, -2, 2, 2).toAlignedRect();
        region += QRegion(outer) - QRegion(outer.adjusted(4, 4, -4, -4));
    }
    m_region = region;
}

void TrendOverlay::paintLine(QPainter& painter, const Line& line, const Colours& colours) const {
    const QLineF stroke(line.x, m_plot.top(), line.x, m_plot.bottom());
    if (line.kind == Line::Kind::Crosshair) {
        painter.setPen(QPen(colours.theme.faintText, 1));
        painter.drawLine(stroke);
        return;
    }
    if (line.kind == Line::Kind::Current) {
        painter.setPen(QPen(colours.accent, 1, Qt::DotLine));
        painter.drawLine(stroke);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colours.accent);
        const QPointF bottom(line.x, m_plot.bottom());
        const QPointF marker[] = {bottom, bottom + QPointF(-kTriangle, kTriangle),
                                  bottom + QPointF(kTriangle, kTriangle)};
        painter.setRenderHint(QPainter::Antialiasing);
        painter.drawPolygon(marker, 3);
        painter.setRenderHint(QPainter::Antialiasing, false);
        return;
    }
    const bool active = line.kind == Line::Kind::ActiveCursor;
    const QColor colour = active ? colours.accent : colours.theme.text;
    painter.setPen(QPen(colour, 1, Qt::DashLine));
    painter.drawLine(stroke);
    const QRectF grip = gripRect(line);
    painter.fillRect(grip, colour);
    painter.setPen(colour.lightness() < 140 ? Qt::white : Qt::black);
    painter.setFont(m_font);
    painter.drawText(grip, Qt::AlignCenter, line.label);
}

void TrendOverlay::paintDots(QPainter& painter, const TrendTheme& theme) const {
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Dot& dot : m_dots) {
        painter.setPen(QPen(theme.plot, 1.2));
        painter.setBrush(colourOnScreen(dot.colour, theme.plot));
        painter.drawEllipse(dot.at, kDot, kDot);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void TrendOverlay::paintLasso(QPainter& painter, const Colours& colours) const {
    if (m_lasso.isEmpty()) return;
    QColor fill = colours.accent;
    fill.setAlpha(36);
    painter.setPen(QPen(colours.accent, 1));
    painter.setBrush(fill);
    const QRectF whole(m_lasso.toAlignedRect());
    painter.drawRect(whole.adjusted(0.5, 0.5, -0.5, -0.5));
}

void TrendOverlay::paint(QPainter& painter, const Colours& colours) const {
    for (const Line& line : m_lines)
        paintLine(painter, line, colours);
    paintDots(painter, colours.theme);
    paintLasso(painter, colours);
    if (!m_focus.isEmpty()) {
        painter.setPen(QPen(colours.accent, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(m_focus);
    }
    m_table.paint(painter, colours.theme);
    m_spans.paint(painter, colours.theme);
}

} // namespace pellam
