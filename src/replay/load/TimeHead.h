#pragma once

#include "base/FieldScanner.h"
#include "replay/time/LoggerClock.h"

#include <string>
#include <string_view>

namespace pellam {

/// Reads the time that a reading or alarm line has behind its identifier, and the name in quotes
/// that may stand before it.
class TimeHead {
  public:
    /// `separator` stands before the fraction of a second in the texts that read() gives.
    explicit TimeHead(char separator) : m_separator(separator) {}

    /// Takes the fields off; false when one is missing. `time` is valid until the next call; a
    /// field that is neither number nor date is the time as it stands. `job` has its quotes or is
    /// empty.
    bool read(FieldScanner& fields, std::string_view& job, std::string_view& time);

    /// Whether the last time had a fraction that its text leaves out: digits without a point.
    [[nodiscard]] bool leftOut() const { return m_leftOut; }

  private:
    std::string_view dateForm(std::string_view date, std::string_view time,
                              std::string_view fraction);

    LoggerClock::Buffer m_buffer{};
    std::string m_dateForm; ///< the text that dateForm() gave, no smaller than the longest one
    char m_separator;
    bool m_leftOut = false;
};

} // namespace pellam
