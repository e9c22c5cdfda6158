#pragma once

#include "trend/reading/ReadoutContent.h"

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
/// what it reads, never hides the place that is pointed at, wraps rows into blocks side by side
/// when it is too high, and leaves the last ones out (saying how many) rather than be cut off. Its
/// columns don't get narrower from one reading of the same curves to the next, so that it does not
/// tremble; a last column that has stayed without text is given up.
class ReadoutTable {
  public:
    /// What the box keeps clear of: `rect` where it can, the point always.
    struct Avoid {
        QRectF rect;
        std::optional<QPointF> point;
    };

    /// Lays the content out within an area; false, and nothing is shown, when it finds no room.
    bool arrange(const ReadoutContent& content, const QFont& font, const QRectF& area,
                 const Avoid& avoid);

    /// Empty when there is nothing to show.
    QRectF rect() const { return m_rect; }

    void paint(QPainter& painter, const TrendTheme& theme) const;

  private:
    void measure(const QFontMetricsF& metrics);
    void cut(qsizetype column, const QFontMetricsF& metrics);
    void releaseEmptyColumn();
    void wrap(const QSizeF& room);
    double blockWidth() const;
    QSizeF size() const;
    bool place(const QRectF& area, const Avoid& avoid);
    void paintMark(QPainter& painter, const QPointF& at, const ReadoutContent::Row& row,
                   const TrendTheme& theme) const;
    void paintRow(QPainter& painter, const QPointF& at, const QStringList& cells) const;

    ReadoutContent m_content;
    QFont m_font;
    double m_lineHeight = 0;
    double m_gap = 0;
    double m_linesWidth = 0;
    std::vector<double> m_widths;
    std::size_t m_widthsRows = 0;
    int m_emptyFor = 0;         ///< readings since the last column had a text
    std::size_t m_shown = 0;    ///< rows that have room
    std::size_t m_perBlock = 1; ///< rows one below the other
    int m_corner = 0;           ///< 0 = top left, 1 = top right, 2 = bottom right, 3 = bottom left
    QRectF m_rect;
};

} // namespace pellam
