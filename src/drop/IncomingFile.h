#pragma once

#include "base/Failure.h"

#include <QString>
#include <QTemporaryDir>

#include <memory>

namespace pellam {

/// A file on its way into a folder, under a name that another program chose. It is written in a
/// hidden folder of its own there, and moves to its place only once it is whole; until then, and
/// after any failure, the folder's files are as they were.
class IncomingFile {
  public:
    /// Starts a file of this name. False when the name is refused (see isFileName) or the folder
    /// takes no file.
    [[nodiscard]] bool open(const QString& folder, const QString& name);

    /// Where to write the file; after open().
    [[nodiscard]] QString temporaryPath() const;

    /// Moves the file to its place and gives its path there. A name that is taken gets " (2)",
    /// " (3)" and so on before its extension: nothing is ever replaced.
    [[nodiscard]] Failure place(QString& path);

    /// Whether a text is the name of a file and nothing else: no folder or drive part, no "..", no
    /// control characters, no name of a device of any system, and not too long for one.
    static bool isFileName(const QString& name);

  private:
    QString m_folder;
    QString m_name;
    std::unique_ptr<QTemporaryDir> m_temporary;
};

} // namespace pellam
