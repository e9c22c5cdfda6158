#include "trend/curves/TrendTimes.h"

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

// The first time from an index on that is not before a border, looked for around a guess: logged
// times are nearly regular, and the next border lies about as far on as the last one did.
template <class Before>
std::size_t firstNotBefore(const std::vector<double>& times, std::size_t from, std::size_t guess,
                           Before before) {
    std::size_t low = from;
    std::size_t high = std::min(times.size(), guess);
    std::size_t reach = 1;
    if (high > low && !before(times[high - 1])) {
        while (high - low > reach && !before(times[high - 1 - reach]))
            high -= reach, reach *= 2;
        if (high - low > reach) low = high - reach;
    } else {
        low = high;
        while (high < times.size() && before(times[high])) {
            low = high + 1;
            high = std::min(times.size(), high + reach);
            reach *= 2;
        }
    }
    const auto begin = times.begin();
    return static_cast<std::size_t>(std::partition_point(begin + static_cast<std::ptrdiff_t>(low),
                                                         begin + static_cast<std::ptrdiff_t>(high),
                                                         before) -
                                    begin);
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
        const std::size_t next = firstNotBefore(m_times, found, found + step,
                                                [&](double time) { return time - from < border; });
        step = std::max<std::size_t>(1, next - found);
        found = next;
        starts.push_back(found);
        fetchAhead(m_times, starts);
    }
    starts.back() = upperBound(to);
    return starts;
}

} // namespace pellam
