#pragma once

#include "trend/ReadoutContent.h"

#include <QFont>
#include <QPointF>
#include <QRectF>
#include <optional>

QT_BEGIN_NAMESPACE
class QFontMetricsF;
class QPainter;
QT_END_NAMESPACE

namespace pellam {

struct TrendTheme;

/// A reading in a box in a corner of the drawing area. It stays in its corner until that would hide
/// the place that it reads, wraps rows into blocks side by side when it is too high, and leaves the
/// last ones out (saying how many) rather than be cut off. Its columns never get narrower while the
/// same curves are read, so that it does not tremble.
class ReadoutTable {
  public:
    /// Lays the content out within an area, clear of a point when there is one.
    void arrange(const ReadoutContent& content, const QFont& font, const QRectF& area,
                 const std::optional<QPointF>& avoid);

    /// Empty when there is nothing to show.
    QRectF rect() const { return m_rect; }

    void paint(QPainter& painter, const TrendTheme& theme) const;

  private:
    void measure(const QFontMetricsF& metrics);
    void wrap(const QSizeF& room);
    double blockWidth() const;
    QSizeF size() const;
    void place(const QRectF& area, const std::optional<QPointF>& avoid);
    void paintRow(QPainter& painter, const QPointF& at, const QStringList& cells,
                  const QColor& swatch) const;

    ReadoutContent m_content;
    QFont m_font;
    double m_lineHeight = 0;
    double m_gap = 0;
    double m_linesWidth = 0;
    std::vector<double> m_widths;
    std::size_t m_widthsRows = 0;
    std::size_t m_shown = 0;    ///< rows that have room
    std::size_t m_perBlock = 1; ///< rows one below the other
    int m_corner = 0;           ///< 0 = top left, 1 = top right, 2 = bottom right, 3 = bottom left
    QRectF m_rect;
};

} // namespace pellam
