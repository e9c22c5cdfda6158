#pragma once

#include "DialogScript.h"
#include "UntilIdle.h"
#include "app/frame/CLumasetApp.h"
#include "app/frame/CMainFrame.h"
#include "app/frame/FrameActions.h"
#include "app/frame/FrameStatusBar.h"
#include "settings/SettingsStore.h"
#include "ui/commands/CommandIds.h"

namespace pellam {

/// The whole main window on settings and folders of its own.
class FrameFixture : public testing::Test {
  protected:
    void SetUp() override {
        qputenv("HOME", m_home.path().toUtf8());
        m_settings = std::make_unique<SettingsStore>(m_home.filePath(QStringLiteral("p.ini")));
        m_app = std::make_unique<CLumasetApp>(*m_settings);
    }

    /// Starts up as the program does, with an optional file named on the command line.
    CMainFrame& start(const QString& file = {}) {
        EXPECT_TRUE(m_app->InitInstance(file));
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_app->mainFrame()));
        untilIdle();
        return *m_app->mainFrame();
    }

    CMainFrame& frame() { return *m_app->mainFrame(); }

    QString path(const QByteArray& name) const { return m_home.filePath(QString::fromUtf8(name)); }

    /// Writes a file into the home folder and gives its path.
    QString write(const QByteArray& name, const QByteArray& content) const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName();
    }

    static QByteArray read(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }

    /// A small delimited file with two channels.
    QString csv(const QByteArray& name = "store.csv") const {
        return write(name, "Time,Level (m),Flow (l/s)\r\n"
                           "2024/03/01 10:00:00,4.25,17\r\n"
                           "2024/03/01 10:15:00,4.31,18.5\r\n");
    }

    void give(Command command) { frame().actions().action(command)->trigger(); }

    /// What the status bar's fields say, in one line.
    std::string status() {
        return frame().statusFields().texts().join(QStringLiteral(" | ")).toStdString();
    }

    std::string setting(const char* key) {
        return m_settings->GetProfileString("Default", key).toStdString();
    }

    QTemporaryDir m_home;
    std::unique_ptr<SettingsStore> m_settings;
    std::unique_ptr<CLumasetApp> m_app;
};

} // namespace pellam
