#include "settings/SettingsStore.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <pwd.h>
#include <unistd.h>

namespace pellam {

namespace {

/// A path below a file can be neither read nor written: what QSettings would block at, take as a
/// whole into memory or replace (devices, pipes, data files) never gets into its hands.
QString unreachable(const QString& path) {
    return path + QStringLiteral("/none");
}

QString reachable(const QString& path) {
    const QFileInfo info(path);
    const bool strange = info.exists() && !info.isDir() &&
                         (!info.isFile() || info.size() > SettingsStore::kMaximumSize);
    return strange ? unreachable(path) : path;
}

/// Nothing for values of other kinds (fonts, sizes, an invalid value).
std::optional<QString> textOf(const QVariant& value) {
    // Commas that nobody quoted make a list in files written by hand.
    if (value.typeId() == QMetaType::QStringList) return value.toStringList().join(u',');
    if (!value.canConvert<QString>()) return std::nullopt;
    return value.toString();
}

/// The private profile's form of binary data: two letters a byte, 'A' plus the high four bits, then
/// 'A' plus the low four.
QString lettersOf(const QByteArray& data) {
    QString letters;
    for (const char c : data) {
        const auto byte = static_cast<unsigned char>(c);
        letters += QLatin1Char(static_cast<char>('A' + (byte >> 4U)));
        letters += QLatin1Char(static_cast<char>('A' + (byte & 0xFU)));
    }
    return letters;
}

QByteArray bytesOf(const QString& letters) {
    const auto strange = [](QChar c) { return c < u'A' || c > u'P'; };
    if (std::any_of(letters.begin(), letters.end(), strange)) return {};
    const QByteArray codes = letters.toLatin1();
    QByteArray data("");
    for (qsizetype i = 0; i + 1 < codes.size(); i += 2)
        data += static_cast<char>((codes[i] - 'A') << 4 | (codes[i + 1] - 'A'));
    return data;
}

void copyValues(const QSettings& from, QSettings& to) {
    for (const QString& key : from.allKeys())
        if (!key.isEmpty()) to.setValue(key, from.value(key)); // "=x" of a damaged file has none
}

/// The lines of a file that say something, sorted.
QList<QByteArray> linesOf(const QString& path) {
    QList<QByteArray> lines;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return lines;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (!line.trimmed().isEmpty()) lines += line.trimmed();
    std::sort(lines.begin(), lines.end());
    return lines;
}

/// Copies a file to a name of its own beside it, and gives that; empty when it can't be done.
QString copyBeside(const QString& path) {
    const auto lines = linesOf(path);
    const QString first = path + QStringLiteral(".bak");
    QString name = first;
    for (int number = 2; QFileInfo::exists(name) && linesOf(name) != lines; ++number)
        name = first + QString::number(number);
    return QFileInfo::exists(name) || QFile::copy(path, name) ? name : QString();
}

} // namespace

QString homeFolder() {
    const QString home = qEnvironmentVariable("HOME");
    if (!home.isEmpty()) return home;
    const passwd* const user = ::getpwuid(::getuid());
    return user != nullptr ? QFile::decodeName(user->pw_dir) : QString();
}

SettingsStore::SettingsStore(QString path, QString vendorKey, QString profileName)
    : m_path(std::move(path)),
      m_vendorKey(std::move(vendorKey)),
      m_profileName(std::move(profileName)),
      m_file(reachable(m_path)),
      m_settings(std::make_unique<QSettings>(m_file, QSettings::IniFormat)) {}

QString SettingsStore::defaultPath() {
    const QString configured = qEnvironmentVariable("XDG_CONFIG_HOME");
    const bool usable = configured.startsWith(u'/');
    return (usable ? configured : homeFolder() + QStringLiteral("/.config")) +
           QStringLiteral("/Korvane/Pellam.ini");
}

void SettingsStore::setListener(Listener listener) {
    m_listener = std::move(listener);
    if (!m_listener) return;
    for (const auto& [notice, path] : std::exchange(m_unheard, {}))
        m_listener(notice, path);
}

void SettingsStore::tell(Notice notice, const QString& path) {
    if (notice == Notice::NotWritten && std::exchange(m_toldNotWritten, true)) return;
    if (!m_listener) return m_unheard.emplace_back(notice, path), void();
    m_listener(notice, path);
}

QString SettingsStore::GetAppRegistryKey() const {
    if (m_vendorKey.isEmpty()) return {};
    return QStringLiteral("software/") + m_vendorKey + u'/' + m_profileName;
}

QString SettingsStore::GetSectionKey(QAnyStringView section) const {
    const QString application = GetAppRegistryKey();
    return application.isEmpty() ? section.toString() : application + u'/' + section.toString();
}

QString SettingsStore::valuePath(QAnyStringView section, QAnyStringView key) const {
    return GetSectionKey(section) + u'/' + key.toString();
}

int SettingsStore::GetProfileInt(QAnyStringView section, QAnyStringView key, int fallback) {
    bool isNumber = false;
    const int number = GetProfileString(section, key).toInt(&isNumber);
    return isNumber ? number : fallback;
}

QString SettingsStore::GetProfileString(QAnyStringView section, QAnyStringView key,
                                        const QString& fallback) {
    return value(valuePath(section, key)).value_or(fallback);
}

QByteArray SettingsStore::GetProfileBinary(QAnyStringView section, QAnyStringView key) {
    const QVariant value = current().value(valuePath(section, key));
    if (m_vendorKey.isEmpty()) return value.isValid() ? bytesOf(value.toString()) : QByteArray();
    return value.typeId() == QMetaType::QByteArray ? value.toByteArray() : QByteArray();
}

bool SettingsStore::WriteProfileInt(QAnyStringView section, QAnyStringView key, int value) {
    return setValue(valuePath(section, key), QString::number(value));
}

bool SettingsStore::WriteProfileString(QAnyStringView section, QAnyStringView key,
                                       QAnyStringView text) {
    return setValue(valuePath(section, key), text);
}

bool SettingsStore::WriteProfileBinary(QAnyStringView section, QAnyStringView key,
                                       const QByteArray& data) {
    const QString path = valuePath(section, key);
    if (m_vendorKey.isEmpty()) return setValue(path, lettersOf(data));
    return change([&](QSettings& file) { file.setValue(path, data); });
}

std::optional<QString> SettingsStore::value(QAnyStringView keyPath) {
    return textOf(current().value(keyPath.toString()));
}

bool SettingsStore::setValue(QAnyStringView keyPath, QAnyStringView text) {
    return change([&](QSettings& file) { file.setValue(keyPath.toString(), text.toString()); });
}

bool SettingsStore::deleteKey(QAnyStringView keyPath) {
    return change([&](QSettings& file) { file.remove(keyPath.toString()); });
}

InternationalSettings SettingsStore::international(const InternationalSettings& defaults) {
    const auto stored = [this](std::string_view key) -> std::optional<std::string> {
        const auto text = value(QStringLiteral("intl/") +
                                QLatin1String(key.data(), static_cast<qsizetype>(key.size())));
        if (!text) return std::nullopt;
        // In "sList=;" without quotes, QSettings takes the character for the start of a comment.
        return key == "sList" && text->isEmpty() ? ";" : text->toStdString();
    };
    return InternationalSettings::read(stored, defaults);
}

SettingsStore::Stamp SettingsStore::stamp() const {
    const QFileInfo info(m_file);
    return {info.lastModified(), info.size()};
}

QSettings& SettingsStore::current() {
    if (!m_pending) m_settings->sync(); // while values wait, it would write them
    return *m_settings;
}

bool SettingsStore::change(const std::function<void(QSettings&)>& edit) {
    keepOriginal();
    // Its status is its own; m_settings keeps that of the first damaged line for ever.
    QSettings writer(m_file, QSettings::IniFormat);
    edit(writer);
    writer.sync();
    m_pending = writer.status() == QSettings::AccessError;
    if (m_pending) tell(Notice::NotWritten, m_path);
    m_written = stamp();
    return !m_pending;
}

/// Before the first write to a file that others wrote: QSettings drops comments and what it does
/// not understand.
void SettingsStore::keepOriginal() {
    if (!QFileInfo::exists(m_file) || stamp() == m_written || !losesLines()) return;
    const QString copy = copyBeside(m_file);
    if (copy.isEmpty()) return goOnInMemory();
    tell(Notice::KeptBeside, copy);
}

bool SettingsStore::losesLines() {
    const QTemporaryDir folder;
    const QString rewritten = folder.filePath(QStringLiteral("rewritten.ini"));
    {
        QSettings copy(rewritten, QSettings::IniFormat);
        copyValues(current(), copy);
    }
    const auto before = linesOf(m_file);
    const auto after = linesOf(rewritten);
    return !std::includes(after.begin(), after.end(), before.begin(), before.end());
}

void SettingsStore::goOnInMemory() {
    m_file = unreachable(m_path);
    auto memory = std::make_unique<QSettings>(m_file, QSettings::IniFormat);
    copyValues(*m_settings, *memory);
    m_settings = std::move(memory);
}

} // namespace pellam
