#pragma once

#include "trend/curves/AlignedAllocator.h"
#include "trend/curves/Extremes.h"

#include <cstddef>
#include <vector>

namespace pellam {

/// Minima and maxima of a row of samples over blocks of 16, 64, 256, … samples, so that the
/// extremes of any stretch are found in a time that hardly depends on its length. NaN samples are
/// no value. Does not keep the samples: every question hands in the array that the pyramid was
/// built from.
class MinMaxPyramid {
  public:
    static constexpr std::size_t branching = 16; ///< samples in a block
    static constexpr std::size_t fanOut = 4; ///< blocks in one of the next level: a cache line's
    enum class Samples {
        All,     ///< every sample that is a number
        Positive ///< those above zero, as a logarithmic scale shows them
    };

    explicit MinMaxPyramid(Samples samples = Samples::All) : m_samples(samples) {}

    /// Builds anew over values[0, count).
    void build(const double* values, std::size_t count);
    /// Takes in the samples that were appended since: values[0, count) are all samples now.
    void extend(const double* values, std::size_t count);
    void clear();

    std::size_t size() const { return m_count; }

    std::size_t bytes() const;

    /// Extremes of values[first, last).
    ValueRange range(const double* values, std::size_t first, std::size_t last) const;
    /// Index of the first sample with a value in [from, size()); size() when there is none.
    std::size_t nextSample(const double* values, std::size_t from) const;
    /// Index of the last sample with a value in [0, end); size() when there is none.
    std::size_t previousSample(const double* values, std::size_t end) const;

    /// Whether a sample counts as a value here.
    bool counts(double value) const {
        return m_samples == Samples::All ? value == value : value > 0;
    }

    /// Asks the processor for the memory that range() will need around a sample.
    void prefetch(const double* values, std::size_t index) const;

  private:
    using Level = std::vector<Extremes, AlignedAllocator<Extremes>>;
    Extremes block(const double* values, std::size_t first, std::size_t last) const;
    void extendLevel(std::size_t level, std::size_t firstChanged);

    Samples m_samples;
    std::size_t m_count = 0;
    std::vector<Level> m_levels; ///< m_levels[k]: blocks of 16 * 4^k samples
};

} // namespace pellam
