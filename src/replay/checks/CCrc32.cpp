#include "replay/checks/CCrc32.h"

namespace pellam {

constinit const CCrc::Tables<std::uint32_t> CCrc32::s_tables =
    makeTables<std::uint32_t>(0xEDB88320U);

std::uint32_t CCrc32::CalculateBlock(const char* data, std::size_t length,
                                     std::uint32_t previous) const {
    return ~advance(s_tables, data, length, ~previous);
}

std::uint32_t CCrc32::CalculateCharacter(unsigned char byte, std::uint32_t previous) const {
    return step(s_tables, byte, previous) & 0xFFFFU;
}

} // namespace pellam
