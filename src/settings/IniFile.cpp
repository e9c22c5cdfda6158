#include "settings/IniFile.h"

#include "base/AtomicFile.h"
#include "settings/IniText.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace pellam {

namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool isGeneral(std::string_view section) {
    static constexpr std::string_view kName = "general";
    return std::equal(section.begin(), section.end(), kName.begin(), kName.end(),
                      [](char c, char lower) { return (c | 0x20) == lower; });
}

/// The section's name as paths carry it; [General] holds the paths without one.
std::string sectionOf(std::string_view raw) {
    if (isGeneral(raw)) return {};
    if (raw.starts_with('%') && isGeneral(raw.substr(1))) return std::string(raw.substr(1));
    return unescapeIniKey(raw);
}

std::string headerOf(std::string_view section) {
    if (section.empty()) return "[General]";
    return (isGeneral(section) ? "[%" + std::string(section) : '[' + escapeIniKey(section)) + ']';
}

std::string_view sectionPart(std::string_view path) {
    const auto slash = path.find('/');
    return slash == std::string_view::npos ? std::string_view() : path.substr(0, slash);
}

std::string_view keyPart(std::string_view path) {
    const auto slash = path.find('/');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

bool isBelow(std::string_view path, std::string_view group) {
    return path.size() > group.size() && path.starts_with(group) && path[group.size()] == '/';
}

Failure readWhole(int file, const std::string& path, std::string& text) {
    struct stat status {};

    if (fstat(file, &status) != 0) return Failure::fromErrno(Failure::Kind::Read, path, errno);
    if (!S_ISREG(status.st_mode)) return {Failure::Kind::NotAFile, path, -1, {}};
    if (static_cast<std::size_t>(status.st_size) > IniFile::kMaximumSize) {
        return {Failure::Kind::Format, path, -1, "it is too large for a settings file"};
    }
    text.resize(static_cast<std::size_t>(status.st_size));
    std::size_t got = 0;
    while (got < text.size()) {
        const ssize_t count = ::read(file, text.data() + got, text.size() - got);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return Failure::fromErrno(Failure::Kind::Read, path, errno);
        if (count == 0) break;
        got += static_cast<std::size_t>(count);
    }
    text.resize(got);
    return {};
}

} // namespace

Failure IniFile::load(const std::string& path) {
    m_lines.clear();
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) {
        return errno == ENOENT ? Failure() : Failure::fromErrno(Failure::Kind::Open, path, errno);
    }
    std::string text;
    Failure failure = readWhole(file, path, text);
    ::close(file);
    if (!failure) parse(text);
    return failure;
}

Failure IniFile::save(const std::string& path) const {
    std::error_code ignored; // the file's own failure tells what is wrong
    const auto folder = std::filesystem::path(path).parent_path();
    if (!folder.empty()) std::filesystem::create_directories(folder, ignored);
    AtomicFile file;
    if (Failure failure = file.create(path)) return failure;
    if (Failure failure = file.write(text())) return failure;
    return file.commit(AtomicFile::Durability::Flushed);
}

void IniFile::parse(std::string_view text) {
    m_lines.clear();
    m_carriageReturns = text.substr(0, text.find('\n')).ends_with('\r');
    std::string section;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        append(text.substr(0, end), section);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

void IniFile::append(std::string_view raw, std::string& section) {
    static constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    Line line{std::string(raw), section, {}, 0};
    std::string_view content = raw;
    if (m_lines.empty() && content.starts_with(kByteOrderMark)) content.remove_prefix(3);
    content = trimmed(content);
    const auto bracket = content.find(']');
    const auto equals = raw.find('=');
    if (content.starts_with('[') && bracket != std::string_view::npos) {
        section = sectionOf(trimmed(content.substr(1, bracket - 1)));
        line.section = section;
    } else if (equals != std::string_view::npos && !content.starts_with(';') &&
               !content.starts_with('#')) {
        const std::string key = unescapeIniKey(trimmed(content.substr(0, content.find('='))));
        line.path = section.empty() ? key : section + '/' + key;
        line.valueAt = equals + 1;
    }
    m_lines.push_back(std::move(line));
}

std::string IniFile::text() const {
    std::string text;
    for (const Line& line : m_lines) {
        text += line.raw;
        text += '\n';
    }
    return text;
}

const IniFile::Line* IniFile::find(std::string_view path) const {
    const auto found = std::find_if(m_lines.rbegin(), m_lines.rend(),
                                    [path](const Line& line) { return line.path == path; });
    return path.empty() || found == m_lines.rend() ? nullptr : &*found;
}

std::optional<std::string> IniFile::textValue(std::string_view path) const {
    const Line* const line = find(path);
    if (line == nullptr) return std::nullopt;
    return unescapeIniText(trimmed(std::string_view(line->raw).substr(line->valueAt)));
}

std::optional<std::string> IniFile::bytesValue(std::string_view path) const {
    const Line* const line = find(path);
    if (line == nullptr) return std::nullopt;
    return unescapeIniBytes(trimmed(std::string_view(line->raw).substr(line->valueAt)));
}

void IniFile::setText(std::string_view path, std::string_view text) {
    setRaw(path, escapeIniText(text));
}

void IniFile::setBytes(std::string_view path, std::string_view bytes) {
    setRaw(path, escapeIniBytes(bytes));
}

void IniFile::setRaw(std::string_view path, const std::string& rawValue) {
    if (path.empty()) return;
    const std::string_view section = sectionPart(path);
    Line entry{escapeIniKey(keyPart(path)) + '=', std::string(section), std::string(path), 0};
    entry.valueAt = entry.raw.size();
    entry.raw += rawValue;
    if (m_carriageReturns) entry.raw += '\r';

    if (!replace(entry)) insert(std::move(entry));
}

/// Puts an entry in the place of the one with its path. A path can also come from a key with a '/'
/// of its own in another section, and it can occur twice: only the entry stays.
bool IniFile::replace(Line& entry) {
    const auto samePath = [path = entry.path](const Line& line) { return line.path == path; };
    const auto old = std::find_if(m_lines.begin(), m_lines.end(), [&](const Line& line) {
        return samePath(line) && line.section == entry.section;
    });
    if (old == m_lines.end()) {
        std::erase_if(m_lines, samePath);
        return false;
    }
    std::swap(*old, entry);
    m_lines.erase(std::remove_if(old + 1, m_lines.end(), samePath), m_lines.end());
    m_lines.erase(std::remove_if(m_lines.begin(), old, samePath), old);
    return true;
}

/// Adds an entry behind its section's last line that says something, so that blank lines stay
/// between sections. Lines before the first header count as [General].
void IniFile::insert(Line entry) {
    const std::string& section = entry.section;
    std::size_t behind = 0;
    bool hasSection = false;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        const Line& line = m_lines[i];
        if (line.section != section || trimmed(line.raw).empty()) continue;
        hasSection = hasSection || trimmed(line.raw).starts_with('[') || !line.path.empty();
        behind = i + 1;
    }
    if (!hasSection) {
        const std::string end = m_carriageReturns ? "\r" : "";
        if (!m_lines.empty() && !trimmed(m_lines.back().raw).empty()) {
            m_lines.push_back({end, m_lines.back().section, {}, 0});
        }
        m_lines.push_back({headerOf(section) + end, section, {}, 0});
        behind = m_lines.size();
    }
    m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(behind), std::move(entry));
}

bool IniFile::remove(std::string_view path) {
    return std::erase_if(m_lines, [path](const Line& line) {
               return !line.path.empty() && (line.path == path || isBelow(line.path, path));
           }) != 0;
}

std::vector<std::string> IniFile::names(std::string_view path) const {
    std::vector<std::string> names;
    for (const Line& line : m_lines) {
        if (!isBelow(line.path, path)) continue;
        const std::string_view rest = std::string_view(line.path).substr(path.size() + 1);
        std::string name(rest.substr(0, rest.find('/')));
        if (std::find(names.begin(), names.end(), name) == names.end()) {
            names.push_back(std::move(name));
        }
    }
    return names;
}

} // namespace pellam
