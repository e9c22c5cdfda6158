#pragma once

#include <string>

namespace pellam {

/// Keeps other programs that take the same lock out while a file of a folder is rewritten. Leaves
/// no file behind, and is gone with the process.
class FolderLock {
  public:
    /// Waits up to half a second for others. A file system without locks counts as locked.
    explicit FolderLock(const std::string& folder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    /// False when another program kept the lock all the time.
    [[nodiscard]] bool locked() const { return m_locked; }

  private:
    int m_folder = -1;
    bool m_locked = false;
};

} // namespace pellam
