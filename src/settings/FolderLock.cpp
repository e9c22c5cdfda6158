#include "settings/FolderLock.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

namespace pellam {

FolderLock::FolderLock(const std::string& folder) {
    const char* const name = folder.empty() ? "." : folder.c_str();
    m_folder = ::open(name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (m_folder < 0) {
        m_locked = true;
        return;
    }
    static constexpr int kAttempts = 100;
    for (int i = 0; i < kAttempts && !m_locked; ++i) {
        if (i > 0) std::this_thread::sleep_for(std::chrono::milliseconds(5));
        const bool taken = ::flock(m_folder, LOCK_EX | LOCK_NB) == 0;
        m_locked = taken || (errno != EWOULDBLOCK && errno != EINTR);
    }
}

FolderLock::~FolderLock() {
    if (m_folder >= 0) ::close(m_folder);
}

} // namespace pellam
