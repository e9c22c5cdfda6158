#include "settings/SettingsStore.h"

#include "settings/FolderLock.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace pellam {

namespace {

std::string homeFolder() {
    const char* const home = std::getenv("HOME");
    if (home != nullptr && *home != '\0') return home;
    const passwd* const user = ::getpwuid(::getuid());
    return user != nullptr ? user->pw_dir : std::string();
}

std::string normalised(std::string_view keyPath) {
    std::string path(keyPath);
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

/// The private profile's form of binary data: two letters a byte, 'A' plus the high four bits, then
/// 'A' plus the low four.
std::string lettersOf(std::string_view data) {
    std::string letters;
    letters.reserve(data.size() * 2);
    for (const char c : data) {
        const auto byte = static_cast<unsigned char>(c);
        letters += static_cast<char>('A' + (byte >> 4U));
        letters += static_cast<char>('A' + (byte & 0xFU));
    }
    return letters;
}

std::optional<std::string> bytesOf(std::string_view letters) {
    const auto strange = [](char c) { return c < 'A' || c > 'P'; };
    if (std::any_of(letters.begin(), letters.end(), strange)) return std::nullopt;
    std::string data;
    for (std::size_t i = 0; i + 1 < letters.size(); i += 2) {
        data += static_cast<char>((letters[i] - 'A') << 4 | (letters[i + 1] - 'A'));
    }
    return data;
}

} // namespace

SettingsStore::SettingsStore(std::string path, std::string vendorKey, std::string profileName)
    : m_path(std::move(path)),
      m_vendorKey(std::move(vendorKey)),
      m_profileName(std::move(profileName)) {}

std::string SettingsStore::defaultPath() {
    const char* const configured = std::getenv("XDG_CONFIG_HOME");
    const bool usable = configured != nullptr && *configured == '/';
    const std::string folder = usable ? configured : homeFolder() + "/.config";
    return folder + "/Korvane/Pellam.ini";
}

std::string SettingsStore::GetAppRegistryKey() const {
    if (m_vendorKey.empty()) return {};
    return "software/" + m_vendorKey + '/' + m_profileName;
}

std::string SettingsStore::GetSectionKey(std::string_view section) const {
    const std::string application = GetAppRegistryKey();
    return application.empty() ? std::string(section) : application + '/' + std::string(section);
}

std::string SettingsStore::valuePath(std::string_view section, std::string_view key) const {
    return GetSectionKey(section) + '/' + std::string(key);
}

int SettingsStore::GetProfileInt(std::string_view section, std::string_view key, int fallback) {
    const auto text = current().textValue(valuePath(section, key));
    if (!text) return fallback;
    int value = 0;
    const char* const end = text->data() + text->size();
    const auto result = std::from_chars(text->data(), end, value);
    return result.ec == std::errc() && result.ptr == end ? value : fallback;
}

std::string SettingsStore::GetProfileString(std::string_view section, std::string_view key,
                                            std::string_view fallback) {
    return current().textValue(valuePath(section, key)).value_or(std::string(fallback));
}

std::optional<std::string> SettingsStore::GetProfileBinary(std::string_view section,
                                                           std::string_view key) {
    const std::string path = valuePath(section, key);
    if (!m_vendorKey.empty()) return current().bytesValue(path);
    const auto letters = current().textValue(path);
    return letters ? bytesOf(*letters) : std::nullopt;
}

bool SettingsStore::WriteProfileInt(std::string_view section, std::string_view key, int value) {
    return setValue(valuePath(section, key), std::to_string(value));
}

bool SettingsStore::WriteProfileString(std::string_view section, std::string_view key,
                                       std::string_view text) {
    const std::string path = valuePath(section, key);
    return change([&](IniFile& file) { file.setText(path, text); });
}

bool SettingsStore::WriteProfileBinary(std::string_view section, std::string_view key,
                                       std::string_view data) {
    const std::string path = valuePath(section, key);
    if (m_vendorKey.empty()) {
        return change([&](IniFile& file) { file.setText(path, lettersOf(data)); });
    }
    return change([&](IniFile& file) { file.setBytes(path, data); });
}

std::optional<std::string> SettingsStore::value(std::string_view keyPath) {
    return current().textValue(normalised(keyPath));
}

bool SettingsStore::setValue(std::string_view keyPath, std::string_view text) {
    return change([&](IniFile& file) { file.setText(normalised(keyPath), text); });
}

bool SettingsStore::deleteKey(std::string_view keyPath) {
    const std::string path = normalised(keyPath);
    if (!current().textValue(path) && current().names(path).empty()) return true;
    return change([&](IniFile& file) { file.remove(path); });
}

std::vector<std::string> SettingsStore::names(std::string_view keyPath) {
    return current().names(normalised(keyPath));
}

InternationalSettings SettingsStore::international(const InternationalSettings& defaults) {
    return InternationalSettings::read(
        [this](std::string_view key) { return current().textValue("intl/" + std::string(key)); },
        defaults);
}

SettingsStore::Stamp SettingsStore::stamp() const {
    struct stat status {};

    if (::stat(m_path.c_str(), &status) != 0) return {};
    return {true, status.st_mtim.tv_sec, status.st_mtim.tv_nsec, status.st_size, status.st_ino};
}

const IniFile& SettingsStore::current() {
    const Stamp now = stamp();
    if (m_read != now) {
        (void)m_file.load(m_path); // what can not be read counts as empty
        m_read = now;
    }
    return m_file;
}

bool SettingsStore::change(const std::function<void(IniFile&)>& edit) {
    std::error_code ignored; // a folder that can not be made makes the write fail
    const auto folder = std::filesystem::path(m_path).parent_path();
    if (!folder.empty()) std::filesystem::create_directories(folder, ignored);
    const FolderLock lock(folder.string());
    if (!lock.locked()) return false;

    IniFile file;
    if (file.load(m_path)) return false; // never write over what could not be read
    edit(file);
    m_read.reset();
    return !file.save(m_path);
}

} // namespace pellam
