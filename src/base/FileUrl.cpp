#include "base/FileUrl.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <unistd.h>

namespace pellam {

namespace {

constexpr std::string_view kScheme = "file:";

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isSame(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (lower(a[i]) != lower(b[i])) return false;
    return true;
}

bool isThisComputer(std::string_view host) {
    if (host.empty() || isSame(host, "localhost")) return true;
    std::array<char, 256> name{};
    return ::gethostname(name.data(), name.size() - 1) == 0 && isSame(host, name.data());
}

std::optional<std::string> withoutEscapes(std::string_view path) {
    std::string bytes;
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (path[i] != '%') {
            bytes += path[i];
            continue;
        }
        const std::string_view digits = path.substr(i + 1, 2);
        unsigned char byte = 0;
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
        if (digits.size() != 2 || read.ptr != digits.data() + 2 || byte == 0 || byte == '/')
            return std::nullopt;
        bytes += static_cast<char>(byte);
        i += 2;
    }
    return bytes;
}

} // namespace

std::optional<std::string> localFileOf(std::string_view url) {
    if (!isSame(url.substr(0, kScheme.size()), kScheme)) return std::nullopt;
    url.remove_prefix(kScheme.size());
    url = url.substr(0, url.find_first_of("?#"));
    if (url.starts_with("//")) {
        url.remove_prefix(2);
        const std::string_view host = url.substr(0, url.find('/'));
        if (!isThisComputer(host)) return std::nullopt;
        url.remove_prefix(host.size());
    }
    return url.starts_with('/') ? withoutEscapes(url) : std::nullopt;
}

bool isForeignUrl(std::string_view text) {
    const std::size_t end = text.find("://");
    if (end == std::string_view::npos || end == 0 || localFileOf(text)) return false;
    return std::all_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(end), [](char c) {
        return (lower(c) >= 'a' && lower(c) <= 'z') || (c >= '0' && c <= '9') || c == '+' ||
               c == '-' || c == '.';
    });
}

} // namespace pellam
