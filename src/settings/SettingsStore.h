#pragma once

#include "base/Failure.h"
#include "base/InternationalSettings.h"
#include "settings/IniFile.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// The user's settings, kept in one INI file. With a vendor key the values lie under
/// software/VENDOR/PROFILE/SECTION, without one in plain [SECTION]s (the private profile form).
/// Reads see what other running programs have written; a write changes only its own key. Nothing is
/// ever reported: a missing, damaged or unreadable file gives the defaults, and a write that is not
/// possible gives false.
class SettingsStore {
  public:
    /// `path` is the settings file; it need not exist.
    explicit SettingsStore(std::string path, std::string vendorKey = "Korvane",
                           std::string profileName = "Pellam");

    /// Korvane/Pellam.ini in the user's configuration folder: $XDG_CONFIG_HOME when that is an
    /// absolute path, else ~/.config.
    static std::string defaultPath();

    [[nodiscard]] const std::string& path() const { return m_path; }

    /// Key path of the application, "software/Korvane/Pellam"; empty without a vendor key.
    [[nodiscard]] std::string GetAppRegistryKey() const;
    /// Key path of one section below it.
    [[nodiscard]] std::string GetSectionKey(std::string_view section) const;

    /// A decimal 32-bit number; `fallback` when it is missing or something else.
    [[nodiscard]] int GetProfileInt(std::string_view section, std::string_view key, int fallback);
    [[nodiscard]] std::string GetProfileString(std::string_view section, std::string_view key,
                                               std::string_view fallback = {});
    /// Raw bytes; nothing when they are missing or the value is no binary data.
    [[nodiscard]] std::optional<std::string> GetProfileBinary(std::string_view section,
                                                              std::string_view key);

    bool WriteProfileInt(std::string_view section, std::string_view key, int value);
    bool WriteProfileString(std::string_view section, std::string_view key, std::string_view text);
    bool WriteProfileBinary(std::string_view section, std::string_view key, std::string_view data);

    // Values anywhere in the tree. Parts of a key path are separated by '/' or '\', as in
    // "Software/Tarnholt/Pellam/XMessageBox".

    [[nodiscard]] std::optional<std::string> value(std::string_view keyPath);
    bool setValue(std::string_view keyPath, std::string_view text);
    /// Deletes a key with everything below it. True when it is gone, also when it never was.
    bool deleteKey(std::string_view keyPath);
    /// Names of the values and keys directly below a key.
    [[nodiscard]] std::vector<std::string> names(std::string_view keyPath);

    /// The user's way of writing numbers and dates: the group [intl], else `defaults`.
    [[nodiscard]] InternationalSettings international(const InternationalSettings& defaults);

  private:
    /// What tells one state of the file from the next.
    struct Stamp {
        bool exists = false;
        std::int64_t seconds = 0;
        std::int64_t nanoseconds = 0;
        std::int64_t size = 0;
        std::uint64_t inode = 0;
        bool operator==(const Stamp&) const = default;
    };

    [[nodiscard]] Stamp stamp() const;
    const IniFile& current();
    bool change(const std::function<void(IniFile&)>& edit);
    [[nodiscard]] std::string valuePath(std::string_view section, std::string_view key) const;

    std::string m_path;
    std::string m_vendorKey;
    std::string m_profileName;
    IniFile m_file;
    std::optional<Stamp> m_read; ///< state of the file that m_file holds
};

} // namespace pellam
