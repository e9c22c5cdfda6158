#pragma once

#include <limits>

namespace pellam {

/// Smallest and largest value of a stretch of samples; empty when it holds no value.
struct ValueRange {
    double min = std::numeric_limits<double>::infinity();
    double max = -std::numeric_limits<double>::infinity();

    bool empty() const { return !(min <= max); }
};

/// The same in the form in which ranges are joined fastest: -min and max side by side, so that the
/// processor takes the larger of both at once.
class Extremes {
  public:
    /// Two numbers that the processor works on at once.
    using Pair = double __attribute__((vector_size(16)));

    Extremes() = default;

    explicit Extremes(const ValueRange& range) : m_pair{-range.min, range.max} {}

    ValueRange range() const { return {-m_pair[0], m_pair[1]}; }

    bool empty() const { return range().empty(); }

    void take(const Extremes& other) { m_pair = other.m_pair > m_pair ? other.m_pair : m_pair; }

  private:
    Pair m_pair{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
};

} // namespace pellam
