#pragma once

#include "base/AtomicFile.h"
#include "base/Failure.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// The text file that a conversion writes: gathered in a block, and in its place only once whole.
class DumpOutput {
  public:
    /// Bytes that room() always gives.
    static constexpr std::size_t kRoom = 2048;

    /// Starts the file. Nothing on success.
    [[nodiscard]] Failure create(const std::string& path);

    /// Where the next text goes: at least kRoom bytes. Follow with advance().
    char* room() {
        if (m_block.size() - m_used < kRoom) flush();
        return m_block.data() + m_used;
    }

    /// Takes what was written from room() up to `end`.
    void advance(const char* end) { m_used = static_cast<std::size_t>(end - m_block.data()); }

    void append(std::string_view text);

    /// Whether writing has failed; what is written then goes nowhere.
    [[nodiscard]] bool failed() const { return static_cast<bool>(m_failure); }

    /// Puts the file in its place. The first failure of all writing, nothing on success.
    [[nodiscard]] Failure commit();

    /// Drops what was written.
    void discard() { m_file.discard(); }

  private:
    void flush();

    AtomicFile m_file;
    Failure m_failure;
    std::vector<char> m_block;
    std::size_t m_used = 0;
};

} // namespace pellam
