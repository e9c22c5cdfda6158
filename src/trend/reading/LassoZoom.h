#pragma once

#include <QPointF>
#include <QRectF>
#include <optional>

namespace pellam {

/// The rubber band of the selection zoom. Drawn flat it selects a time span only, drawn upright a
/// value span only.
class LassoZoom {
  public:
    /// Pixels below which a side of the band does not count.
    static constexpr double kFlat = 8;

    void start(const QPointF& point, const QRectF& plot);
    void moveTo(const QPointF& point);

    void cancel() { m_active = false; }

    bool active() const { return m_active; }

    /// Whether time (values) will be zoomed.
    bool selectsTime() const;
    bool selectsValues() const;
    /// The band within the drawing area; over its full height (width) while that side does not
    /// count. Nothing while neither side does.
    std::optional<QRectF> rect() const;

  private:
    bool m_active = false;
    QPointF m_start;
    QPointF m_end;
    QRectF m_plot;
};

} // namespace pellam
