#include "app/batch/TerminalMessages.h"

#include "app/batch/TerminalProgress.h"
#include "base/Utf8.h"

#include <cstdio>
#include <string>

namespace pellam {

void TerminalMessages::showAbout(const std::string& file, std::string_view text) {
    show(std::string(text) + ": " + file);
}

void TerminalMessages::show(std::string_view text) {
    const bool remark = text.starts_with("Warning: ") || text.starts_with("Attention: ") ||
                        text.starts_with("Information: ");
    m_spoke = true;
    m_failed = m_failed || !remark;
    m_progress.finish();
    const std::string line = forTerminal(text) + '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

} // namespace pellam
