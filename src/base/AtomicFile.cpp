#include "base/AtomicFile.h"

#include "base/ProgressSink.h"

#include <atomic>
#include <cerrno>
#include <charconv>
#include <climits>
#include <ctime>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace pellam {

namespace {

std::string folderOf(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

/// Whether a path is the system's link to an open file of a process. What it reads as is the name
/// of a file that others hold open: never to be replaced.
bool isStream(const std::string& path) {
    struct statfs system = {};

    const std::string folder = folderOf(path);
    return !folder.empty() && ::statfs(folder.c_str(), &system) == 0 &&
           system.f_type == PROC_SUPER_MAGIC;
}

/// The file that a path names once symbolic links are followed, whether it exists or not, or the
/// stream that they lead to; empty (and errno set) when the links lead in a circle.
std::string followLinks(std::string path) {
    static constexpr int kMostLinks = 40;
    for (int i = 0; i < kMostLinks; ++i) {
        char link[PATH_MAX];
        const ssize_t length = ::readlink(path.c_str(), link, sizeof link);
        if (length < 0 || isStream(path)) return path;
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

bool isSame(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

} // namespace

AtomicFile::~AtomicFile() {
    discard();
}

Failure AtomicFile::create(const std::string& path, ProgressSink* waiting) {
    discard();
    m_path = path;
    m_target = followLinks(path);
    if (m_target.empty()) return giveUp(errno);

    struct stat status = {};

    const bool exists = ::stat(m_target.c_str(), &status) == 0;
    Failure failure = isStream(m_target) ? openStream()
                      : exists && !S_ISREG(status.st_mode)
                          ? openDirectly(S_ISFIFO(status.st_mode), waiting)
                          : openBeside();
    if (!failure) start(m_file, path, waiting);
    return failure;
}

Failure AtomicFile::openDirectly(bool isPipe, ProgressSink* waiting) {
    static constexpr timespec kTurn{0, 50'000'000};
    for (;;) {
        // A pipe would wait for its reader in here otherwise, and nobody could stop it.
        m_file = ::open(m_target.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
        if (m_file >= 0) return {};
        if (!isPipe || errno != ENXIO)
            return Failure::fromErrno(Failure::Kind::Open, m_path, errno);
        if (!waiting) return {Failure::Kind::Write, m_path, -1, "nobody reads from this pipe"};
        waiting->addString("Waiting for the reader of " + m_path + "...");
        if (waiting->aborted()) return {Failure::Kind::Aborted, m_path, -1, {}};
        ::nanosleep(&kTurn, nullptr);
    }
}

// Opened anew, the file would be written from its beginning; the process's own stream knows where
// it is, and may be one that can not be opened, a socket.
Failure AtomicFile::openStream() {
    int stream = -1;
    const std::size_t number = folderOf(m_target).size();
    std::from_chars(m_target.data() + number, m_target.data() + m_target.size(), stream);

    struct stat own = {};

    struct stat named = {};

    if (::fstat(stream, &own) == 0 && ::stat(m_target.c_str(), &named) == 0 && isSame(own, named))
        m_file = ::fcntl(stream, F_DUPFD_CLOEXEC, 0);
    else
        m_file = ::open(m_target.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC | O_NOCTTY);
    if (m_file < 0) return Failure::fromErrno(Failure::Kind::Open, m_path, errno);
    return {};
}

Failure AtomicFile::openBeside() {
    struct stat status = {};

    const bool exists = ::stat(m_target.c_str(), &status) == 0;
    static constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
    if (exists && (status.st_mode & kAnyWrite) == 0) return giveUp(EACCES);
    if (exists && ::access(m_target.c_str(), W_OK) != 0) return giveUp(errno);

    static constexpr int kAttempts = 100;
    for (int i = 0; i < kAttempts && m_file < 0; ++i) {
        m_temporary = temporaryName(m_target);
        m_file = ::open(m_temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (m_file < 0 && errno != EEXIST) break;
    }
    if (m_file < 0) {
        m_temporary.clear();
        return giveUp(errno);
    }
    if (!exists) return {};
    keepOwner(status.st_uid, status.st_gid);
    if (::fchmod(m_file, status.st_mode & 07777) != 0) return giveUp(errno);
    return {};
}

// Only root can hand a file to somebody else; everybody can to a group of their own.
void AtomicFile::keepOwner(unsigned user, unsigned group) {
    static constexpr auto kSame = static_cast<uid_t>(-1);

    struct stat made = {};

    if (::fstat(m_file, &made) == 0 && made.st_uid == user && made.st_gid == group) return;
    if (::fchown(m_file, user, group) != 0) (void)!::fchown(m_file, kSame, group);
}

Failure AtomicFile::commit(Durability durability) {
    flush();
    if (failed()) {
        discard();
        return failure();
    }
    const bool durable = durability == Durability::Flushed && !m_temporary.empty();
    if (durable && ::fdatasync(m_file) != 0) return giveUp(errno);
    const int file = m_file;
    m_file = -1;
    if (::close(file) != 0) return giveUp(errno);
    if (m_temporary.empty()) return {};
    if (::rename(m_temporary.c_str(), m_target.c_str()) != 0) return giveUp(errno);
    m_temporary.clear();
    return {};
}

void AtomicFile::discard() {
    if (m_file >= 0) ::close(m_file);
    m_file = -1;
    if (!m_temporary.empty()) ::unlink(m_temporary.c_str());
    m_temporary.clear();
}

Failure AtomicFile::giveUp(int error) {
    discard();
    return Failure::fromErrno(Failure::Kind::Write, m_path, error);
}

} // namespace pellam
