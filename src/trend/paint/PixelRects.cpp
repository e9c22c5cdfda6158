#include "trend/paint/PixelRects.h"

#include <algorithm>
#include <cmath>

namespace pellam {

PixelRects::PixelRects(QImage& image)
    : m_pixels(reinterpret_cast<QRgb*>(image.bits())),
      m_stride(image.bytesPerLine() / 4),
      m_area(image.rect()),
      m_ratio(image.devicePixelRatio()) {}

int PixelRects::rowAt(double y) const {
    return static_cast<int>(std::lround(y * m_ratio));
}

void PixelRects::fill(const QRectF& rect, QRgb colour) {
    const int left = std::max(rowAt(rect.left()), 0);
    const int right = std::min(rowAt(rect.right()), m_area.width());
    const int top = std::max(rowAt(rect.top()), 0);
    const int bottom = std::min(rowAt(rect.bottom()), m_area.height());
    if (left >= right) return;
    QRgb* row = m_pixels + top * m_stride + left;
    for (int y = top; y < bottom; ++y, row += m_stride)
        std::fill_n(row, right - left, colour);
}

void PixelRects::repeatRow(int row, int end) {
    end = std::min(end, m_area.height());
    if (row < 0 || row >= end) return;
    const QRgb* const from = m_pixels + row * m_stride;
    for (int y = row + 1; y < end; ++y)
        std::copy_n(from, m_area.width(), m_pixels + y * m_stride);
}

} // namespace pellam
