#pragma once

#include <string>
#include <string_view>

namespace pellam {

/// Where data code says something to a person. The window shows a message box, batch mode writes
/// to standard error, tests record.
class MessageSink {
  public:
    virtual ~MessageSink() = default;

    /// Shows one message as it stands. Its kind is the text's own first word ("Warning: ",
    /// "Attention: ", "Information: "); a text without one is an error report. Returns when the
    /// person has seen it.
    virtual void show(std::string_view text) = 0;

    /// The same for a text that does not name the file it is about; where a person can't see which
    /// file is meant, its name is added.
    virtual void showAbout(const std::string& /*file*/, std::string_view text) { show(text); }
};

} // namespace pellam
