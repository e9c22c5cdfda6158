#pragma once

#include "base/Failure.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// The text of an INI file as QSettings reads and writes it. A path "section/group/key" names a
/// value: the first part is the [section], the rest the key; a path without '/' lies in [General].
/// Lines that are not understood, comments and unknown keys stay where they are.
class IniFile {
  public:
    /// Largest settings file that is read, in bytes.
    static constexpr std::size_t kMaximumSize = std::size_t{16} << 20;

    /// Replaces the content by the file's. A missing file is an empty one and no failure; a folder,
    /// a device, an unreadable or a larger file is a failure and leaves nothing.
    [[nodiscard]] Failure load(const std::string& path);
    /// Replaces the file as a whole; makes its folder when that is missing.
    [[nodiscard]] Failure save(const std::string& path) const;

    void parse(std::string_view text);
    [[nodiscard]] std::string text() const;

    /// A value; nothing when it is missing or of another kind. Numbers are texts too.
    [[nodiscard]] std::optional<std::string> textValue(std::string_view path) const;
    [[nodiscard]] std::optional<std::string> bytesValue(std::string_view path) const;

    void setText(std::string_view path, std::string_view text);
    void setBytes(std::string_view path, std::string_view bytes);

    /// Removes a value, and all values below it. False when there was none.
    bool remove(std::string_view path);

    /// Names directly below a path, values and groups, each once, in the order of the file.
    [[nodiscard]] std::vector<std::string> names(std::string_view path) const;

  private:
    /// One line without its line end; `path` is empty for everything but key=value lines.
    struct Line {
        std::string raw;
        std::string section; ///< the section that the line stands in or opens
        std::string path;
        std::size_t valueAt = 0; ///< where the value starts in `raw`
    };

    [[nodiscard]] const Line* find(std::string_view path) const;
    void setRaw(std::string_view path, const std::string& rawValue);
    bool replace(Line& entry);
    void insert(Line entry);
    void append(std::string_view raw, std::string& section);

    std::vector<Line> m_lines;
    bool m_carriageReturns = false; ///< lines end in "\r\n"
};

} // namespace pellam
