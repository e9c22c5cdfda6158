#pragma once

#include "trend/paint/SlantInk.h"

#include <QRect>
#include <QRgb>
#include <algorithm>
#include <cmath>

namespace pellam {

/// Puts a curve's ink into one column of an opaque 32-bit image.
class ColumnInk {
  public:
    ColumnInk(QRgb* pixels, qsizetype stride, const QRect& clip, QRgb colour)
        : m_pixels(pixels),
          m_stride(stride),
          m_top(clip.top()),
          m_bottom(clip.bottom() + 1),
          m_colour(colour) {}

    /// Full ink from top to bottom, its ends in part.
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

    /// Ink in part, 0 to 1, from top to bottom.
    void shade(float top, float bottom, float part) {
        if (part >= 1) return box(top, bottom);
        const float from = std::max(top, static_cast<float>(m_top));
        const float to = std::min(bottom, static_cast<float>(m_bottom));
        if (!(from < to)) return;
        const int first = static_cast<int>(from + 0.5f);
        const int last = static_cast<int>(to + 0.5f);
        // Locals: a pixel that is written might be a member for all that the compiler knows.
        const auto coverage = static_cast<unsigned>(part * 256);
        const QRgb colour = m_colour;
        const qsizetype stride = m_stride;
        QRgb* pixel = m_pixels + first * stride;
        for (int y = first; y < last; ++y, pixel += stride)
            *pixel = blended(*pixel, colour, coverage);
    }

    /// A straight line that falls or rises over the whole column, kept within limits.
    void slant(const SlantInk& line, float middle, float least, float most) {
        const float from = std::max({middle - line.reach(), least, static_cast<float>(m_top)});
        const float to = std::min({middle + line.reach(), most, static_cast<float>(m_bottom)});
        if (!(from < to)) return;
        rows(line, middle, static_cast<int>(from), std::min(m_bottom - 1, static_cast<int>(to)));
    }

    /// The same without limits.
    void slant(const SlantInk& line, float middle) {
        const float from = middle - line.reach();
        const int first = static_cast<int>(from);
        const bool flat =
            line.reach() <= 1.5f && from >= static_cast<float>(m_top) && first + 4 <= m_bottom;
        if (!flat) {
            slant(line, middle, static_cast<float>(m_top), static_cast<float>(m_bottom));
            return;
        }
        // Always four rows, which the processor foresees. Unrolled, four blends at once run out of
        // registers.
#pragma GCC unroll 1
        for (int y = first; y < first + 4; ++y)
            blendAt(line, middle, y);
    }

  private:
    static QRgb blended(QRgb under, QRgb over, unsigned coverage) {
        const unsigned rest = 256 - coverage;
        const unsigned redBlue =
            ((over & 0xff00ffu) * coverage + (under & 0xff00ffu) * rest) >> 8 & 0xff00ffu;
        const unsigned green =
            ((over & 0xff00u) * coverage + (under & 0xff00u) * rest) >> 8 & 0xff00u;
        return 0xff000000u | redBlue | green;
    }

    void rows(const SlantInk& line, float middle, int first, int last) {
        const QRgb colour = m_colour;
        const qsizetype stride = m_stride;
        const SlantInk ink = line;
        QRgb* pixel = m_pixels + first * stride;
        for (int y = first; y <= last; ++y, pixel += stride)
            *pixel = blended(*pixel, colour, ink.coverage(static_cast<float>(y) + 0.5f - middle));
    }

    // Without a decision: which pixels are covered is hard to foresee.
    void blendAt(const SlantInk& line, float middle, int y) {
        QRgb& pixel = m_pixels[y * m_stride];
        pixel = blended(pixel, m_colour, line.coverage(static_cast<float>(y) + 0.5f - middle));
    }

    void blendRow(int y, float coverage) {
        QRgb& pixel = m_pixels[y * m_stride];
        blend(pixel, coverage);
    }

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

} // namespace pellam
