#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// A folder of its own for one test; gone with all it holds at the end of the test.
class ScratchFolder {
  public:
    ScratchFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "pellam-XXXXXX").string();
        m_path = ::mkdtemp(name.data());
    }

    ~ScratchFolder() {
        std::error_code ignored;
        // A test may have taken away the right to change it, which only root goes without.
        std::filesystem::permissions(m_path, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(m_path, ignored);
    }

    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    [[nodiscard]] std::string path(const std::string& name = {}) const {
        return name.empty() ? m_path : m_path + '/' + name;
    }

    /// Writes a file and gives its path.
    std::string write(const std::string& name, std::string_view bytes) const {
        std::ofstream(path(name), std::ios::binary) << bytes;
        return path(name);
    }

    /// All bytes of a file; "(missing)" when there is none.
    [[nodiscard]] std::string read(const std::string& name) const { return contents(path(name)); }

    static std::string contents(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        if (!file) return "(missing)";
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// Names in the folder, hidden ones too, sorted and separated by spaces.
    [[nodiscard]] std::string list() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_path)) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        std::string text;
        for (const std::string& name : names)
            text += (text.empty() ? "" : " ") + name;
        return text;
    }

  private:
    std::string m_path;
};

} // namespace pellam
