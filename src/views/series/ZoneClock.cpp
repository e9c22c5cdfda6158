#include "views/series/ZoneClock.h"

#include <algorithm>
#include <ctime>

namespace pellam {

namespace {

constexpr std::int64_t kWindow = 900;
constexpr std::int64_t kDay = 86'400;

std::int64_t offsetAt(std::int64_t moment) {
    const std::time_t time = moment;
    std::tm fields{};
    return ::localtime_r(&time, &fields) ? fields.tm_gmtoff : 0;
}

/// The zone's offset without daylight saving: the smallest within half a year.
std::int64_t winterOffset(std::int64_t near) {
    std::int64_t offset = offsetAt(near);
    for (int month = -6; month <= 6; ++month)
        offset = std::min(offset, offsetAt(near + month * 30 * kDay));
    return offset;
}

std::int64_t windowOf(std::int64_t local) {
    const std::int64_t rest = local % kWindow;
    return local - (rest < 0 ? rest + kWindow : rest);
}

} // namespace

ZoneClock::Moments ZoneClock::moments(std::int64_t local) {
    const std::int64_t window = windowOf(local);
    if (window != m_windowStart) enterWindow(window);
    return {local - m_before, local - m_after};
}

std::optional<std::int64_t> ZoneClock::offset(std::int64_t near) {
    if (m_choice == ClockChoice::Utc) return 0;
    if (m_choice == ClockChoice::NoDaylightSaving && !m_offset) m_offset = winterOffset(near);
    return m_offset;
}

void ZoneClock::enterWindow(std::int64_t start) {
    m_windowStart = start;
    if (const auto fixed = offset(start)) {
        m_before = m_after = *fixed;
        return;
    }
    // No zone is a day from UTC, so these two lie safely before and after every jump near `start`.
    const std::int64_t before = offsetAt(start - kDay);
    const std::int64_t after = offsetAt(start + kDay);
    const bool beforeHolds = offsetAt(start - before) == before;
    const bool afterHolds = offsetAt(start - after) == after;
    m_before = beforeHolds || !afterHolds ? before : after;
    m_after = afterHolds ? after : m_before;
    m_sawSkipped = m_sawSkipped || (!beforeHolds && !afterHolds);
}

} // namespace pellam
