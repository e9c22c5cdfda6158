#include "trend/ColumnRaster.h"

#include <algorithm>
#include <cmath>

namespace pellam {
namespace {

// Lines steeper than this look smooth without their slant being worked out.
constexpr float steepest = 16;

QRgb blended(QRgb under, QRgb over, unsigned coverage) {
    const unsigned rest = 256 - coverage;
    const unsigned redBlue =
        ((over & 0xff00ffu) * coverage + (under & 0xff00ffu) * rest) >> 8 & 0xff00ffu;
    const unsigned green = ((over & 0xff00u) * coverage + (under & 0xff00u) * rest) >> 8 & 0xff00u;
    return 0xff000000u | redBlue | green;
}

class Column {
  public:
    Column(QRgb* pixels, qsizetype stride, const QRect& clip, QRgb colour)
        : m_pixels(pixels),
          m_stride(stride),
          m_top(clip.top()),
          m_bottom(clip.bottom() + 1),
          m_colour(colour) {}

    // Full ink from top to bottom, its ends in part.
    void box(float top, float bottom) {
        top = std::max(top, static_cast<float>(m_top));
        bottom = std::min(bottom, static_cast<float>(m_bottom));
        if (!(top < bottom)) return;
        const int first = static_cast<int>(top);
        const int last = static_cast<int>(bottom);
        if (first == last) return blendRow(first, bottom - top);
        blendRow(first, static_cast<float>(first + 1) - top);
        QRgb* pixel = m_pixels + (first + 1) * m_stride;
        for (int y = first + 1; y < last; ++y, pixel += m_stride)
            *pixel = m_colour;
        if (last < m_bottom) blendRow(last, bottom - static_cast<float>(last));
    }

    // A straight line that falls or rises over the whole column, kept within limits: ink fades with
    // the distance from the line, square to it.
    void slant(float top, float bottom, float halfWidth, float least, float most) {
        const float slope = bottom - top;
        const float square = 1 / std::sqrt(1 + slope * slope);
        const float middle = (top + bottom) / 2;
        const float reach = (halfWidth + 0.5f) / square;
        const float from = std::max({middle - reach, least, static_cast<float>(m_top)});
        const float to = std::min({middle + reach, most, static_cast<float>(m_bottom)});
        if (!(from < to)) return;
        const int last = std::min(m_bottom - 1, static_cast<int>(to));
        QRgb* pixel = m_pixels + static_cast<int>(from) * m_stride;
        for (int y = static_cast<int>(from); y <= last; ++y, pixel += m_stride) {
            const float away = std::abs(static_cast<float>(y) + 0.5f - middle) * square;
            blend(*pixel, halfWidth + 0.5f - away);
        }
    }

  private:
    void blendRow(int y, float coverage) { blend(m_pixels[y * m_stride], coverage); }

    void blend(QRgb& pixel, float coverage) const {
        const int part = static_cast<int>(coverage * 256);
        if (part >= 256)
            pixel = m_colour;
        else if (part > 0)
            pixel = blended(pixel, m_colour, static_cast<unsigned>(part));
    }

    QRgb* m_pixels;
    qsizetype m_stride;
    int m_top;
    int m_bottom;
    QRgb m_colour;
};

bool isSlant(const ColumnSpan& span) {
    const float height = span.bottom - span.top;
    if (height <= 1) return true;
    if (height > steepest || !span.entersLeft || !span.leavesRight) return false;
    return std::abs(span.enter - span.exit) >= height - 0.01f;
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
    auto* pixels = reinterpret_cast<QRgb*>(image.bits());
    const qsizetype stride = image.bytesPerLine() / 4;
    const QRgb colour = pen.colour.rgb() | 0xff000000u;
    const auto half = static_cast<float>(pen.width / 2);
    for (int x = clip.left(); x <= clip.right(); ++x) {
        const auto index = static_cast<std::size_t>(x - area.left());
        if (index >= spans.size()) break;
        const ColumnSpan& span = spans[index];
        if (index + ahead < spans.size() && x + int(ahead) <= clip.right())
            fetch(pixels + x + ahead, stride, clip, spans[index + ahead]);
        if (span.empty || leftOut(span, x - area.left(), pen)) continue;
        Column column(pixels + x, stride, clip, colour);
        if (isDot(spans, index)) {
            const int wide = std::max(1, static_cast<int>(pen.width));
            for (int dot = std::max(clip.left(), x - wide); dot <= std::min(clip.right(), x + wide);
                 ++dot)
                Column(pixels + dot, stride, clip, colour)
                    .box(span.top - 2 * half, span.bottom + 2 * half);
        } else if (isSlant(span)) {
            float least = 0;
            float most = 0;
            reach(spans, index, least, most);
            column.slant(span.top, span.bottom, half, least - half, most + half);
        } else {
            column.box(span.top - half, span.bottom + half);
        }
    }
}

} // namespace pellam
