#pragma once

#include <cstdint>
#include <string_view>

namespace pellam {

/// Where a long operation reports how far it is and learns whether to stop. The window shows
/// CConnectionStatus, batch mode a bar on a terminal, tests count.
class ProgressSink {
  public:
    virtual ~ProgressSink() = default;

    /// Opens the progress display. `first` and `last` are the ends of the position range, in the
    /// caller's own unit; how far it is counts as unknown until the first setPosition().
    virtual void start(std::string_view title, std::string_view firstLine, std::int64_t first,
                       std::int64_t last) = 0;

    /// Names the display's window; the title then stands in it. Until the next start().
    virtual void setWindowText(std::string_view) {}

    /// Replaces the status line. Handles the progress window's own input, nothing else.
    virtual void addString(std::string_view text) = 0;

    /// Moves the bar. Handles the progress window's own input, nothing else.
    virtual void setPosition(std::int64_t position) = 0;

    /// True once the person has asked to stop; stays true until the next start().
    virtual bool aborted() = 0;

    /// Closes the progress display; harmless without a start().
    virtual void finish() = 0;
};

/// Closes the progress display when a scope ends, however it ends.
class ProgressScope {
  public:
    ProgressScope(ProgressSink& sink, std::string_view title, std::string_view firstLine,
                  std::int64_t first, std::int64_t last)
        : m_sink(sink) {
        m_sink.start(title, firstLine, first, last);
    }

    ~ProgressScope() { m_sink.finish(); }

    ProgressScope(const ProgressScope&) = delete;
    ProgressScope& operator=(const ProgressScope&) = delete;

  private:
    ProgressSink& m_sink;
};

} // namespace pellam
