#include "ui/DesktopOpener.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <unistd.h>

namespace pellam {

// The toolkit's own way does not say whether any program was found.
void DesktopOpener::open(const QString& path) {
    const auto opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (opener.isEmpty()) {
        if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path))) Q_EMIT failed(path);
        return;
    }
    // Nobody owns it: a process that is deleted is killed, and with it the program it has started.
    auto* process = new QProcess;
    connect(process, &QProcess::finished, this, [this, path](int code, QProcess::ExitStatus how) {
        if (code != 0 || how != QProcess::NormalExit) Q_EMIT failed(path);
    });
    connect(process, &QProcess::finished, process, &QObject::deleteLater);
    connect(process, &QProcess::errorOccurred, this,
            [this, path, process](QProcess::ProcessError error) {
                if (error != QProcess::FailedToStart) return;
                process->deleteLater();
                Q_EMIT failed(path);
            });
    process->setProcessChannelMode(QProcess::ForwardedChannels);
    process->setStandardInputFile(QProcess::nullDevice());
    process->setChildProcessModifier([] { ::setsid(); });
    process->start(opener, {path});
}

} // namespace pellam
