#pragma once

#include "replay/checks/CCrc.h"

namespace pellam {

/// CRC-16/ARC: reflected polynomial 0xA001, start 0, no inversion. Check value of "123456789":
/// 0xBB3D. Replay lines carry it.
class CCrc16 : private CCrc {
  public:
    /// The checksum of `length` bytes, continued from a previous result (0 to start).
    [[nodiscard]] std::uint32_t CalculateBlock(const char* data, std::size_t length,
                                               std::uint32_t previous) const;

    /// The checksum continued by one byte; its low 16 bits.
    [[nodiscard]] std::uint32_t CalculateCharacter(unsigned char byte,
                                                   std::uint32_t previous) const;
};

} // namespace pellam
