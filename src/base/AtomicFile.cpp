#include "base/AtomicFile.h"

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pellam {

namespace {

std::string folderOf(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

/// The file that a path names once symbolic links are followed, whether it exists or not; empty
/// (and errno set) when the links lead in a circle.
std::string followLinks(std::string path) {
    static constexpr int kMostLinks = 40;
    for (int i = 0; i < kMostLinks; ++i) {
        char link[PATH_MAX];
        const ssize_t length = ::readlink(path.c_str(), link, sizeof link);
        if (length < 0) return path;
        const std::string next(link, static_cast<std::size_t>(length));
        path = next.starts_with('/') ? next : folderOf(path) + next;
    }
    errno = ELOOP;
    return {};
}

/// A name beside the target that no other process and no other call uses.
std::string temporaryName(const std::string& target) {
    static std::atomic<unsigned> counter{0};
    static constexpr std::size_t kLongestName = 200; // leaves room within the usual 255
    const std::string folder = folderOf(target);
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return folder + '.' + target.substr(folder.size(), kLongestName) + '.' +
           std::to_string(::getpid()) + '-' + std::to_string(now.tv_nsec) + '-' +
           std::to_string(++counter);
}

} // namespace

AtomicFile::~AtomicFile() {
    discard();
}

Failure AtomicFile::create(const std::string& path) {
    discard();
    m_path = path;
    m_target = path;

    struct stat status {};

    if (::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) return openDirectly();
    return openBeside();
}

Failure AtomicFile::openDirectly() {
    m_file = ::open(m_target.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
    if (m_file < 0) return Failure::fromErrno(Failure::Kind::Open, m_path, errno);
    return {};
}

Failure AtomicFile::openBeside() {
    m_target = followLinks(m_path);
    if (m_target.empty()) return failed(errno);

    struct stat status {};

    const bool exists = ::stat(m_target.c_str(), &status) == 0;
    static constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
    if (exists && (status.st_mode & kAnyWrite) == 0) return failed(EACCES);
    if (exists && ::access(m_target.c_str(), W_OK) != 0) return failed(errno);

    static constexpr int kAttempts = 100;
    for (int i = 0; i < kAttempts && m_file < 0; ++i) {
        m_temporary = temporaryName(m_target);
        m_file = ::open(m_temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (m_file < 0 && errno != EEXIST) break;
    }
    if (m_file < 0) {
        m_temporary.clear();
        return failed(errno);
    }
    if (exists) {
        // Only root can hand a file to somebody else; for others the new file is theirs.
        const bool sameOwner = status.st_uid == ::geteuid() && status.st_gid == ::getegid();
        if (!sameOwner) (void)!::fchown(m_file, status.st_uid, status.st_gid);
        if (::fchmod(m_file, status.st_mode & 07777) != 0) return failed(errno);
    }
    return {};
}

Failure AtomicFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(m_file, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return failed(errno);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return {};
}

Failure AtomicFile::commit(Durability durability) {
    const bool flush = durability == Durability::Flushed && !m_temporary.empty();
    if (flush && ::fdatasync(m_file) != 0) return failed(errno);
    const int file = m_file;
    m_file = -1;
    if (::close(file) != 0) return failed(errno);
    if (m_temporary.empty()) return {};
    if (::rename(m_temporary.c_str(), m_target.c_str()) != 0) return failed(errno);
    m_temporary.clear();
    return {};
}

void AtomicFile::discard() {
    if (m_file >= 0) ::close(m_file);
    m_file = -1;
    if (!m_temporary.empty()) ::unlink(m_temporary.c_str());
    m_temporary.clear();
}

Failure AtomicFile::failed(int error) {
    discard();
    return Failure::fromErrno(Failure::Kind::Write, m_path, error);
}

} // namespace pellam
