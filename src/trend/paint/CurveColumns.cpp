#include "trend/paint/CurveColumns.h"

#include "trend/curves/TrendCurve.h"

#include <algorithm>
#include <limits>

namespace pellam {
namespace {

class Finder {
  public:
    Finder(const TrendCurve& curve, const ColumnGrid& grid, const ScaleMap& map, bool breakGaps)
        : m_curve(curve),
          m_usual(breakGaps ? curve.usualStep() : std::numeric_limits<double>::infinity()),
          m_times(curve.times()->data()),
          m_values(curve.values()),
          m_count(curve.size()),
          m_pyramid(curve.pyramid(map.logarithmic())),
          m_grid(grid),
          m_map(map),
          m_width((grid.to - grid.from) / grid.columns),
          m_longest(breakGaps && m_usual > 0 ? 3 * m_usual
                                             : std::numeric_limits<double>::infinity()) {}

    std::vector<ColumnSpan> find(const std::vector<std::size_t>& starts) {
        std::vector<ColumnSpan> spans(static_cast<std::size_t>(m_grid.columns));
        setLast(m_pyramid.previousSample(m_values, starts.front()));
        bool joined = cross(0, starts.front());
        for (std::size_t column = 0; column < spans.size(); ++column) {
            if (column + ahead < starts.size() &&
                starts[column + ahead] > starts[column] + MinMaxPyramid::branching)
                m_pyramid.prefetch(m_values, starts[column + ahead]);
            ColumnSpan& span = spans[column];
            if (joined) {
                span.entersLeft = true;
                span.enter = m_border;
                include(span, m_border);
            }
            if (starts[column] < starts[column + 1])
                takeSamples(span, starts[column], starts[column + 1]);
            joined = cross(column + 1, starts[column + 1]);
            if (joined) {
                span.leavesRight = true;
                span.exit = m_border;
                include(span, m_border);
            }
        }
        return spans;
    }

  private:
    static constexpr std::size_t ahead = 6;

    float pixel(double value) const { return static_cast<float>(m_map.toPixel(value)); }

    static void include(ColumnSpan& span, float y) {
        span.top = span.empty ? y : std::min(span.top, y);
        span.bottom = span.empty ? y : std::max(span.bottom, y);
        span.empty = false;
    }

    void setLast(std::size_t index) {
        if (index == m_next)
            m_lastPixel = m_nextPixel;
        else if (index < m_count)
            m_lastPixel = m_map.toPixel(m_values[index]);
        m_last = index;
        m_joinKnown = false;
    }

    std::size_t firstFrom(std::size_t start) const {
        const bool there = start < m_count && m_pyramid.counts(m_values[start]);
        return there ? start : m_pyramid.nextSample(m_values, start);
    }

    std::size_t lastBefore(std::size_t end) const {
        const bool there = m_pyramid.counts(m_values[end - 1]);
        return there ? end - 1 : m_pyramid.previousSample(m_values, end);
    }

    void takeSamples(ColumnSpan& span, std::size_t first, std::size_t end) {
        span.samples = static_cast<std::uint32_t>(
            std::min<std::size_t>(end - first, std::numeric_limits<std::uint32_t>::max()));
        if (end - first == 1) {
            if (!m_pyramid.counts(m_values[first])) return;
            setLast(first);
            include(span, static_cast<float>(m_lastPixel));
            return;
        }
        const ValueRange range = m_pyramid.range(m_values, first, end);
        if (range.empty()) return;
        include(span, pixel(range.min));
        include(span, pixel(range.max));
        setLast(lastBefore(end));
    }

    // Whether the line goes on over the left border of a column whose samples start at an index;
    // then m_border is where.
    bool cross(std::size_t column, std::size_t start) {
        if (m_last >= m_count) return false;
        if (m_next < start || m_next == unknown) {
            m_next = firstFrom(start);
            if (m_next < m_count) m_nextPixel = m_map.toPixel(m_values[m_next]);
            m_joinKnown = false;
        }
        if (m_next >= m_count) return false;
        if (!m_joinKnown) findJoin();
        if (!m_joined) return false;
        const double time = m_fromLast + m_width * static_cast<double>(column);
        m_border = static_cast<float>(m_lastPixel + time * m_slope);
        return true;
    }

    // The line from the last sample to the next; it is the same for all borders between them.
    void findJoin() {
        m_joinKnown = true;
        const double step = m_times[m_next] - m_times[m_last];
        m_fromLast = m_grid.from - m_times[m_last];
        m_joined = step <= m_longest && !missesBetween(step);
        m_slope = step > 0 ? (m_nextPixel - m_lastPixel) / step : 0;
    }

    // Values that a curve misses as a rule are no gap: it is measured less often than others.
    bool missesBetween(double step) const {
        return step > 1.5 * m_usual && m_curve.gapBetween(m_last, m_next);
    }

    static constexpr std::size_t unknown = std::numeric_limits<std::size_t>::max();
    const TrendCurve& m_curve;
    double m_usual; // step between values; infinite where gaps are bridged
    const double* m_times;
    const double* m_values;
    std::size_t m_count;
    const MinMaxPyramid& m_pyramid;
    const ColumnGrid& m_grid;
    const ScaleMap& m_map;
    double m_width;
    double m_longest;
    std::size_t m_last = unknown; // last sample with a value so far
    double m_lastPixel = 0;
    std::size_t m_next = unknown; // the one after it, where known
    double m_nextPixel = 0;
    double m_fromLast = 0; // seconds from the last one to the left border of the first column
    double m_slope = 0;    // pixels a second from the last to the next
    bool m_joinKnown = false;
    bool m_joined = false;
    float m_border = 0;
};

} // namespace

std::vector<ColumnSpan> CurveColumns::find(const TrendCurve& curve,
                                           const std::vector<std::size_t>& starts,
                                           const ColumnGrid& grid, const ScaleMap& map,
                                           bool breakGaps) {
    return Finder(curve, grid, map, breakGaps).find(starts);
}

} // namespace pellam
