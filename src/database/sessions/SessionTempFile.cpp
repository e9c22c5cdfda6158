#include "database/sessions/SessionTempFile.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace pellam {

SessionTempFile::~SessionTempFile() {
    remove();
}

Failure SessionTempFile::create() {
    remove();
    std::error_code unknown;
    auto folder = std::filesystem::temp_directory_path(unknown);
    if (unknown) folder = "/tmp";
    constexpr std::string_view kSuffix = ".tmp";
    std::string name = (folder / "dlrXXXXXX").string().append(kSuffix);
    m_file = ::mkostemps(name.data(), static_cast<int>(kSuffix.size()), O_CLOEXEC);
    if (m_file < 0) return Failure::fromErrno(Failure::Kind::Open, name, errno);
    hide(name);
    start(m_file, name);
    m_writing = true;
    return {};
}

void SessionTempFile::hide(const std::string& name) {
    m_name = name;
    m_path = "/proc/self/fd/" + std::to_string(m_file);
    m_hidden = ::access(m_path.c_str(), R_OK) == 0 && ::unlink(name.c_str()) == 0;
    if (!m_hidden) m_path = name;
}

bool SessionTempFile::write(std::string_view bytes) {
    if (!m_writing) return false;
    append(bytes);
    return !failed();
}

bool SessionTempFile::close() {
    if (!m_writing) return false;
    m_writing = false;
    flush();
    return !failed();
}

void SessionTempFile::remove() {
    if (m_file < 0) return;
    m_writing = false;
    ::close(m_file);
    m_file = -1;
    if (!m_hidden) ::unlink(m_name.c_str());
    m_path.clear();
    m_name.clear();
}

} // namespace pellam
