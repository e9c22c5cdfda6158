#pragma once

#include <cstddef>
#include <vector>

namespace pellam {

/// Sums and counts of samples over blocks, for means over long stretches. NaN samples are no value.
class BlockSums {
  public:
    struct Sum {
        double total = 0;
        std::size_t count = 0;       ///< samples that have a value
        std::size_t notPositive = 0; ///< of these, zero or below
    };

    BlockSums(const double* values, std::size_t count);
    /// Over values[first, last) of the array that the sums were built from.
    Sum over(const double* values, std::size_t first, std::size_t last) const;

    Sum all() const { return m_all; }

  private:
    static constexpr std::size_t blockSize = 256;
    std::vector<Sum> m_blocks;
    Sum m_all;
};

} // namespace pellam
