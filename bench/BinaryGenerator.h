#pragma once

#include <cstdint>
#include <string>

namespace pellam {

/// Makes binary data files: one reading a second from 2020-01-01 in a ring that has gone round, a
/// random walk of floats for every channel. The same request gives the same bytes.
struct BinaryGenerator {
    std::uint32_t rows = 0;
    int channels = 0;
    std::uint64_t seed = 0;

    /// Writes the file; false with errno set when it can not be written.
    [[nodiscard]] bool write(const std::string& path) const;
};

} // namespace pellam
