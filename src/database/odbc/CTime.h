#pragma once

#include <cstdint>
#include <string_view>

namespace pellam {

/// A date and time of day as a database holds it, in whole seconds: calendar fields, so that it
/// comes back as it is stored in every time zone, also in an hour that a zone skips or repeats.
struct CTime {
    std::int32_t year = 0; ///< 0 with all others 0: no time (a null)
    std::uint8_t month = 0;
    std::uint8_t day = 0;
    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
    std::uint8_t second = 0;

    /// A null column, or a text that is no time.
    [[nodiscard]] bool isNull() const { return month == 0; }

    friend bool operator==(const CTime&, const CTime&) = default;

    /// Reads "yyyy-MM-dd", "yyyy-MM-dd HH:mm:ss" or that with a fraction or an offset from UTC, as
    /// the clock of the text shows it, with ' ' or 'T' between date and time, blanks around it
    /// passed over. Null for any other text.
    [[nodiscard]] static CTime parse(std::string_view text);
    /// The clock on the wall.
    [[nodiscard]] static CTime now();

    /// Writes "yyyy/MM/dd"; a year takes four digits or as many as it needs. Returns the end; 16
    /// bytes are room enough.
    char* writeDate(char* out) const;
    /// Writes "HH:mm:ss" and returns the end.
    char* writeTime(char* out) const;
};

} // namespace pellam
