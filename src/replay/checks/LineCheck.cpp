#include "replay/checks/LineCheck.h"

#include <charconv>
#include <cstdint>
#include <cstring>

namespace pellam {

bool LineCheck::isGood(std::string_view line) const {
    const void* const found = ::memrchr(line.data(), ';', line.size());
    if (!found) return true;
    const auto at = static_cast<std::size_t>(static_cast<const char*>(found) - line.data());
    std::string_view suffix = line.substr(at + 1);
    if (suffix.empty() || suffix.find(',') != std::string_view::npos) return true;
    const std::size_t first = suffix.find_first_not_of(' ');
    if (first == std::string_view::npos) return true;
    suffix = suffix.substr(first, suffix.find_last_not_of(' ') + 1 - first);
    const char* const end = suffix.data() + suffix.size();
    std::uint64_t expected = 0;
    const auto [stop, error] = std::from_chars(suffix.data(), end, expected, 16);
    if (error != std::errc() || stop != end) return false;
    return expected == m_crc.CalculateBlock(line.data(), at + 1, 0);
}

} // namespace pellam
