#pragma once

#include "base/Failure.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace pellam {

/// A regular file open for reading, at any place. The one way in which this program opens the files
/// of its user.
class RegularFile {
  public:
    RegularFile() = default;
    ~RegularFile();
    RegularFile(const RegularFile&) = delete;
    RegularFile& operator=(const RegularFile&) = delete;

    /// Opens a file, after closing the one before; a folder, a device or a pipe is refused. Nothing
    /// on success.
    [[nodiscard]] Failure open(const std::string& path);

    /// Reads up to `size` bytes that stand at `offset`; 0 at the end or after an error.
    std::size_t read(char* out, std::size_t size, std::int64_t offset);

    /// Size in bytes when it was opened.
    [[nodiscard]] std::int64_t size() const { return m_size; }

    /// The last read error; none at a normal end.
    [[nodiscard]] const Failure& error() const { return m_error; }

    void clearError() { m_error = {}; }

  private:
    std::string m_path;
    Failure m_error;
    std::int64_t m_size = 0;
    int m_file = -1;
};

} // namespace pellam
