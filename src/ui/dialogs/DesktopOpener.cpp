#include "ui/dialogs/DesktopOpener.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <unistd.h>

#include <vector>

namespace pellam {

namespace {

// Nobody owns them: a process that is deleted is killed, and with it the program it has started.
// The list is never freed, so that those still running at the end of this program are known to the
// last.
std::vector<const QObject*>& running() {
    static auto* const processes = new std::vector<const QObject*>;
    return *processes;
}

} // namespace

// The toolkit's own way does not say whether any program was found.
void DesktopOpener::open(const QString& path) {
    const auto opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (opener.isEmpty()) {
        if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path))) Q_EMIT failed(path);
        return;
    }
    auto* process = new QProcess;
    running().push_back(process);
    connect(process, &QObject::destroyed,
            [](const QObject* ended) { std::erase(running(), ended); });
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
