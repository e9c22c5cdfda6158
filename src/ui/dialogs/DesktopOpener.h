#pragma once

#include <QObject>
#include <QString>

namespace pellam {

/// Opens files with the programs that the desktop uses for them. The program that opens a file
/// outlives this one.
class DesktopOpener : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    /// Hands the file over and returns at once; failed() follows when nothing could open it.
    void open(const QString& path);

  Q_SIGNALS:
    void failed(const QString& path);
};

} // namespace pellam
