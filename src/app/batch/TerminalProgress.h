#pragma once

#include "base/ProgressSink.h"

#include <chrono>
#include <csignal>
#include <string>

namespace pellam {

/// Shows a bar on standard error when that is a terminal, and nothing otherwise; the status line
/// alone while the position is unknown. While it exists, an interrupt (Ctrl+C), a hang-up or a
/// request to end asks the running operation to stop instead of ending the program; the second one
/// ends it. At most one exists at a time.
class TerminalProgress : public ProgressSink {
  public:
    TerminalProgress();
    ~TerminalProgress() override;
    TerminalProgress(const TerminalProgress&) = delete;
    TerminalProgress& operator=(const TerminalProgress&) = delete;

    void start(std::string_view title, std::string_view firstLine, std::int64_t first,
               std::int64_t last) override;
    void addString(std::string_view text) override;
    void setPosition(std::int64_t position) override;
    /// Stays true for good: a further operation stops at once.
    bool aborted() override;
    void finish() override;
    /// Draws what was reported when it is due, for an operation that waits.
    void refresh();

    /// The bar for a position: "[#####               ]  25 % text".
    static std::string bar(std::int64_t position, std::int64_t first, std::int64_t last,
                           std::string_view text);

  private:
    void draw();

    std::string m_text;
    std::int64_t m_first = 0;
    std::int64_t m_last = 0;
    std::int64_t m_position = 0;
    bool m_positionKnown = false;
    std::chrono::steady_clock::time_point m_drawn; ///< when the bar was last drawn
    bool m_terminal;
    bool m_visible = false;
    struct sigaction m_earlier[3]; ///< what the signals did before
};

} // namespace pellam
