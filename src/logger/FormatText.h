#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace pellam {

/// The printf-style format that a channel gives its integers and texts. It comes from a file, so
/// that it is taken apart here and never reaches the C library. It is honoured when it has at most
/// one '%' and that starts a conversion of the value's kind: flags "-+ #0", width and precision up
/// to 64, then one of "diuxXo" (integers) or "s" (texts). Any other format counts as empty.
class FormatText {
  public:
    /// Longest format; what follows is not looked at.
    static constexpr std::size_t kMaximumSize = 16;
    /// Room that a formatted value needs beside the value's own characters.
    static constexpr std::size_t kRoom = 256;

    /// The empty format.
    FormatText() = default;
    /// Takes the text up to its first NUL.
    explicit FormatText(std::string_view text);

    /// Writes an integer, as with "%d" when the format does not fit it; returns the end.
    char* writeInteger(std::int32_t value, char* out) const;

    /// Whether the format fits texts and is not empty.
    [[nodiscard]] bool formatsTexts() const;

    /// Writes a text; only when formatsTexts(). Returns the end.
    char* writeText(std::string_view value, char* out) const;

  private:
    enum Flag : std::uint8_t { Left = 1, Plus = 2, Space = 4, Alternate = 8, Zero = 16 };

    [[nodiscard]] bool parseConversion(std::string_view conversion);

    [[nodiscard]] bool has(Flag flag) const { return (m_flags & flag) != 0; }

    [[nodiscard]] std::string_view before() const { return {m_text.data(), m_before}; }

    [[nodiscard]] std::string_view after() const;
    [[nodiscard]] std::string_view signOf(std::int32_t value, bool isZero) const;
    char* writeField(std::string_view sign, std::size_t zeros, std::string_view body,
                     char* out) const;

    std::array<char, kMaximumSize> m_text{};
    std::uint8_t m_size = 0;
    std::uint8_t m_before = 0; ///< characters before the conversion
    std::uint8_t m_after = 0;  ///< where the text behind the conversion begins
    std::uint8_t m_flags = 0;
    std::uint8_t m_width = 0;
    std::int8_t m_precision = -1; ///< negative: none
    char m_conversion = '\0';     ///< NUL: the text stands for every value
};

} // namespace pellam
