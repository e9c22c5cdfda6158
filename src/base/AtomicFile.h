#pragma once

#include "base/BlockWriter.h"

#include <string>

namespace pellam {

/// Writes a file as a whole or not at all: the bytes go to a new file beside the target, which
/// takes the target's place on commit(). Until then, and after any failure, the earlier file is as
/// it was. A symbolic link stays; the file that it names is replaced. A target that is no regular
/// file (device, pipe), and one that stands for an open file of a process such as /dev/stdout, is
/// written directly.
class AtomicFile : public BlockWriter {
  public:
    /// Whether the bytes must be on the disk before the earlier file goes.
    enum class Durability { Cached, Flushed };

    AtomicFile() = default;
    /// Discards what was not committed.
    ~AtomicFile();

    /// Starts writing. An existing file keeps its mode, its group and its owner as far as the
    /// system lets it; one that is marked read-only for everybody is refused. A pipe waits for its
    /// reader as long as `waiting` is not aborted; without `waiting` one that nobody reads is
    /// refused. Nothing on success.
    [[nodiscard]] Failure create(const std::string& path, ProgressSink* waiting = nullptr);

    [[nodiscard]] bool isOpen() const { return m_file >= 0; }

    /// Puts the new file in the target's place. The first failure of all writing, which discards
    /// the new file; nothing on success.
    [[nodiscard]] Failure commit(Durability durability = Durability::Cached);

    /// Drops the new file; harmless when nothing is open.
    void discard();

  private:
    Failure openDirectly(bool isPipe, ProgressSink* waiting);
    Failure openStream();
    Failure openBeside();
    void keepOwner(unsigned user, unsigned group);
    [[nodiscard]] Failure giveUp(int error);

    std::string m_path;      ///< as the caller named it
    std::string m_target;    ///< with symbolic links followed
    std::string m_temporary; ///< empty when the target itself is written
    int m_file = -1;
};

} // namespace pellam
