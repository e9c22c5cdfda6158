#include "drop/IncomingFile.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pellam {

namespace {

constexpr int kMostCopies = 10000;
constexpr qsizetype kLongestName = 245; // bytes: a number for a copy fits within the usual 255

/// "data.dlr", "data (2).dlr", "data (3).dlr", ...
QString numbered(const QString& name, int number) {
    if (number == 1) return name;
    const qsizetype point = name.lastIndexOf(u'.');
    const qsizetype end = point > 0 ? point : name.size();
    return name.left(end) + QStringLiteral(" (%1)").arg(number) + name.mid(end);
}

bool isDevice(const QString& name) {
    static const QRegularExpression devices(
        QStringLiteral("^(con|prn|aux|nul|clock\\$|conin\\$|conout\\$|"
                       "(com|lpt)[0-9\u00B9\u00B2\u00B3])[ .]*(\\.|$)"),
        QRegularExpression::CaseInsensitiveOption);
    return devices.match(name).hasMatch();
}

} // namespace

bool IncomingFile::isFileName(const QString& name) {
    // With a point in front a name may be one that other programs read unasked.
    if (name.isEmpty() || name.startsWith(u'.')) return false;
    if (QFile::encodeName(name).size() > kLongestName) return false;
    for (const QChar c : name) {
        if (c == u'/' || c == u'\\' || c.category() == QChar::Other_Control) return false;
    }
    const bool drive = name.size() > 1 && name[1] == u':' && name[0].isLetter();
    return !drive && !isDevice(name);
}

bool IncomingFile::open(const QString& folder, const QString& name) {
    if (folder.isEmpty() || !isFileName(name)) return false;
    m_folder = folder;
    m_name = name;
    m_temporary = std::make_unique<QTemporaryDir>(folder + QStringLiteral("/.pellam-XXXXXX"));
    return m_temporary->isValid();
}

QString IncomingFile::temporaryPath() const {
    return m_temporary->filePath(m_name);
}

Failure IncomingFile::place(QString& path) {
    const QByteArray from = QFile::encodeName(temporaryPath());
    for (int number = 1; number <= kMostCopies; ++number) {
        path = m_folder + u'/' + numbered(m_name, number);
        const QByteArray to = QFile::encodeName(path);
        // An empty file of ours holds the place, so that no other file can be replaced.
        const int holder = ::open(to.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (holder < 0 && errno == EEXIST) continue;
        if (holder < 0) return Failure::fromErrno(Failure::Kind::Write, to.toStdString(), errno);
        ::close(holder);
        if (::rename(from.constData(), to.constData()) == 0) return {};
        Failure failure = Failure::fromErrno(Failure::Kind::Write, to.toStdString(), errno);
        ::unlink(to.constData());
        return failure;
    }
    path = m_folder + u'/' + m_name;
    return Failure::fromErrno(Failure::Kind::Write, QFile::encodeName(path).toStdString(), EEXIST);
}

} // namespace pellam
