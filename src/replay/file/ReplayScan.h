#pragma once

#include "replay/file/ScheduleFlags.h"

#include <cstdint>
#include <string_view>

namespace pellam {

/// Finds the first data line of a replay file from the lines before it.
class DataStart {
  public:
    /// Takes the next line; true when the data starts behind it.
    bool addLine(std::string_view line);

    [[nodiscard]] bool found() const { return m_found; }

    /// Lines before the first data line; 0 when no mark was found.
    [[nodiscard]] std::int32_t headerLines() const { return m_found ? m_lines : 0; }

  private:
    std::int32_t m_lines = 0;
    bool m_mapTag = false;
    bool m_found = false;
};

/// Finds out whether a replay file says that it is enciphered.
class CryptSearch {
  public:
    /// Takes the next line; true when the answer is settled.
    bool addLine(std::string_view line);

    [[nodiscard]] int state() const { return m_state; }

  private:
    int m_state = 0;
    bool m_settled = false;
};

/// Counts the data lines and notes their schedules.
struct DataFacts {
    std::int32_t lines = 0;
    ScheduleFlags schedules;

    void addLine(std::string_view line);
};

} // namespace pellam
