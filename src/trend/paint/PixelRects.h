#pragma once

#include <QColor>
#include <QImage>
#include <QRectF>

namespace pellam {

/// Fills rectangles of one opaque colour straight into the memory of a 32-bit image: for the
/// hundreds of marks and lines of a chart, whose setting up would cost a painter more than their
/// ink. May be used while a painter is open on the image.
class PixelRects {
  public:
    /// The image must outlive this object and stay as large as it is.
    explicit PixelRects(QImage& image);

    /// Pixels per logical pixel.
    double ratio() const { return m_ratio; }

    /// Fills a rectangle in logical pixels; its edges go to the nearest whole pixels.
    void fill(const QRectF& rect, QRgb colour);
    /// Makes the pixel rows from `row` + 1 up to (not including) `end` equal to `row`.
    void repeatRow(int row, int end);
    /// The pixel row that a logical y falls on.
    int rowAt(double y) const;

  private:
    QRgb* m_pixels;
    qsizetype m_stride;
    QRect m_area;
    double m_ratio;
};

} // namespace pellam
