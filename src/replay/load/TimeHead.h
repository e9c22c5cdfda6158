#pragma once

#include "base/FieldScanner.h"
#include "replay/time/LoggerClock.h"

#include <string_view>

namespace pellam {

/// Reads the time that a reading or alarm line has behind its identifier, and the name in quotes
/// that may stand before it.
class TimeHead {
  public:
    /// `separator` stands before the fraction of a second in the texts that read() gives.
    TimeHead(const TimeCorrections& corrections, char separator)
        : m_clock(corrections),
          m_separator(separator) {}

    /// Takes the fields off; false when one is missing. `time` is valid until the next call, `job`
    /// has its quotes or is empty.
    bool read(FieldScanner& fields, std::string_view& job, std::string_view& time);

    /// Turns further numeric times of the line into texts.
    LoggerClock& clock() { return m_clock; }

  private:
    std::string_view dateForm(std::string_view date, std::string_view time,
                              std::string_view fraction);

    LoggerClock m_clock;
    LoggerClock::Buffer m_buffer{};
    char m_separator;
};

} // namespace pellam
