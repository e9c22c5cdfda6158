#pragma once

#include "trend/curves/TrendState.h"
#include "trend/layout/TrendLayout.h"

namespace pellam {

/// Zooms and moves the shown ranges of a chart, in steps measured in the pixels of its layout.
/// Ranges stay within what doubles can tell apart. Each function answers whether anything changed.
class TrendZoom {
  public:
    TrendZoom(TrendState& state, const TrendLayout& layout) : m_state(state), m_layout(layout) {}

    /// By a factor (below 1 = closer) around a pixel. `axis` 0 = every scale whose band holds `y`.
    bool zoomTime(double factor, double x);
    bool zoomValues(double factor, double y, int axis = 0);
    /// By pixels to the right (down); the curves go along.
    bool panTime(double pixels);
    bool panValues(double pixels, double y, int axis = 0);
    /// To the time span and to the value spans of the scales that a rectangle covers.
    bool zoomTo(const QRectF& rect, bool time, bool values);

  private:
    bool setTime(double min, double max);
    bool setScale(int axis, double min, double max);
    template <typename Bounds>
    bool editScales(double y, int axis, Bounds bounds);

    TrendState& m_state;
    const TrendLayout& m_layout;
};

} // namespace pellam
