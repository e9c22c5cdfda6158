#include "replay/checks/SignatureCheck.h"

#include "base/LeadingNumber.h"
#include "base/LineReader.h"
#include "base/RegularFile.h"
#include "replay/checks/CCrc.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <optional>
#include <system_error>

namespace pellam {

namespace {

constexpr std::size_t kLines = 6;
constexpr const char* kSeparators = "/\\";
using Lines = std::array<std::string, kLines>;

void eraseAll(std::string& text, std::string_view part) {
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos;)
        text.erase(at, part.size());
}

std::string withoutTags(std::string line, const std::string& tag) {
    eraseAll(line, '<' + tag + '>');
    eraseAll(line, "</" + tag + '>');
    std::erase_if(line, [](char c) { return c == '\r' || c == '\n'; });
    return line;
}

bool isText(std::string_view line) {
    return std::all_of(line.begin(), line.end(), [](unsigned char c) {
        return c >= ' ' || c == '\t' || c == '\r' || c == '\n';
    });
}

// Nothing when the file cannot be read or is enciphered.
std::optional<Lines> readLines(const std::string& path) {
    LineReader reader;
    if (reader.open(path)) return std::nullopt;
    Lines lines;
    std::string_view line;
    for (std::size_t i = 0; i < kLines && reader.next(line); ++i) {
        if (!isText(line)) return std::nullopt;
        lines[i] = line;
    }
    if (reader.error()) return std::nullopt;
    return lines;
}

std::optional<std::uint32_t> checksumOf(const std::string& path) {
    RegularFile file;
    if (file.open(path)) return std::nullopt;
    const CCrc32 crc;
    std::uint32_t sum = 0;
    std::array<char, 65536> block;
    std::int64_t offset = 0;
    while (const std::size_t got = file.read(block.data(), block.size(), offset)) {
        sum = crc.CalculateBlock(block.data(), got, sum);
        offset += static_cast<std::int64_t>(got);
    }
    if (file.error()) return std::nullopt;
    return sum;
}

// The path from the root, with nothing in it that leads nowhere: only its length can be compared
// with that of the recorded one.
std::string wholePath(const std::string& path) {
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::absolute(path, error);
    return error ? path : whole.lexically_normal().string();
}

// This program's rule: the location's tail is as long as the name in a folder of equal length.
std::string besideSignature(const std::string& path, const std::string& location) {
    const std::size_t folder = path.find_last_of(kSeparators) + 1;
    const std::size_t tail = location.size() > folder ? location.size() - folder : 0;
    return path.substr(0, folder) + location.substr(location.size() - tail);
}

} // namespace

bool nameContains(std::string_view path, std::string_view lowerCasePart) {
    const std::string_view name = path.substr(path.find_last_of(kSeparators) + 1);
    const auto same = [](unsigned char a, unsigned char b) { return std::tolower(a) == b; };
    return std::search(name.begin(), name.end(), lowerCasePart.begin(), lowerCasePart.end(),
                       same) != name.end();
}

SignatureResult checkSignature(const std::string& path, MessageSink& messages) {
    if (!nameContains(path, ".sig")) return {path, false};
    const std::optional<Lines> lines = readLines(path);
    if (!lines) {
        messages.showAbout(path, "Warning: Can not open replay file");
        return {};
    }
    const std::string checksum = withoutTags((*lines)[3], "CRC32");
    std::string location = withoutTags((*lines)[4], "OrigLocation");
    std::erase(location, '"');
    if (checksum.empty() || location.empty()) {
        messages.show("Warning: Signature file integrity check FAILED");
        return {};
    }
    if (path.find_last_of(kSeparators) != std::string::npos) {
        std::string candidate = besideSignature(wholePath(path), location);
        if (candidate != location) {
            location = std::move(candidate);
            messages.show("Warning: Signature or Replay file has been moved from original "
                          "location");
        }
    }
    const std::optional<std::uint32_t> found = checksumOf(location);
    if (!found) {
        messages.showAbout(location, "Warning: Can not open replay file");
        return {};
    }
    if (*found != leadingHexadecimal(checksum)) {
        messages.show("Warning: Replay file integrity check FAILED: " + location);
        return {};
    }
    messages.show("Information: Replay file integrity check OK; Signature: " +
                  withoutTags((*lines)[5], "Signature"));
    return {location, true};
}

} // namespace pellam
