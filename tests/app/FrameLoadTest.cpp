#include "FrameFixture.h"

#include "app/CPreferences.h"
#include "app/RecentFiles.h"
#include "ui/FolderEdit.h"
#include "ui/TabPages.h"
#include "views/CGridView.h"
#include "views/CTrendView.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>

namespace pellam {

using FrameLoadTest = FrameFixture;

static QString cell(CMainFrame& frame, int column, Row row) {
    CellBuffer buffer;
    const auto text = frame.data().text(column, row, buffer);
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

TEST_F(FrameLoadTest, TheCommandLinesFileIsOnTheGridOnceTheWindowIsShown) {
    auto& frame = start(csv());
    EXPECT_EQ(status(), "Rows: 2 | Channels: 2 | Bad lines: 0 | store.csv");
    EXPECT_EQ(frame.windowTitle(), u"store.csv - Pellam");
    EXPECT_EQ(cell(frame, 0, 1), u"2024/03/01 10:15:00");
    EXPECT_EQ(cell(frame, 2, 1), u"18.5");
}

TEST_F(FrameLoadTest, ChannelsAreOnAxesByTheirUnits) {
    auto& frame =
        start(write(QStringLiteral("units.csv"), "Time,T1 (C),Flow (l/s),T2 (C),Last (m)\r\n"
                                                 "2024/03/01 10:00:00,1,2,3,4\r\n"));
    std::string axes;
    for (int column = 1; column <= 4; ++column)
        axes += std::to_string(frame.data().column(column).axis());
    EXPECT_EQ(axes, "1211");
}

TEST_F(FrameLoadTest, OpeningTurnsToTheGrid) {
    auto& frame = start();
    frame.OnViewTrendchart();
    frame.OnLoadSessionFromFile(csv());
    EXPECT_EQ(frame.pages().activePage(), CMainFrame::kGridPage);
}

TEST_F(FrameLoadTest, QuotesAroundANameAreTakenOff) {
    auto& frame = start();
    frame.OnLoadSessionFromFile(u'"' + csv() + u'"');
    EXPECT_EQ(status(), "Rows: 2 | Channels: 2 | Bad lines: 0 | store.csv");
}

TEST_F(FrameLoadTest, AFileThatCannotBeOpenedLeavesAnEmptyGrid) {
    auto& frame = start(csv());
    const auto gone = path(QStringLiteral("gone.csv"));
    QString message;
    {
        DialogScript dialogs;
        dialogs.then<QMessageBox>([&](QMessageBox& box) {
            message = box.text();
            box.accept();
        });
        frame.OnLoadSessionFromFile(gone);
    }
    EXPECT_TRUE(message.contains(u"gone.csv")) << message.toStdString();
    EXPECT_EQ(status(), "");
    EXPECT_EQ(frame.windowTitle(), u"Pellam");
    EXPECT_EQ(frame.data().rowCount(), 0);
}

TEST_F(FrameLoadTest, ABinaryFileAsksForTheSaveFolderThatItIsConvertedInto) {
    auto& frame = start();
    m_settings->WriteProfileString("Default", "SaveDir", "");
    const auto file = path(QStringLiteral("gauge.dbd"));
    QFile::copy(QStringLiteral(PELLAM_SAMPLES "/tank-gauge.dbd"), file);
    QString message;
    {
        DialogScript dialogs;
        dialogs
            .then<QMessageBox>([&](QMessageBox& box) {
                message = box.text();
                box.accept();
            })
            .then<CPreferences>([this](CPreferences& preferences) {
                preferences.saveFolder()->setPath(m_home.path());
                preferences.accept();
            });
        frame.OnLoadSessionFromFile(file);
    }
    EXPECT_TRUE(message.startsWith(u"Warning: No default save directory")) << qPrintable(message);
    EXPECT_EQ(status(), "Rows: 300 | Channels: 5 | Bad lines: 0 | gauge.dbd");
    EXPECT_EQ(cell(frame, 4, 34), u"filling, pump 2");
    EXPECT_TRUE(read(path(QStringLiteral("gauge.csv"))).startsWith("Datetime,A.Level(m),"));
}

/// Drops on a widget and lets the window load what was dropped; whether the drop was taken.
static bool drop(QWidget& target, const QMimeData& data) {
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &enter);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    if (enter.isAccepted()) QApplication::sendEvent(&target, &drop);
    QTest::qWait(20);
    return enter.isAccepted() && drop.isAccepted();
}

template <class Page>
static QWidget* pageOf(CMainFrame& frame) {
    return frame.findChild<Page*>();
}

TEST_F(FrameLoadTest, OfSeveralFilesDroppedAnywhereTheFirstIsOpened) {
    auto& frame = start();
    for (QWidget* target :
         {static_cast<QWidget*>(&frame), pageOf<CGridView>(frame), pageOf<CTrendView>(frame)}) {
        const auto name = QString::fromLatin1(target->metaObject()->className()).section(u':', -1);
        QMimeData files;
        files.setUrls({QUrl::fromLocalFile(csv(name + QStringLiteral(".csv"))),
                       QUrl::fromLocalFile(csv(QStringLiteral("two.csv")))});
        EXPECT_TRUE(drop(*target, files));
        EXPECT_EQ(status(),
                  "Rows: 2 | Channels: 2 | Bad lines: 0 | " + name.toStdString() + ".csv");
    }
    EXPECT_EQ(frame.recentFiles().paths().size(), 3);
}

TEST_F(FrameLoadTest, ADroppedVirtualFileIsKeptInTheSaveFolderOrThatOfAFirstStart) {
    auto& frame = start();
    QMimeData file;
    file.setData(QStringLiteral("FileGroupDescriptor"),
                 QByteArray("\1\0\0\0", 4) + QByteArray(72, '\0') +
                     QByteArray("tank.dbd").leftJustified(260, '\0'));
    file.setData(QStringLiteral("FileContents"),
                 read(QStringLiteral(PELLAM_SAMPLES "/tank-gauge.dbd")));
    m_settings->WriteProfileString("Default", "SaveDir", "");
    {
        // Its conversion asks for the folder that is not set.
        DialogScript dialogs;
        dialogs.then<QMessageBox>([](QMessageBox& box) { box.accept(); })
            .then<CPreferences>([](CPreferences& preferences) { preferences.reject(); });
        EXPECT_TRUE(drop(*pageOf<CTrendView>(frame), file));
    }
    EXPECT_TRUE(QFile::exists(path(QStringLiteral("Documents/Korvane/Pellam/tank.dbd"))));
    m_settings->WriteProfileString("Default", "SaveDir", m_home.path().toStdString());
    EXPECT_TRUE(drop(*pageOf<CGridView>(frame), file));
    EXPECT_EQ(status(), "Rows: 300 | Channels: 5 | Bad lines: 0 | tank.dbd");
    EXPECT_TRUE(QFile::exists(path(QStringLiteral("tank.dbd"))));
}

TEST_F(FrameLoadTest, RecentFilesAreTheLastFourNewestFirst) {
    auto& frame = start();
    for (const auto* name : {"a", "b", "c", "d", "e", "c"})
        frame.OnLoadSessionFromFile(csv(QString::fromLatin1(name) + QStringLiteral(".csv")));
    QFile::remove(path(QStringLiteral("d.csv")));
    {
        DialogScript dialogs;
        dialogs.then<QMessageBox>([](QMessageBox& box) { box.accept(); });
        frame.OnLoadSessionFromFile(path(QStringLiteral("d.csv")));
    }
    QStringList texts;
    QMenu again;
    const RecentFiles kept(*m_settings, &again);
    for (const auto* action : again.actions())
        texts += QStringLiteral("%1 %2").arg(action->text()).arg(action->data().toInt());
    EXPECT_EQ(texts.join(u',').toStdString(), "&1 c.csv 57616,&2 e.csv 57617,&3 b.csv 57618")
        << "d, which is gone, was taken off; a had fallen off before";
    frame.actions().recentMenu()->actions().at(1)->trigger();
    QTest::qWait(20);
    EXPECT_EQ(frame.windowTitle(), u"e.csv - Pellam");
}

struct FolderCase {
    const char* name;
    const char* last;     ///< "MRUReplayDir"
    const char* standard; ///< "ReplayDir"
    const char* start;
};

TEST_F(FrameLoadTest, TheOpenDialogStartsWhereThePersonLeftAndRemembers) {
    const FolderCase cases[] = {
        {"last choice", "sub/old.dlr", "other/x", "sub"},
        {"standard folder", "", "other/x", "other"},
    };
    auto& frame = start();
    for (const auto* folder : {"sub", "other"})
        QDir(m_home.path()).mkdir(QString::fromLatin1(folder));
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        const auto whole = [&](const char* part) {
            return *part ? path(QString::fromLatin1(part)).toStdString() : std::string();
        };
        m_settings->WriteProfileString("Default", "MRUReplayDir", whole(row.last));
        m_settings->WriteProfileString("Default", "ReplayDir", whole(row.standard));
        const auto file = csv(QString::fromLatin1(row.start) + QStringLiteral("/new.csv"));
        DialogScript dialogs;
        dialogs.then<QFileDialog>([&](QFileDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"Select Replay File");
            EXPECT_EQ(dialog.directory().absolutePath().toStdString(), whole(row.start));
            dialog.findChild<QLineEdit*>()->setText(file);
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        give(Command::Open);
        EXPECT_EQ(setting("MRUReplayDir"), file.toStdString());
        EXPECT_EQ(frame.windowTitle(), u"new.csv - Pellam");
    }
}

TEST_F(FrameLoadTest, CancellingTheOpenDialogKeepsEverything) {
    auto& frame = start(csv());
    DialogScript dialogs;
    dialogs.then<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    give(Command::Open);
    EXPECT_EQ(frame.windowTitle(), u"store.csv - Pellam");
    EXPECT_EQ(setting("MRUReplayDir"), "");
}

TEST_F(FrameLoadTest, TheFirstStartMakesTheSaveFolder) {
    start();
    const auto folder = path(QStringLiteral("Documents/Korvane/Pellam"));
    EXPECT_EQ(setting("SaveDir"), folder.toStdString());
    EXPECT_TRUE(QDir(folder).exists());
}

TEST_F(FrameLoadTest, AStoredSaveFolderIsNeverReplaced) {
    m_settings->WriteProfileString("Default", "SaveDir", "/nowhere/at/all");
    start();
    EXPECT_EQ(setting("SaveDir"), "/nowhere/at/all");
    EXPECT_FALSE(QDir(path(QStringLiteral("Documents"))).exists());
}

TEST_F(FrameLoadTest, SizeAndPlaceOfTheWindowComeBack) {
    start().resize(777, 555);
    QTest::qWait(10);
    frame().close();
    EXPECT_FALSE(m_app->GetProfileBinary(QStringLiteral("Default"), QStringLiteral("WindowPlace"))
                     .isEmpty());
    m_app = std::make_unique<CLumasetApp>(*m_settings);
    EXPECT_EQ(start().size(), QSize(777, 555));
}

TEST_F(FrameLoadTest, WhileALoadRunsAnotherIsRefusedAndClosingWaits) {
    auto& frame = start();
    DialogScript dialogs;
    dialogs.then<QMessageBox>([&](QMessageBox& box) {
        frame.OnLoadSessionFromFile(csv());
        EXPECT_EQ(status(), "") << "the load that runs is still in its message";
        frame.close();
        EXPECT_TRUE(frame.isVisible());
        box.accept();
    });
    frame.OnLoadSessionFromFile(path(QStringLiteral("gone.csv")));
    EXPECT_FALSE(frame.isVisible()) << "closed once the load had ended";
}

} // namespace pellam
