#include "base/RegularFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pellam {

RegularFile::~RegularFile() {
    if (m_file >= 0) ::close(m_file);
}

Failure RegularFile::open(const std::string& path) {
    if (m_file >= 0) ::close(m_file);
    m_path = path;
    m_error = {};
    m_size = 0;
    // Without O_NONBLOCK the open of a pipe would wait for a writer.
    m_file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);

    struct stat facts = {};

    if (m_file < 0 || ::fstat(m_file, &facts) != 0)
        return Failure::fromErrno(Failure::Kind::Open, path, errno);
    if (!S_ISREG(facts.st_mode)) {
        return {Failure::Kind::NotAFile, path, -1,
                S_ISDIR(facts.st_mode) ? "It is a folder. Choose a file in it."
                                       : "It is a device or a pipe, not a file."};
    }
    m_size = facts.st_size;
    ::posix_fadvise(m_file, 0, 0, POSIX_FADV_SEQUENTIAL);
    return {};
}

std::size_t RegularFile::read(char* out, std::size_t size, std::int64_t offset) {
    ssize_t got;
    do {
        got = ::pread(m_file, out, size, offset);
    } while (got < 0 && errno == EINTR);
    if (got >= 0) return static_cast<std::size_t>(got);
    m_error = Failure::fromErrno(Failure::Kind::Read, m_path, errno);
    m_error.byteOffset = offset;
    return 0;
}

} // namespace pellam
