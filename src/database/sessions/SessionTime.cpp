#include "database/sessions/SessionTime.h"

#include <array>
#include <chrono>

namespace pellam {

namespace {

// The numbers between the separators; nothing when the text is not made so.
std::optional<std::array<int, 6>> fields(std::string_view text) {
    static constexpr std::string_view kPattern = "0000/00/00,00:00:00";
    if (text.size() != kPattern.size()) return std::nullopt;
    std::array<int, 6> numbers{};
    std::size_t number = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool digit = text[i] >= '0' && text[i] <= '9';
        if (kPattern[i] != '0') {
            if (text[i] != kPattern[i]) return std::nullopt;
            ++number;
        } else if (digit) {
            numbers[number] = numbers[number] * 10 + (text[i] - '0');
        } else {
            return std::nullopt;
        }
    }
    return numbers;
}

} // namespace

std::optional<CTime> sessionTime(std::string_view text) {
    using namespace std::chrono;
    const auto numbers = fields(text);
    if (!numbers) return std::nullopt;
    const auto [y, m, d, hour, minute, second] = *numbers;
    const year_month_day date(year(y), month(static_cast<unsigned>(m)),
                              day(static_cast<unsigned>(d)));
    if (!date.ok() || hour > 23 || minute > 59 || second > 59) return std::nullopt;
    return CTime{y,
                 static_cast<std::uint8_t>(m),
                 static_cast<std::uint8_t>(d),
                 static_cast<std::uint8_t>(hour),
                 static_cast<std::uint8_t>(minute),
                 static_cast<std::uint8_t>(second)};
}

} // namespace pellam
