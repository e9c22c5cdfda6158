#pragma once

#include "replay/checks/CCrc.h"

#include <string_view>

namespace pellam {

/// The check that a data line carries behind its last ';': the CRC-16 of the line up to and
/// including that ';', in hexadecimal.
class LineCheck {
  public:
    /// True when the suffix is right and when there is none: no ';', nothing behind it, a ','
    /// behind it, or the last ';' stands in a quoted text. A suffix that is no hexadecimal number
    /// is wrong. `line` has no line end.
    [[nodiscard]] bool isGood(std::string_view line) const;

    /// Whether a suffix, with blanks around it, is a hexadecimal number.
    [[nodiscard]] static bool isChecksum(std::string_view suffix);

  private:
    CCrc16 m_crc;
};

} // namespace pellam
