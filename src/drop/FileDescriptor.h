#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

namespace pellam {

/// The first file of a "FileGroupDescriptor", with which a program offers files that it has not on
/// disk: a 32-bit count, then one FILEDESCRIPTOR structure a file, all little-endian.
struct FileDescriptor {
    QString name;     ///< as the program wrote it: not checked, never empty
    quint32 size = 0; ///< low 32 bits of the size in bytes; programs may leave it at 0

    /// How the structure holds the name: 260 bytes (UTF-8 where valid, else Windows-1252) or 260
    /// UTF-16 units.
    enum class Names { Narrow, Wide };

    /// Nothing when the group is empty, cut off before the end of its first descriptor, or has no
    /// name there.
    static std::optional<FileDescriptor> first(QByteArrayView group, Names names);
};

} // namespace pellam
