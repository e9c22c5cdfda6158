#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace pellam {

/// The clock of a tagged download: fixed columns, no time zone. It stays within the years 1 to
/// 9999.
class TaggedClock {
  public:
    /// Sets the clock from "yy/MM/dd HH:mm:ss" (years from 2000). A month or day below 1 is 1;
    /// missing parts are 0; a date that does not exist counts on from the last one that does.
    void setStart(std::string_view line);
    /// Sets the interval from days at column 0 and "HH:mm:ss" at column 8.
    void setInterval(std::string_view line);

    void advance();
    /// Appends "yyyy/MM/dd HH:mm:ss".
    void appendTo(std::string& text) const;

  private:
    void clamp();

    std::chrono::sys_seconds m_now{};
    std::chrono::seconds m_interval{};
};

} // namespace pellam
