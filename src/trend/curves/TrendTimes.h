#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace pellam {

/// The times of a curve's points, in seconds since 1970 (UTC) with their fraction, strictly
/// increasing. Curves of one table share one object, so that a time is kept, and searched for,
/// once.
class TrendTimes {
  public:
    TrendTimes() = default;
    /// Takes times over. Null when they are not finite and strictly increasing.
    static std::shared_ptr<const TrendTimes> create(std::vector<double>&& times);

    std::size_t size() const { return m_times.size(); }

    bool empty() const { return m_times.empty(); }

    double operator[](std::size_t index) const { return m_times[index]; }

    const double* data() const { return m_times.data(); }

    double first() const { return m_times.front(); }

    double last() const { return m_times.back(); }

    std::size_t bytes() const { return m_times.capacity() * sizeof(double); }

    /// Adds a time; false, and nothing added, when it is not finite or not later than the last.
    bool append(double time);

    void reserve(std::size_t count) { m_times.reserve(count); }

    /// Index of the first time at or after the given one; size() when there is none.
    std::size_t lowerBound(double time) const;
    /// Index of the first time after the given one; size() when there is none.
    std::size_t upperBound(double time) const;

    /// For `columns` equal columns of the span from..to: the index of the first time at or after
    /// each column's left border; then that of the first time after `to`. columns + 1 entries.
    std::vector<std::size_t> columnStarts(double from, double to, int columns) const;

  private:
    std::vector<double> m_times;
};

} // namespace pellam
