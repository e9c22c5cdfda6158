#pragma once

#include "trend/paint/TrendTheme.h"
#include "trend/reading/ReadoutTable.h"

#include <QRegion>
#include <vector>

namespace pellam {

class LassoZoom;
class TrendLayout;
class TrendReading;
struct TrendChart;
struct TrendMarks;

/// Draws what lies over the curves: crosshair, cursors, current row, lasso, reading and focus.
/// prepare() lays it out, so that only its old and its new region need be painted.
class TrendOverlay {
  public:
    struct Colours {
        TrendTheme theme;
        QColor accent;

        /// A theme with an accent that can be seen on it.
        static Colours of(const TrendTheme& theme, const QColor& accent);
    };

    void prepare(const TrendChart& chart, const TrendLayout& layout, const TrendReading& reading,
                 const TrendMarks& marks, const LassoZoom& lasso);

    /// Everything that paint() touches.
    const QRegion& region() const { return m_region; }

    void paint(QPainter& painter, const Colours& colours) const;

    /// The cursor (0 = A, 1 = B) whose grip is at a point; -1 = none.
    int gripAt(const QPointF& point) const;

    /// What the reading says now.
    const ReadoutContent& content() const { return m_content; }

  private:
    struct Line {
        enum class Kind { Crosshair, Cursor, ActiveCursor, Current } kind;
        double x = 0;
        QString label;
        double gripShift = 0; ///< of the grip with the label, sideways
    };

    struct Dot {
        QPointF at;
        QColor colour;
    };

    void addLine(Line::Kind kind, double time, const TrendLayout& layout,
                 const QString& label = {});
    void addDots(const TrendChart& chart, const TrendLayout& layout, const TrendReading& reading,
                 double time);
    void arrange(ReadoutTable& table, const TrendLayout& layout,
                 const ReadoutTable::Avoid& avoid) const;
    void findFocus(const TrendLayout& layout, const TrendMarks& marks);
    void partGrips();
    void findRegion();
    QRectF gripRect(const Line& line) const;
    void paintLine(QPainter& painter, const Line& line, const Colours& colours) const;
    void paintDots(QPainter& painter, const TrendTheme& theme) const;
    void paintLasso(QPainter& painter, const Colours& colours) const;

    QFont m_font;
    QRectF m_plot;
    std::vector<Line> m_lines;
    std::vector<Dot> m_dots;
    QRectF m_lasso;
    QRectF m_focus;
    ReadoutTable m_table;
    ReadoutTable m_spans; ///< apart from m_table: its columns are others
    ReadoutContent m_content;
    QRegion m_region;
};

} // namespace pellam
