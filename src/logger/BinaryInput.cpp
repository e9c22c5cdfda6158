#include "logger/BinaryInput.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pellam {

namespace {
constexpr std::size_t kBlock = std::size_t{256} << 10;
} // namespace

BinaryInput::~BinaryInput() {
    if (m_file >= 0) ::close(m_file);
}

Failure BinaryInput::open(const std::string& path) {
    if (m_file >= 0) ::close(m_file);
    m_error = {};
    m_blockPosition = m_begin = m_end = 0;
    // Without O_NONBLOCK the open of a pipe would wait for a writer.
    m_file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (m_file < 0) return Failure::fromErrno(Failure::Kind::Open, path, errno);

    struct stat facts {};

    if (::fstat(m_file, &facts) != 0) return Failure::fromErrno(Failure::Kind::Open, path, errno);
    if (!S_ISREG(facts.st_mode)) return {Failure::Kind::NotAFile, path, -1, {}};
    m_path = path;
    m_size = static_cast<std::uint64_t>(facts.st_size);
    ::posix_fadvise(m_file, 0, 0, POSIX_FADV_SEQUENTIAL);
    m_block.resize(kBlock);
    return {};
}

std::string_view BinaryInput::take(std::uint64_t size) {
    const auto wanted = static_cast<std::size_t>(std::min(size, left()));
    if (m_end - m_begin < wanted) fill(wanted);
    const std::size_t count = std::min(m_end - m_begin, wanted);
    const std::string_view bytes(m_block.data() + m_begin, count);
    m_begin += count;
    return bytes;
}

void BinaryInput::seek(std::uint64_t position) {
    if (position >= m_blockPosition && position <= m_blockPosition + m_end) {
        m_begin = static_cast<std::size_t>(position - m_blockPosition);
        return;
    }
    m_blockPosition = position;
    m_begin = m_end = 0;
}

void BinaryInput::fill(std::size_t wanted) {
    const std::size_t kept = m_end - m_begin;
    std::memmove(m_block.data(), m_block.data() + m_begin, kept);
    m_blockPosition += m_begin;
    m_begin = 0;
    m_end = kept;
    if (wanted > m_block.size()) m_block.resize(wanted);
    while (m_end < wanted) {
        const ssize_t got = ::pread(m_file, m_block.data() + m_end, m_block.size() - m_end,
                                    static_cast<off_t>(m_blockPosition + m_end));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) {
            m_error = Failure::fromErrno(Failure::Kind::Read, m_path, errno);
            m_error.byteOffset = static_cast<std::int64_t>(m_blockPosition + m_end);
        }
        if (got <= 0) return;
        m_end += static_cast<std::size_t>(got);
    }
}

} // namespace pellam
