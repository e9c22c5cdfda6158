#pragma once

#include <cstddef>

namespace pellam {

/// How values stand in the replay text of a session.
struct SessionValueText {
    /// Room that any text needs.
    static constexpr std::size_t kRoom = 320;

    /// Writes a value as the C library's "%#.f" does in the C locale: the nearest whole number,
    /// halves to the even one, always with its point; "inf" and "nan" with their signs. Returns
    /// the end.
    static char* writeWhole(double value, char* out);

    /// Writes an automation date (days since 1899-12-30, the time of day counting forward also
    /// before that) as "yyyy/MM/dd"; a value outside the years 100 to 9999 as writeWhole does.
    static char* writeDate(double days, char* out);

    /// Writes its time of day as "HH:mm:ss", likewise. Fractions of a second are cut.
    static char* writeTime(double days, char* out);
};

} // namespace pellam
