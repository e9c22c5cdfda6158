#include "trend/paint/ColumnRaster.h"

#include "trend/paint/ColumnInk.h"

#include <algorithm>
#include <cmath>

namespace pellam {
namespace {

// The ends of lines steeper than this look smooth without their slant being worked out.
constexpr float steepest = 64;

// Where so many samples share a column, no single line is seen whose rim could matter.
constexpr std::uint32_t crowd = 16;

bool isSlant(const ColumnSpan& span) {
    const float height = span.bottom - span.top;
    if (height <= 1) return true;
    if (!span.entersLeft || !span.leavesRight) return false;
    return std::abs(span.enter - span.exit) >= height - 0.01f;
}

// Whether a column and its neighbours show one straight line and no more.
bool isInsideLine(const std::vector<ColumnSpan>& spans, std::size_t column) {
    if (column == 0 || column + 1 >= spans.size()) return false;
    const ColumnSpan& before = spans[column - 1];
    const ColumnSpan& after = spans[column + 1];
    return spans[column].samples + before.samples + after.samples == 0 && before.entersLeft &&
           after.leavesRight;
}

// How far a slant may bleed: to what its neighbours cover.
void reach(const std::vector<ColumnSpan>& spans, std::size_t column, float& least, float& most) {
    least = spans[column].top;
    most = spans[column].bottom;
    for (const std::size_t other : {column - 1, column + 1}) {
        if (other >= spans.size() || spans[other].empty) continue;
        least = std::min(least, spans[other].top);
        most = std::max(most, spans[other].bottom);
    }
}

// Rows lie thousands of bytes apart, which the processor does not foresee.
constexpr std::size_t ahead = 16;

void fetch(const QRgb* pixels, qsizetype stride, const QRect& clip, const ColumnSpan& span) {
    if (span.empty) return;
    const auto row = [&](float y) {
        return std::clamp(static_cast<int>(y), clip.top(), clip.bottom()) * stride;
    };
    __builtin_prefetch(pixels + row(span.top - 1), 1);
    __builtin_prefetch(pixels + row(span.top), 1);
    __builtin_prefetch(pixels + row(span.bottom), 1);
    __builtin_prefetch(pixels + row(span.bottom + 1), 1);
}

bool isDot(const std::vector<ColumnSpan>& spans, std::size_t column) {
    return !spans[column].entersLeft && !spans[column].leavesRight &&
           (column == 0 || spans[column - 1].empty) &&
           (column + 1 == spans.size() || spans[column + 1].empty);
}

class CurveFill {
  public:
    CurveFill(QImage& image, const QRect& clip, const QRect& area,
              const std::vector<ColumnSpan>& spans, const ColumnPen& pen)
        : m_pixels(reinterpret_cast<QRgb*>(image.bits())),
          m_stride(image.bytesPerLine() / 4),
          m_clip(clip),
          m_left(area.left()),
          m_spans(spans),
          m_colour(pen.colour.rgb() | 0xff000000u),
          m_half(static_cast<float>(pen.width / 2)),
          m_side(static_cast<int>(m_half - 0.5f)),
          m_rim(m_half - 0.5f - static_cast<float>(m_side)),
          m_line(m_half) {}

    void fill(std::size_t index) {
        const ColumnSpan& span = m_spans[index];
        ColumnInk column = columnAt(m_left + static_cast<int>(index));
        const float middle = (span.top + span.bottom) / 2;
        const float height = span.bottom - span.top;
        const bool inside = isInsideLine(m_spans, index);
        if (isSlant(span) && (inside || height <= steepest)) {
            m_line.setSlope(height);
            if (inside) return column.slant(m_line, middle);
            if (isDot(m_spans, index)) return dot(index);
            float least = 0;
            float most = 0;
            reach(m_spans, index, least, most);
            column.slant(m_line, middle, least - m_half, most + m_half);
            if (!isTall(span)) return;
            if (!goesOn(index, -1)) widen(index, -1);
            if (!goesOn(index, 1)) widen(index, 1);
        } else if (!isTall(span) && isDot(m_spans, index)) {
            dot(index);
        } else {
            column.box(span.top - m_half, span.bottom + m_half);
            if (!isTall(span)) return;
            widen(index, -1);
            widen(index, 1);
        }
    }

    void fetchAhead(std::size_t index) const {
        const std::size_t later = index + ahead;
        // A flat line stays in the rows that were asked for.
        if (m_spans[index].samples == 0 && index % 4 != 0) return;
        if (later >= m_spans.size() || m_left + static_cast<int>(later) > m_clip.right()) return;
        fetch(m_pixels + m_left + later, m_stride, m_clip, m_spans[later]);
    }

  private:
    ColumnInk columnAt(int x) const { return {m_pixels + x, m_stride, m_clip, m_colour}; }

    // Low ones are corners of lines that are wide enough.
    bool isTall(const ColumnSpan& span) const { return span.bottom - span.top > 4 * m_half; }

    // Whether the line rises or falls on in the column beside, which then has its part of the ink.
    bool goesOn(std::size_t index, int direction) const {
        const auto place = static_cast<qsizetype>(index) + direction;
        if (place < 0 || place >= static_cast<qsizetype>(m_spans.size())) return false;
        const ColumnSpan& here = m_spans[index];
        const ColumnSpan& other = m_spans[static_cast<std::size_t>(place)];
        if (!other.entersLeft || !other.leavesRight) return false;
        return (other.exit - other.enter > 0) == (here.exit - here.enter > 0) && isSlant(other);
    }

    // The pen reaches into the columns beside a steep line, the last of them in part.
    void widen(std::size_t index, int direction) const {
        for (int side = 1; side <= m_side; ++side)
            inkBeside(index, direction * side, 1);
        if (m_rim > 0.05f && m_spans[index].samples <= crowd)
            inkBeside(index, direction * (m_side + 1), m_rim);
    }

    // What the other column's own ink leaves.
    void inkBeside(std::size_t index, int side, float part) const {
        const int x = m_left + static_cast<int>(index) + side;
        if (x < m_clip.left() || x > m_clip.right()) return;
        const float top = m_spans[index].top - m_half;
        const float bottom = m_spans[index].bottom + m_half;
        const auto place = static_cast<std::size_t>(x - m_left);
        if (place >= m_spans.size() || m_spans[place].empty) return; // gaps stay whole
        columnAt(x).shade(top, std::min(bottom, m_spans[place].top), part);
        columnAt(x).shade(std::max(top, m_spans[place].bottom), bottom, part);
    }

    void dot(std::size_t index) const {
        const ColumnSpan& span = m_spans[index];
        const int x = m_left + static_cast<int>(index);
        const int wide = std::max(1, static_cast<int>(2 * m_half));
        const int end = std::min(m_clip.right(), x + wide);
        for (int at = std::max(m_clip.left(), x - wide); at <= end; ++at)
            columnAt(at).box(span.top - 2 * m_half, span.bottom + 2 * m_half);
    }

    QRgb* m_pixels;
    qsizetype m_stride;
    const QRect& m_clip;
    int m_left;
    const std::vector<ColumnSpan>& m_spans;
    QRgb m_colour;
    float m_half;
    int m_side;  ///< columns beside its own that the pen covers
    float m_rim; ///< how much of the next one it covers
    SlantInk m_line;
};

} // namespace

bool ColumnRaster::leftOut(const ColumnSpan& span, int column, const ColumnPen& pen) {
    if (pen.dash == CurveDash::Solid || span.bottom - span.top > 2 * pen.width) return false;
    const int place = static_cast<int>(column / std::max(1.0, pen.dashUnit)) % 8;
    switch (pen.dash) {
    case CurveDash::Dash:
        return place % 4 == 3;
    case CurveDash::Dot:
        return place % 2 == 1;
    case CurveDash::DashDot:
        return place == 4 || place == 7;
    case CurveDash::Solid:
        break;
    }
    return false;
}

void ColumnRaster::fill(QImage& image, const QRect& area, const std::vector<ColumnSpan>& spans,
                        const ColumnPen& pen) {
    const QRect clip = area & image.rect();
    if (clip.isEmpty()) return;
    CurveFill curve(image, clip, area, spans, pen);
    for (int x = clip.left(); x <= clip.right(); ++x) {
        const auto index = static_cast<std::size_t>(x - area.left());
        if (index >= spans.size()) break;
        curve.fetchAhead(index);
        if (!spans[index].empty && !leftOut(spans[index], x - area.left(), pen)) curve.fill(index);
    }
}

} // namespace pellam
