#include "database/sessions/Session_Schedule_Info.h"

#include <algorithm>

namespace pellam {

Session_Channel_Info* Session_Schedule_Info::find(std::int32_t scheduleIndex,
                                                  const std::string& label) {
    std::size_t first = m_channels.size();
    const auto byIndex = m_byIndex.find(scheduleIndex);
    if (byIndex != m_byIndex.end()) first = byIndex->second;
    if (!m_byLabel.empty()) {
        const auto byLabel = m_byLabel.find(label);
        if (byLabel != m_byLabel.end()) first = std::min(first, byLabel->second);
    }
    return first < m_channels.size() ? &m_channels[first] : nullptr;
}

void Session_Schedule_Info::add(std::int32_t scheduleIndex, const std::string& label) {
    if (scheduleIndex == -1) {
        m_byLabel.emplace(label, m_channels.size());
    } else {
        m_byIndex.emplace(scheduleIndex, m_channels.size());
    }
    m_channels.push_back({scheduleIndex, label});
}

} // namespace pellam
