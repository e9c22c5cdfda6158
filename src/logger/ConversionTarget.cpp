#include "logger/ConversionTarget.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

namespace pellam {

namespace {

namespace fs = std::filesystem;

// A link to nowhere is taken, too.
bool isTaken(const std::string& path) {
    std::error_code error;
    return fs::exists(fs::symlink_status(path, error));
}

bool haveSameBytes(const std::string& a, const std::string& b) {
    std::error_code error;
    if (!fs::is_regular_file(a, error) || !fs::is_regular_file(b, error)) return false;
    if (fs::file_size(a, error) != fs::file_size(b, error) || error) return false;
    std::ifstream first(a, std::ios::binary);
    std::ifstream second(b, std::ios::binary);
    std::array<char, 65536> block;
    std::array<char, 65536> other;
    do {
        first.read(block.data(), block.size());
        second.read(other.data(), other.size());
        const auto count = static_cast<std::size_t>(first.gcount());
        if (first.gcount() != second.gcount() ||
            std::string_view(block.data(), count) != std::string_view(other.data(), count)) {
            return false;
        }
    } while (first && second);
    return first.eof() && second.eof();
}

} // namespace

ConversionTarget::ConversionTarget(const std::string& path) {
    const std::size_t point = path.rfind('.');
    const std::size_t end = point == std::string::npos || path.find('/', point) != std::string::npos
                                ? path.size()
                                : point;
    m_stem = path.substr(0, end);
    m_extension = path.substr(end);
    while (isTaken(name(m_number)))
        ++m_number;
    m_path = name(m_number);
}

const std::string& ConversionTarget::settle() {
    for (int number = 1; number < m_number; ++number) {
        const std::string earlier = name(number);
        if (!haveSameBytes(m_path, earlier)) continue;
        std::error_code error;
        fs::remove(m_path, error);
        m_path = earlier;
        break;
    }
    return m_path;
}

std::string ConversionTarget::name(int number) const {
    return number == 1 ? m_stem + m_extension
                       : m_stem + " (" + std::to_string(number) + ')' + m_extension;
}

} // namespace pellam
