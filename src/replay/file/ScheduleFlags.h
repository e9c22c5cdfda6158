#pragma once

#include <array>
#include <string>
#include <string_view>

namespace pellam {

/// Which schedules occur in the data lines: entries 0 to 10 are 'A' to 'K', 11 is 'X', 15 is 'V';
/// 12, 13, 14 and 16 are never set.
class ScheduleFlags {
  public:
    static constexpr std::size_t kCount = 17;

    /// Sets the flag of the schedule that a data line's status names; a line without a status or
    /// with another letter sets nothing.
    void addLine(std::string_view line);

    [[nodiscard]] bool at(std::size_t index) const { return m_flags[index]; }

    /// Whether a data line names the schedule 'S', which only maps of format 14 have.
    [[nodiscard]] bool hasScheduleS() const { return m_scheduleS; }

    /// The schedule letter of an entry.
    static char letterOf(std::size_t index);

  private:
    std::array<bool, kCount> m_flags{};
    bool m_scheduleS = false;
};

/// Reduces a data map to the schedules that are set, each once, in whatever order the map has them.
/// False when the map has no schedule section:
/// it is then unchanged. A section whose '<' is never closed ends with the text.
bool stripDataMap(std::string& map, const ScheduleFlags& flags);

} // namespace pellam
