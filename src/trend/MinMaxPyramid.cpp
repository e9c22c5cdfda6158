#include "trend/MinMaxPyramid.h"

#include "trend/LargePages.h"

#include <algorithm>
#include <cmath>

namespace pellam {
namespace {

constexpr std::size_t branching = MinMaxPyramid::branching;
constexpr std::size_t fanOut = MinMaxPyramid::fanOut;

// A comparison with NaN is false, so that NaN never gets in.
inline void take(ValueRange& range, double value) {
    range.min = value < range.min ? value : range.min;
    range.max = value > range.max ? value : range.max;
}

inline void take(ValueRange& range, const ValueRange& other) {
    range.min = other.min < range.min ? other.min : range.min;
    range.max = other.max > range.max ? other.max : range.max;
}

// Four chains that don't wait for each other.
template <class Item>
ValueRange extremes(const Item* items, std::size_t count) {
    ValueRange ranges[4];
    std::size_t i = 0;
    for (; i + 4 <= count; i += 4)
        for (std::size_t chain = 0; chain < 4; ++chain)
            take(ranges[chain], items[i + chain]);
    for (; i < count; ++i)
        take(ranges[0], items[i]);
    take(ranges[0], ranges[1]);
    take(ranges[2], ranges[3]);
    take(ranges[0], ranges[2]);
    return ranges[0];
}

constexpr std::size_t blocksOf(std::size_t count, std::size_t size) {
    return (count + size - 1) / size;
}

} // namespace

ValueRange MinMaxPyramid::block(const double* values, std::size_t first, std::size_t last) const {
    if (m_samples == Samples::All) return extremes(values + first, last - first);
    ValueRange range;
    for (std::size_t i = first; i < last; ++i)
        take(range, values[i] > 0 ? values[i] : NAN);
    return range;
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
    if (m_levels[0].empty()) reserveLarge(m_levels[0], blocks);
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
        nodes[i] = extremes(below.data() + first, std::min(fanOut, below.size() - first));
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
    if (last - first < 2 * branching) return block(values, first, last);
    const std::size_t firstBlock = blocksOf(first, branching);
    const std::size_t lastBlock = last / branching;
    ValueRange range = block(values, first, firstBlock * branching);
    take(range, block(values, lastBlock * branching, last));
    first = firstBlock;
    last = lastBlock;
    for (const Level& level : m_levels) {
        if (last - first < 3 * fanOut) {
            take(range, extremes(level.data() + first, last - first));
            return range;
        }
        const std::size_t firstWhole = blocksOf(first, fanOut);
        const std::size_t lastWhole = last / fanOut;
        for (; first < firstWhole * fanOut; ++first)
            take(range, level[first]);
        for (; last > lastWhole * fanOut; --last)
            take(range, level[last - 1]);
        first = firstWhole;
        last = lastWhole;
    }
    return range;
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
    for (std::size_t level = 0; level < std::min<std::size_t>(3, m_levels.size()); ++level) {
        node -= node % fanOut;
        __builtin_prefetch(m_levels[level].data() + node);
        __builtin_prefetch(m_levels[level].data() + node + fanOut - 1);
        node /= fanOut;
    }
}

} // namespace pellam
