#pragma once

#include "trend/curves/TrendRanges.h"

#include <vector>

namespace pellam {

/// Steps back and forward through the ranges that were shown.
class ZoomHistory {
  public:
    /// Oldest steps beyond this many are forgotten.
    static constexpr std::size_t kSteps = 200;

    /// A change is about to leave these ranges. Steps forward are forgotten.
    void leave(const TrendRanges& ranges);
    /// The ranges to go back (forward) to from those shown now; call only when it can.
    TrendRanges back(const TrendRanges& now);
    TrendRanges forward(const TrendRanges& now);
    void clear();

    bool canGoBack() const { return !m_back.empty(); }

    bool canGoForward() const { return !m_forward.empty(); }

  private:
    std::vector<TrendRanges> m_back;
    std::vector<TrendRanges> m_forward;
};

} // namespace pellam
