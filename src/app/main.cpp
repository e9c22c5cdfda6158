#include "app/batch/BatchCommand.h"
#include "app/batch/CommandLine.h"
#include "app/frame/CLumasetApp.h"
#include "settings/SettingsStore.h"
#include "ui/icons/ToolkitStyle.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <cstdio>
#include <cstdlib>

static bool hasDisplay() {
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

static QtMessageHandler earlierHandler = nullptr;

/// On a display that can't be used the toolkit would end the program by a signal.
static void endWithoutWindow(QtMsgType type, const QMessageLogContext& context,
                             const QString& text) {
    if (type != QtFatalMsg) return earlierHandler(type, context, text);
    std::fputs("pellam: no window can be opened on this display; --help tells what works without "
               "one\n",
               stderr);
    std::_Exit(pellam::kFailed);
}

static pellam::CLumasetApp::First firstOf(pellam::FirstDialog dialog) {
    using First = pellam::CLumasetApp::First;
    return dialog == pellam::FirstDialog::File      ? First::AskForFile
           : dialog == pellam::FirstDialog::Session ? First::AskForSession
                                                    : First::LoadFile;
}

int main(int argc, char** argv) {
    using namespace pellam;
    std::signal(SIGPIPE, SIG_IGN); // a reader that goes away makes the write fail instead
    std::signal(SIGXFSZ, SIG_IGN); // a file that outgrows its limit makes the write fail instead
    const auto line = CommandLine::parse(argc, argv);
    if (!line.wantsWindow()) return runBatch(line);
    if (!hasDisplay()) {
        std::fputs("pellam: there is no display to open a window on; --help tells what works "
                   "without one\n",
                   stderr);
        return kFailed;
    }

    earlierHandler = qInstallMessageHandler(endWithoutWindow);
    QApplication application(argc, argv);
    qInstallMessageHandler(nullptr);
    QApplication::setStyle(new ToolkitStyle);
    QApplication::setApplicationName(QStringLiteral("Pellam"));
    QApplication::setApplicationVersion(QStringLiteral(PELLAM_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("pellam"));
    const auto named = QFile::decodeName(line.settings.c_str());
    if (!named.isEmpty() && !QFileInfo::exists(named))
        std::fprintf(stderr, "pellam: there is no settings file %s yet\n", line.settings.c_str());
    SettingsStore settings(named.isEmpty() ? SettingsStore::defaultPath() : named);
    CLumasetApp app(settings);
    if (!app.InitInstance(QString::fromLocal8Bit(line.file.c_str()), firstOf(line.dialog)))
        return kFailed;
    return QApplication::exec();
}
