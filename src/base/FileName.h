#pragma once

#include <string>
#include <string_view>
#include <system_error>

#include <filesystem>

namespace pellam {

/// What stands behind the last '.' of the name after the last folder (by either slash), in lower
/// case; empty without a '.'.
inline std::string extensionOf(std::string_view path) {
    const std::string_view name = path.substr(path.find_last_of("/\\") + 1);
    const std::size_t point = name.rfind('.');
    if (point == std::string_view::npos) return {};
    std::string extension(name.substr(point + 1));
    for (char& c : extension)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return extension;
}

/// Whether two paths name the same file, which exists.
inline bool isSameFile(const std::string& a, const std::string& b) {
    std::error_code missing;
    return std::filesystem::equivalent(a, b, missing);
}

} // namespace pellam
