#pragma once

#include <cmath>

namespace pellam {

/// How much ink a straight line leaves in the columns that it crosses; worked out once for the
/// columns of one line. In pixels.
class SlantInk {
  public:
    explicit SlantInk(float halfWidth) : m_ink(halfWidth + 0.5f) {}

    /// How far the line falls or rises in one column.
    void setSlope(float slope) {
        if (std::abs(slope - m_slope) < 1e-4f) return;
        m_slope = slope;
        m_square = 1 / std::sqrt(1 + slope * slope);
        m_reach = m_ink / m_square;
    }

    /// Half the height over which the line has ink.
    float reach() const { return m_reach; }

    /// Of a pixel whose middle lies so far above or below the line, 0 to 256: it fades with the
    /// distance square to the line.
    unsigned coverage(float away) const {
        const float part = (m_ink - std::abs(away) * m_square) * 256;
        const int whole = static_cast<int>(part < 256 ? part : 256);
        return static_cast<unsigned>(whole > 0 ? whole : 0);
    }

  private:
    float m_ink;
    float m_slope = 0;
    float m_square = 1;
    float m_reach = m_ink;
};

} // namespace pellam
