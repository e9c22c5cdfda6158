#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace pellam {

/// A file in memory with a path that any reader can open.
class MemoryFile {
  public:
    MemoryFile(const std::uint8_t* bytes, std::size_t size) : m_fd(::memfd_create("fuzz", 0)) {
        if (size > 0 && ::write(m_fd, bytes, size) < 0) __builtin_trap();
    }

    ~MemoryFile() { ::close(m_fd); }

    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    [[nodiscard]] std::string path() const { return "/proc/self/fd/" + std::to_string(m_fd); }

  private:
    int m_fd;
};

} // namespace pellam
