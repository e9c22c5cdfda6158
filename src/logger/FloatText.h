#pragma once

#include <cstddef>
#include <cstdint>

namespace pellam {

/// Texts of 32-bit IEEE floats with five decimals.
struct FloatText {
    /// Room that any text needs.
    static constexpr std::size_t kRoom = 64;

    /// Writes the float with these bits as the C library's "%5.5f" does in the C locale (correctly
    /// rounded, halves to even; "  inf" and "  nan" with their signs), with `decimal` for its
    /// point. Returns the end.
    static char* write(std::uint32_t bits, char decimal, char* out);
};

} // namespace pellam
