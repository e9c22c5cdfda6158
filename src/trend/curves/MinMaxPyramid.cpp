#include "trend/curves/MinMaxPyramid.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace pellam {
namespace {

constexpr std::size_t branching = MinMaxPyramid::branching;
constexpr std::size_t fanOut = MinMaxPyramid::fanOut;

using Pair = Extremes::Pair;

constexpr double infinity = std::numeric_limits<double>::infinity();

Pair pairAt(const double* values) {
    Pair pair;
    std::memcpy(&pair, values, sizeof pair);
    return pair;
}

// A comparison with NaN is false, so that NaN never gets in.
Pair lesser(Pair value, Pair kept) {
    return value < kept ? value : kept;
}

Pair greater(Pair value, Pair kept) {
    return value > kept ? value : kept;
}

template <bool positive>
Extremes extremesOf(const double* values, std::size_t count) {
    // Two chains of each that don't wait for each other.
    Pair least[2] = {{infinity, infinity}, {infinity, infinity}};
    Pair most[2] = {-least[0], -least[0]};
    const auto take = [&](Pair pair, std::size_t chain) {
        if constexpr (positive) pair = pair > 0 ? pair : Pair{NAN, NAN};
        least[chain] = lesser(pair, least[chain]);
        most[chain] = greater(pair, most[chain]);
    };
    std::size_t i = 0;
    for (; i + 4 <= count; i += 4) {
        take(pairAt(values + i), 0);
        take(pairAt(values + i + 2), 1);
    }
    for (; i < count; ++i)
        take(Pair{values[i], values[i]}, 0);
    const Pair min = lesser(least[1], least[0]);
    const Pair max = greater(most[1], most[0]);
    return Extremes({std::min(min[0], min[1]), std::max(max[0], max[1])});
}

// Extremes of at most `size` nodes, not none. To take one twice does no harm, and spares a branch
// that the processor can't foresee.
template <std::size_t size>
Extremes few(const Extremes* nodes, std::size_t first, std::size_t last) {
    Extremes chains[2];
    for (std::size_t i = 0; i < size; ++i)
        chains[i % 2].take(nodes[std::min(first + i, last - 1)]);
    chains[0].take(chains[1]);
    return chains[0];
}

constexpr std::size_t blocksOf(std::size_t count, std::size_t size) {
    return (count + size - 1) / size;
}

} // namespace

Extremes MinMaxPyramid::block(const double* values, std::size_t first, std::size_t last) const {
    return m_samples == Samples::All ? extremesOf<false>(values + first, last - first)
                                     : extremesOf<true>(values + first, last - first);
}

void MinMaxPyramid::build(const double* values, std::size_t count) {
    clear();
    extend(values, count);
}

void MinMaxPyramid::clear() {
    m_count = 0;
    m_levels.clear();
}

void MinMaxPyramid::extend(const double* values, std::size_t count) {
    const std::size_t firstChanged = m_count / branching;
    m_count = count;
    if (count == 0) return;
    if (m_levels.empty()) m_levels.emplace_back();
    const std::size_t blocks = blocksOf(count, branching);
    m_levels[0].resize(blocks);
    for (std::size_t i = firstChanged; i < blocks; ++i) {
        const std::size_t first = i * branching;
        m_levels[0][i] = block(values, first, std::min(count, first + branching));
    }
    std::size_t changed = firstChanged / fanOut;
    for (std::size_t level = 1; m_levels[level - 1].size() > 1; ++level, changed /= fanOut)
        extendLevel(level, changed);
}

void MinMaxPyramid::extendLevel(std::size_t level, std::size_t firstChanged) {
    if (m_levels.size() <= level) m_levels.emplace_back();
    const Level& below = m_levels[level - 1];
    Level& nodes = m_levels[level];
    nodes.resize(blocksOf(below.size(), fanOut));
    for (std::size_t i = firstChanged; i < nodes.size(); ++i) {
        const std::size_t first = i * fanOut;
        nodes[i] = few<fanOut>(below.data(), first, std::min(first + fanOut, below.size()));
    }
}

std::size_t MinMaxPyramid::bytes() const {
    std::size_t sum = 0;
    for (const Level& level : m_levels)
        sum += level.capacity() * sizeof(ValueRange);
    return sum;
}

ValueRange MinMaxPyramid::range(const double* values, std::size_t first, std::size_t last) const {
    last = std::min(last, m_count);
    if (first >= last) return {};
    if (last - first <= 2 * branching) return block(values, first, last).range();
    // Whole blocks from either end on, whatever number of samples there is up to the next border.
    Extremes result = block(values, first, first + branching);
    result.take(block(values, last - branching, last));
    first = blocksOf(first, branching);
    last = last / branching;
    for (const Level& level : m_levels) {
        constexpr std::size_t most = 3 * fanOut;
        if (last - first <= most) {
            if (first < last) result.take(few<most>(level.data(), first, last));
            break;
        }
        const std::size_t head = first / fanOut;
        const std::size_t tail = (last - 1) / fanOut;
        result.take(few<fanOut>(level.data(), first, (head + 1) * fanOut));
        result.take(few<fanOut>(level.data(), tail * fanOut, last));
        first = head + 1;
        last = tail;
    }
    return result.range();
}

std::size_t MinMaxPyramid::nextSample(const double* values, std::size_t from) const {
    for (; from < m_count && from % branching != 0; ++from)
        if (counts(values[from])) return from;
    if (from >= m_count) return m_count;
    if (counts(values[from])) return from;
    std::size_t node = from / branching;
    std::size_t level = 0;
    for (; level < m_levels.size(); ++level) { // up, past blocks without a value
        const Level& nodes = m_levels[level];
        const bool top = level + 1 == m_levels.size();
        while (node < nodes.size() && nodes[node].empty()) {
            ++node;
            if (!top && node % fanOut == 0) break;
        }
        if (node >= nodes.size()) return m_count;
        if (!nodes[node].empty()) break;
        node /= fanOut;
    }
    if (level == m_levels.size()) return m_count;
    for (; level > 0; --level) // and down to the first in the block found
        for (node *= fanOut; m_levels[level - 1][node].empty();)
            ++node;
    for (from = node * branching; !counts(values[from]);)
        ++from;
    return from;
}

std::size_t MinMaxPyramid::previousSample(const double* values, std::size_t end) const {
    end = std::min(end, m_count);
    for (; end % branching != 0; --end)
        if (counts(values[end - 1])) return end - 1;
    if (end == 0) return m_count;
    if (counts(values[end - 1])) return end - 1;
    std::size_t nodeEnd = end / branching;
    std::size_t level = 0;
    for (; level < m_levels.size(); ++level) {
        const Level& nodes = m_levels[level];
        const bool top = level + 1 == m_levels.size();
        while (nodeEnd > 0 && nodes[nodeEnd - 1].empty()) {
            --nodeEnd;
            if (!top && nodeEnd % fanOut == 0) break;
        }
        if (nodeEnd == 0) return m_count;
        if (!nodes[nodeEnd - 1].empty()) break;
        nodeEnd /= fanOut;
    }
    if (level == m_levels.size()) return m_count;
    for (; level > 0; --level) {
        nodeEnd = std::min(nodeEnd * fanOut, m_levels[level - 1].size());
        while (m_levels[level - 1][nodeEnd - 1].empty())
            --nodeEnd;
    }
    for (end = std::min(nodeEnd * branching, m_count); !counts(values[end - 1]);)
        --end;
    return end - 1;
}

void MinMaxPyramid::prefetch(const double* values, std::size_t index) const {
    if (index >= m_count) return;
    const std::size_t start = index / branching * branching;
    __builtin_prefetch(values + start);
    __builtin_prefetch(values + start + branching / 2);
    __builtin_prefetch(values + start + branching - 1);
    std::size_t node = start / branching;
    for (const Level& level : m_levels) {
        if (level.size() < 64) break;
        __builtin_prefetch(level.data() + node - node % fanOut);
        node /= fanOut;
    }
}

} // namespace pellam
