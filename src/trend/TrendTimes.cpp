#include "trend/TrendTimes.h"

#include <algorithm>
#include <cmath>

namespace pellam {
namespace {

// Asks for the times around a later border, which lies about as far on as an earlier one lies back.
void fetchAhead(const std::vector<double>& times, const std::vector<std::size_t>& starts) {
    constexpr std::size_t ahead = 8;
    if (starts.size() <= ahead) return;
    const std::size_t place = starts.back() + (starts.back() - starts[starts.size() - 1 - ahead]);
    if (place < times.size()) __builtin_prefetch(times.data() + place);
}

} // namespace

std::shared_ptr<const TrendTimes> TrendTimes::create(std::vector<double>&& times) {
    if (!times.empty() && !(std::isfinite(times.front()) && std::isfinite(times.back())))
        return nullptr;
    bool increasing = true; // without a way out of the loop it is done several times at once
    for (std::size_t i = 1; i < times.size(); ++i)
        increasing &= times[i - 1] < times[i];
    if (!increasing) return nullptr;
    auto result = std::make_shared<TrendTimes>();
    result->m_times = std::move(times);
    return result;
}

bool TrendTimes::append(double time) {
    if (!std::isfinite(time) || (!m_times.empty() && !(time > m_times.back()))) return false;
    m_times.push_back(time);
    return true;
}

std::size_t TrendTimes::lowerBound(double time) const {
    return static_cast<std::size_t>(std::lower_bound(m_times.begin(), m_times.end(), time) -
                                    m_times.begin());
}

std::size_t TrendTimes::upperBound(double time) const {
    return static_cast<std::size_t>(std::upper_bound(m_times.begin(), m_times.end(), time) -
                                    m_times.begin());
}

std::vector<std::size_t> TrendTimes::columnStarts(double from, double to, int columns) const {
    const std::size_t count = m_times.size();
    std::vector<std::size_t> starts;
    starts.reserve(static_cast<std::size_t>(columns) + 1);
    const double width = (to - from) / columns;
    std::size_t found = lowerBound(from);
    std::size_t step = 1;
    starts.push_back(found);
    for (int column = 1; column <= columns; ++column) {
        // Compared as spans from the first border: moments are rounded to a quarter of a
        // microsecond, which may be several columns.
        const double border = width * column;
        const auto before = [&](double time) { return time - from < border; };
        // Logged times are nearly regular: the next border lies about as far on as the last one
        // did.
        std::size_t low = found;
        std::size_t high = std::min(count, found + step);
        std::size_t reach = 1;
        if (high > low && !before(m_times[high - 1])) {
            while (high - low > reach && !before(m_times[high - 1 - reach]))
                high -= reach, reach *= 2;
            if (high - low > reach) low = high - reach;
        } else {
            low = high;
            while (high < count && before(m_times[high])) {
                low = high + 1;
                high = std::min(count, high + reach);
                reach *= 2;
            }
        }
        const auto begin = m_times.begin();
        const auto next = static_cast<std::size_t>(
            std::partition_point(begin + static_cast<std::ptrdiff_t>(low),
                                 begin + static_cast<std::ptrdiff_t>(high), before) -
            begin);
        step = std::max<std::size_t>(1, next - found);
        found = next;
        starts.push_back(found);
        fetchAhead(m_times, starts);
    }
    starts.back() = upperBound(to);
    return starts;
}

} // namespace pellam
