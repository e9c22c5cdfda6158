#include "logger/DumpOutput.h"

#include <algorithm>

namespace pellam {

namespace {
constexpr std::size_t kBlock = std::size_t{256} << 10;
} // namespace

Failure DumpOutput::create(const std::string& path) {
    m_block.resize(kBlock);
    m_used = 0;
    m_failure = {};
    return m_file.create(path);
}

void DumpOutput::append(std::string_view text) {
    while (!text.empty()) {
        char* const out = room();
        const std::size_t count = std::min(text.size(), m_block.size() - m_used);
        advance(std::copy_n(text.data(), count, out));
        text.remove_prefix(count);
    }
}

void DumpOutput::flush() {
    if (!m_failure) m_failure = m_file.write({m_block.data(), m_used});
    m_used = 0;
}

Failure DumpOutput::commit() {
    flush();
    if (!m_failure) m_failure = m_file.commit();
    return m_failure;
}

} // namespace pellam
