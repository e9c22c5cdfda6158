#pragma once

#include "replay/checks/CCrc.h"

namespace pellam {

/// CRC-32 (ISO-HDLC): reflected polynomial 0xEDB88320, inverted at both ends. Check value of
/// "123456789": 0xCBF43926. Signature files carry it.
class CCrc32 : private CCrc {
  public:
    /// The checksum of `length` bytes, continued from a previous result (0 to start).
    [[nodiscard]] std::uint32_t CalculateBlock(const char* data, std::size_t length,
                                               std::uint32_t previous) const;

    /// One step of the register, not inverted. This program's rule: only the low 16 bits of the
    /// result are given.
    [[nodiscard]] std::uint32_t CalculateCharacter(unsigned char byte,
                                                   std::uint32_t previous) const;

  private:
    static const Tables<std::uint32_t> s_tables;
};

} // namespace pellam
