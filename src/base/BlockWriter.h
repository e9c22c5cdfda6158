#pragma once

#include "base/Failure.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pellam {

class ProgressSink;

/// Gathers bytes in a block and hands it to an open file whenever it is full. The first failure
/// stays: whatever is written after it goes nowhere, so that it needs to be asked for only once in
/// a while and at the end.
class BlockWriter {
  public:
    /// Bytes that room() gives where nothing is asked.
    static constexpr std::size_t kRoom = 2048;

    /// Where the next bytes go: at least `size` of them. Follow with advance().
    char* room(std::size_t size = kRoom) {
        if (m_block.size() - m_used < size) makeRoom(size);
        return m_block.data() + m_used;
    }

    /// Takes what was written from room() up to `end`.
    void advance(const char* end) { m_used = static_cast<std::size_t>(end - m_block.data()); }

    void append(std::string_view bytes);

    [[nodiscard]] bool failed() const { return static_cast<bool>(m_failure); }

    /// The first failure; none while all went well.
    [[nodiscard]] const Failure& failure() const { return m_failure; }

  protected:
    BlockWriter() = default;
    ~BlockWriter() = default;
    BlockWriter(const BlockWriter&) = delete;
    BlockWriter& operator=(const BlockWriter&) = delete;

    /// Begins with an open file, which stays the caller's to close; `path` is its name for
    /// failures. While a pipe takes nothing, `waiting` (which may be null) is asked whether to go
    /// on; without it the wait is short.
    void start(int file, std::string path, ProgressSink* waiting = nullptr);
    /// Hands over what is gathered.
    void flush();
    /// Keeps a failure unless there is one already.
    void fail(Failure failure);

  private:
    void makeRoom(std::size_t size);
    void write(std::string_view bytes);
    bool waitForReader(int& turns);

    std::string m_path;
    Failure m_failure;
    std::vector<char> m_block;
    std::size_t m_used = 0;
    ProgressSink* m_waiting = nullptr;
    int m_file = -1;
};

} // namespace pellam
