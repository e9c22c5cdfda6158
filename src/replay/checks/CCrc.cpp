#include "replay/checks/CCrc.h"

namespace pellam {

std::uint32_t CCrc16::CalculateBlock(const char* data, std::size_t length,
                                     std::uint32_t previous) const {
    static constexpr Tables<std::uint16_t> tables = makeTables<std::uint16_t>(0xA001);
    return advance(tables, data, length, previous & 0xFFFFU);
}

std::uint32_t CCrc16::CalculateCharacter(unsigned char byte, std::uint32_t previous) const {
    const char character = static_cast<char>(byte);
    return CalculateBlock(&character, 1, previous);
}

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
