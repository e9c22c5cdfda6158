#include "trend/curves/ZoomHistory.h"

namespace pellam {

namespace {

TrendRanges step(std::vector<TrendRanges>& from, std::vector<TrendRanges>& to,
                 const TrendRanges& now) {
    const TrendRanges there = from.back();
    from.pop_back();
    to.push_back(now);
    return there;
}

} // namespace

void ZoomHistory::leave(const TrendRanges& ranges) {
    m_forward.clear();
    if (!m_back.empty() && m_back.back() == ranges) return;
    if (m_back.size() >= kSteps) m_back.erase(m_back.begin());
    m_back.push_back(ranges);
}

TrendRanges ZoomHistory::back(const TrendRanges& now) {
    return step(m_back, m_forward, now);
}

TrendRanges ZoomHistory::forward(const TrendRanges& now) {
    return step(m_forward, m_back, now);
}

void ZoomHistory::clear() {
    m_back.clear();
    m_forward.clear();
}

} // namespace pellam
