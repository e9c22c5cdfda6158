#pragma once

#include "base/InternationalSettings.h"

#include <QByteArray>
#include <QDateTime>
#include <QSettings>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace pellam {

/// The user's settings, kept in one file in the form of QSettings::IniFormat. With a vendor key the
/// values lie under software/VENDOR/PROFILE/SECTION, without one in plain [SECTION]s (the private
/// profile form). Reads see what other running programs have written; a write changes only its own
/// key. A missing, damaged or unreadable file gives the defaults. What can not be written is kept
/// as long as the store.
class SettingsStore {
  public:
    /// Largest settings file that is read, in bytes.
    static constexpr qint64 kMaximumSize = qint64{16} << 20;

    /// What a person should know of the file.
    enum class Notice {
        NotWritten, ///< the file at the path can not be written; told once
        KeptBeside, ///< the path is that of a copy, as comments and damaged lines get lost
    };
    using Listener = std::function<void(Notice, const QString& path)>;

    /// `path` is the settings file; it need not exist.
    explicit SettingsStore(QString path, QString vendorKey = QStringLiteral("Korvane"),
                           QString profileName = QStringLiteral("Pellam"));
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;

    /// Korvane/Pellam.ini in the user's configuration folder: $XDG_CONFIG_HOME when that is an
    /// absolute path, else ~/.config.
    static QString defaultPath();

    [[nodiscard]] const QString& path() const { return m_path; }

    /// Hears every notice from now on, and those that nobody has heard yet; null hears none.
    void setListener(Listener listener);

    /// Key path of the application, "software/Korvane/Pellam"; empty without a vendor key.
    [[nodiscard]] QString GetAppRegistryKey() const;
    /// Key path of one section below it.
    [[nodiscard]] QString GetSectionKey(QAnyStringView section) const;

    /// A decimal 32-bit number; `fallback` when it is missing or something else.
    [[nodiscard]] int GetProfileInt(QAnyStringView section, QAnyStringView key, int fallback);
    [[nodiscard]] QString GetProfileString(QAnyStringView section, QAnyStringView key,
                                           const QString& fallback = {});
    /// Raw bytes; null when they are missing or the value is no binary data.
    [[nodiscard]] QByteArray GetProfileBinary(QAnyStringView section, QAnyStringView key);

    // Writing gives whether the file has the value now.
    bool WriteProfileInt(QAnyStringView section, QAnyStringView key, int value);
    bool WriteProfileString(QAnyStringView section, QAnyStringView key, QAnyStringView text);
    bool WriteProfileBinary(QAnyStringView section, QAnyStringView key, const QByteArray& data);

    // Values anywhere in the tree, by key paths such as "Software/Tarnholt/Pellam/XMessageBox".

    [[nodiscard]] std::optional<QString> value(QAnyStringView keyPath);
    bool setValue(QAnyStringView keyPath, QAnyStringView text);
    /// Deletes a key with everything below it. True when it is gone, also when it never was.
    bool deleteKey(QAnyStringView keyPath);

    /// The user's way of writing numbers and dates: the group [intl], else `defaults`.
    [[nodiscard]] InternationalSettings international(const InternationalSettings& defaults);

  private:
    /// What tells one state of the file from the next.
    using Stamp = std::pair<QDateTime, qint64>;

    [[nodiscard]] Stamp stamp() const;
    QSettings& current();
    bool change(const std::function<void(QSettings&)>& edit);
    void keepOriginal();
    bool losesLines();
    void goOnInMemory();
    void tell(Notice notice, const QString& path);
    [[nodiscard]] QString valuePath(QAnyStringView section, QAnyStringView key) const;

    QString m_path;
    QString m_vendorKey;
    QString m_profileName;
    QString m_file;                        ///< m_path, or one that can never be a file
    std::unique_ptr<QSettings> m_settings; ///< reads; shares its content with those that write
    Stamp m_written;                       ///< of the file as the last write left it
    bool m_pending = false;                ///< values wait in memory as the file can't be written
    bool m_toldNotWritten = false;
    Listener m_listener;
    std::vector<std::pair<Notice, QString>> m_unheard;
};

/// The user's home folder: $HOME, else that of the user's account; empty when there is neither.
QString homeFolder();

} // namespace pellam
