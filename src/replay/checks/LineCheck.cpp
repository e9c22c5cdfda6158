#include "replay/checks/LineCheck.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <optional>

namespace pellam {

namespace {

// The number in hexadecimal with blanks around it; nothing for any other text.
std::optional<std::uint64_t> readSuffix(std::string_view suffix) {
    const std::size_t first = suffix.find_first_not_of(' ');
    if (first == std::string_view::npos) return std::nullopt;
    suffix = suffix.substr(first, suffix.find_last_not_of(' ') + 1 - first);
    const char* const end = suffix.data() + suffix.size();
    std::uint64_t number = 0;
    const auto [stop, error] = std::from_chars(suffix.data(), end, number, 16);
    if (error != std::errc() || stop != end) return std::nullopt;
    return number;
}

// Whether the text up to `at` leaves a double quote open that what follows closes.
bool isQuoted(std::string_view line, std::size_t at) {
    return line.find('"', at) != std::string_view::npos &&
           std::count(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(at), '"') % 2 == 1;
}

} // namespace

bool LineCheck::isGood(std::string_view line) const {
    const void* const found = ::memrchr(line.data(), ';', line.size());
    if (!found) return true;
    const auto at = static_cast<std::size_t>(static_cast<const char*>(found) - line.data());
    const std::string_view suffix = line.substr(at + 1);
    if (suffix.find_first_not_of(' ') == std::string_view::npos) return true;
    if (suffix.find(',') != std::string_view::npos || isQuoted(line, at)) return true;
    return readSuffix(suffix) == m_crc.CalculateBlock(line.data(), at + 1, 0);
}

bool LineCheck::isChecksum(std::string_view suffix) {
    return readSuffix(suffix).has_value();
}

} // namespace pellam
