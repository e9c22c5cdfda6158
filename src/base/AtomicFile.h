#pragma once

#include "base/Failure.h"

#include <string>
#include <string_view>

namespace pellam {

/// Writes a file as a whole or not at all: the bytes go to a new file beside the target, which
/// takes the target's place on commit(). Until then, and after any failure, the earlier file is as
/// it was. A symbolic link stays; the file that it names is replaced. A target that is no regular
/// file (device, pipe) is written directly.
class AtomicFile {
  public:
    /// Whether the bytes must be on the disk before the earlier file goes.
    enum class Durability { Cached, Flushed };

    AtomicFile() = default;
    /// Discards what was not committed.
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// Starts writing. An existing file keeps its permissions; one that is marked read-only for
    /// everybody is refused. Nothing on success.
    [[nodiscard]] Failure create(const std::string& path);

    [[nodiscard]] bool isOpen() const { return m_file >= 0; }

    /// Writes all of the bytes. After a failure only discard() makes sense.
    [[nodiscard]] Failure write(std::string_view bytes);

    /// Puts the new file in the target's place. A failure discards the new file.
    [[nodiscard]] Failure commit(Durability durability = Durability::Cached);

    /// Drops the new file; harmless when nothing is open.
    void discard();

  private:
    Failure openDirectly();
    Failure openBeside();
    [[nodiscard]] Failure failed(int error);

    std::string m_path;      ///< as the caller named it
    std::string m_target;    ///< with symbolic links followed
    std::string m_temporary; ///< empty when the target itself is written
    int m_file = -1;
};

} // namespace pellam
