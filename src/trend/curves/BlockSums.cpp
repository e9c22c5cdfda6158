#include "trend/curves/BlockSums.h"

#include <algorithm>

namespace pellam {
namespace {

void add(BlockSums::Sum& sum, const double* values, std::size_t first, std::size_t last) {
    for (std::size_t i = first; i < last; ++i) {
        const bool valid = values[i] == values[i];
        sum.total += valid ? values[i] : 0.0;
        sum.count += valid;
        sum.notPositive += values[i] <= 0;
    }
}

void add(BlockSums::Sum& sum, const BlockSums::Sum& other) {
    sum.total += other.total;
    sum.count += other.count;
    sum.notPositive += other.notPositive;
}

} // namespace

BlockSums::BlockSums(const double* values, std::size_t count)
    : m_blocks((count + blockSize - 1) / blockSize) {
    for (std::size_t i = 0; i < m_blocks.size(); ++i) {
        add(m_blocks[i], values, i * blockSize, std::min(count, (i + 1) * blockSize));
        add(m_all, m_blocks[i]);
    }
}

BlockSums::Sum BlockSums::over(const double* values, std::size_t first, std::size_t last) const {
    Sum sum;
    const std::size_t firstBlock = (first + blockSize - 1) / blockSize;
    const std::size_t lastBlock = last / blockSize;
    if (firstBlock >= lastBlock) {
        add(sum, values, first, last);
        return sum;
    }
    add(sum, values, first, firstBlock * blockSize);
    for (std::size_t i = firstBlock; i < lastBlock; ++i)
        add(sum, m_blocks[i]);
    add(sum, values, lastBlock * blockSize, last);
    return sum;
}

} // namespace pellam
