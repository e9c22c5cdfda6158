#include "trend/paint/CurveLines.h"

#include "trend/curves/TrendCurve.h"

#include <QLineF>
#include <algorithm>
#include <cmath>

namespace pellam {
namespace {

// Joins points to lines and keeps what lies inside a rectangle.
class ClippedLines {
  public:
    explicit ClippedLines(const QRectF& area) : m_area(area) {}

    void breakHere() {
        if (m_points == 1 && m_area.contains(m_last)) m_lines.push_back(QPolygonF() << m_last);
        m_points = 0;
        m_open = false;
    }

    void add(const QPointF& point) {
        if (m_points > 0) segment(m_last, point);
        m_last = point;
        ++m_points;
    }

    std::vector<QPolygonF> take() {
        breakHere();
        return std::move(m_lines);
    }

  private:
    // Liang and Barsky's clipping of a line by its parameters.
    void segment(const QPointF& from, const QPointF& to) {
        double first = 0;
        double last = 1;
        const QPointF by = to - from;
        const auto clip = [&](double towards, double room) {
            if (towards == 0) return room >= 0;
            const double part = room / towards;
            if (towards < 0) first = std::max(first, part);
            if (towards > 0) last = std::min(last, part);
            return first <= last;
        };
        const bool inside =
            clip(-by.x(), from.x() - m_area.left()) && clip(by.x(), m_area.right() - from.x()) &&
            clip(-by.y(), from.y() - m_area.top()) && clip(by.y(), m_area.bottom() - from.y());
        if (!inside) {
            m_open = false;
            return;
        }
        if (!m_open || first > 0) m_lines.push_back(QPolygonF() << from + by * first);
        m_lines.back() << from + by * last;
        m_open = last == 1;
    }

    QRectF m_area;
    QPointF m_last;
    int m_points = 0;
    bool m_open = false; // the last line ends at m_last
    std::vector<QPolygonF> m_lines;
};

class Tracer {
  public:
    Tracer(const TrendCurve& curve, const ColumnGrid& grid, const ScaleMap& map, const QRectF& area)
        : m_curve(curve),
          m_grid(grid),
          m_map(map),
          m_area(area),
          m_lines(area),
          m_width(area.width() / grid.columns) {}

    void column(int index, const ColumnSpan& span, std::size_t first, std::size_t end) {
        const double left = m_area.left() + index * m_width;
        if (!span.entersLeft) m_lines.breakHere();
        if (span.empty) return;
        if (span.entersLeft && index == 0) m_lines.add({left, span.enter});
        if (end - first <= 2) {
            for (std::size_t i = first; i < end; ++i)
                sample(i);
        } else {
            const double middle = left + m_width / 2;
            const double from = span.entersLeft ? span.enter : span.top;
            const bool topFirst = std::abs(from - span.top) <= std::abs(from - span.bottom);
            m_lines.add({middle, topFirst ? span.top : span.bottom});
            if (span.bottom > span.top) m_lines.add({middle, topFirst ? span.bottom : span.top});
        }
        if (span.leavesRight && index + 1 == m_grid.columns)
            m_lines.add({m_area.right(), span.exit});
    }

    void skip() { m_lines.breakHere(); }

    void startAt(int index, double y) { m_lines.add({m_area.left() + index * m_width, y}); }

    std::vector<QPolygonF> take() { return m_lines.take(); }

  private:
    void sample(std::size_t index) {
        const double value = m_curve.values()[index];
        if (!m_curve.pyramid(m_map.logarithmic()).counts(value)) return;
        const double part = ((*m_curve.times())[index] - m_grid.from) / (m_grid.to - m_grid.from);
        m_lines.add({m_area.left() + part * m_area.width(), m_map.toPixel(value)});
    }

    const TrendCurve& m_curve;
    const ColumnGrid& m_grid;
    const ScaleMap& m_map;
    QRectF m_area;
    ClippedLines m_lines;
    double m_width;
};

} // namespace

std::vector<QPolygonF> CurveLines::find(const TrendCurve& curve, const ColumnGrid& grid,
                                        const ScaleMap& map, const QRectF& area, bool breakGaps,
                                        const ColumnPen& pen) {
    if (grid.columns < 1 || curve.empty()) return {};
    const auto starts = curve.times()->columnStarts(grid.from, grid.to, grid.columns);
    const auto spans = CurveColumns::find(curve, starts, grid, map, breakGaps);
    Tracer tracer(curve, grid, map, area);
    bool skipped = false;
    for (int i = 0; i < grid.columns; ++i) {
        const auto place = static_cast<std::size_t>(i);
        const ColumnSpan& span = spans[place];
        if (!span.empty && ColumnRaster::leftOut(span, i, pen)) {
            if (!skipped && span.entersLeft) tracer.startAt(i, span.enter);
            tracer.skip();
            skipped = true;
            continue;
        }
        if (skipped && span.entersLeft) tracer.startAt(i, span.enter);
        skipped = false;
        tracer.column(i, span, starts[place], starts[place + 1]);
    }
    return tracer.take();
}

} // namespace pellam
