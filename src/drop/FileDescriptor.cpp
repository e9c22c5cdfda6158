#include "drop/FileDescriptor.h"

#include "base/Utf8.h"

#include <QtEndian>

#include <algorithm>

namespace pellam {

namespace {

constexpr qsizetype kCountSize = 4;
constexpr qsizetype kSizeOffset = 68; // of nFileSizeLow within a descriptor
constexpr qsizetype kNameOffset = 72;
constexpr qsizetype kNameLength = 260; // characters, the closing NUL included

QString narrowName(QByteArrayView field) {
    const std::string_view bytes(field.data(), static_cast<std::size_t>(field.size()));
    return QString::fromStdString(toUtf8(bytes.substr(0, bytes.find('\0'))));
}

QString wideName(QByteArrayView field) {
    QString name;
    for (qsizetype i = 0; i + 1 < field.size(); i += 2) {
        const QChar unit(qFromLittleEndian<char16_t>(field.data() + i));
        if (unit.isNull()) break;
        name += unit;
    }
    return name;
}

} // namespace

std::optional<FileDescriptor> FileDescriptor::first(QByteArrayView group, Names names) {
    const bool wide = names == Names::Wide;
    const qsizetype nameSize = kNameLength * (wide ? 2 : 1);
    if (group.size() < kCountSize + kNameOffset + nameSize) return std::nullopt;
    if (qFromLittleEndian<quint32>(group.data()) == 0) return std::nullopt;
    const char* const descriptor = group.data() + kCountSize;
    const QByteArrayView field(descriptor + kNameOffset, nameSize);
    FileDescriptor file{wide ? wideName(field) : narrowName(field),
                        qFromLittleEndian<quint32>(descriptor + kSizeOffset)};
    if (file.name.isEmpty()) return std::nullopt;
    return file;
}

} // namespace pellam
