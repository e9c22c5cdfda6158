#include "logger/TaggedClock.h"

#include "base/CalendarText.h"
#include "base/LeadingNumber.h"

#include <algorithm>
#include <array>

namespace pellam {

namespace {

using namespace std::chrono;

constexpr sys_seconds kFirst = sys_days(year(1) / January / 1);
constexpr sys_seconds kLast = sys_days(year(10000) / January / 1) - seconds(1);

int numberAt(std::string_view line, std::size_t column) {
    constexpr int kMost = 10'000'000;
    if (column >= line.size()) return 0;
    return std::clamp(int{leadingInteger(line.substr(column))}, -kMost, kMost);
}

seconds timeAt(std::string_view line, std::size_t column) {
    return hours(numberAt(line, column)) + minutes(numberAt(line, column + 3)) +
           seconds(numberAt(line, column + 6));
}

} // namespace

void TaggedClock::setStart(std::string_view line) {
    const int startYear = std::clamp(numberAt(line, 0) + 2000, 1, 9999);
    const int startMonth = std::clamp(numberAt(line, 3), 1, 100'000);
    const int startDay = std::max(numberAt(line, 6), 1);
    const year_month first = year(startYear) / January + months(startMonth - 1);
    m_now = sys_days(first / 1) + days(startDay - 1) + timeAt(line, 9);
    clamp();
}

void TaggedClock::setInterval(std::string_view line) {
    m_interval = days(numberAt(line, 0)) + timeAt(line, 8);
}

void TaggedClock::advance() {
    m_now += m_interval;
    clamp();
}

void TaggedClock::clamp() {
    m_now = std::clamp(m_now, kFirst, kLast);
}

void TaggedClock::appendTo(std::string& text) const {
    std::array<char, kCalendarTextRoom> buffer;
    const char* const end = writeDateTime(buffer.data(), m_now.time_since_epoch().count());
    text.append(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
}

} // namespace pellam
