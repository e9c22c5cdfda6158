#include "base/BlockWriter.h"

#include "base/ProgressSink.h"

#include <algorithm>
#include <cerrno>
#include <poll.h>
#include <unistd.h>
#include <utility>

namespace pellam {

namespace {
constexpr std::size_t kBlock = std::size_t{256} << 10; // stays in the cache between the two sides
constexpr int kTurn = 50;                              // milliseconds
constexpr int kTurnsUnasked = 40;
} // namespace

void BlockWriter::start(int file, std::string path, ProgressSink* waiting) {
    m_file = file;
    m_path = std::move(path);
    m_waiting = waiting;
    m_failure = {};
    m_used = 0;
    m_block.resize(kBlock);
}

void BlockWriter::append(std::string_view bytes) {
    if (bytes.size() > kBlock) {
        flush();
        write(bytes);
        return;
    }
    advance(std::copy(bytes.begin(), bytes.end(), room(bytes.size())));
}

void BlockWriter::makeRoom(std::size_t size) {
    flush();
    if (m_block.size() < size) m_block.resize(size);
}

void BlockWriter::flush() {
    write({m_block.data(), m_used});
    m_used = 0;
}

void BlockWriter::write(std::string_view bytes) {
    int turns = 0;
    while (!bytes.empty() && !failed()) {
        const ssize_t count = ::write(m_file, bytes.data(), bytes.size());
        if (count >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
            turns = 0;
        } else if (errno != EINTR && errno != EAGAIN) {
            fail(Failure::fromErrno(Failure::Kind::Write, m_path, errno));
        } else if (!waitForReader(turns)) {
            fail({m_waiting ? Failure::Kind::Aborted : Failure::Kind::Write, m_path, -1,
                  m_waiting ? "" : "nobody reads from this pipe"});
        }
    }
}

bool BlockWriter::waitForReader(int& turns) {
    pollfd ready{m_file, POLLOUT, 0};
    if (::poll(&ready, 1, kTurn) > 0) return !m_waiting || !m_waiting->aborted();
    if (!m_waiting) return ++turns < kTurnsUnasked;
    m_waiting->addString("Waiting for the reader of " + m_path + "...");
    return !m_waiting->aborted();
}

void BlockWriter::fail(Failure failure) {
    if (!m_failure) m_failure = std::move(failure);
}

} // namespace pellam
