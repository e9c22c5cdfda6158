#pragma once

#include "base/MessageSink.h"

namespace pellam {

class TerminalProgress;

/// Writes messages to standard error, one after the other, as they stand.
class TerminalMessages : public MessageSink {
  public:
    /// `progress` makes room for the messages on the terminal; it must outlive this object.
    explicit TerminalMessages(TerminalProgress& progress) : m_progress(progress) {}

    void show(std::string_view text) override;
    void showAbout(const std::string& file, std::string_view text) override;

    /// Whether anything was shown.
    [[nodiscard]] bool spoke() const { return m_spoke; }

    /// Whether an error report was among the messages: a text that is no warning and no remark.
    [[nodiscard]] bool failed() const { return m_failed; }

  private:
    TerminalProgress& m_progress;
    bool m_spoke = false;
    bool m_failed = false;
};

} // namespace pellam
