#include "FrameFixture.h"

#include "app/dialogs/CPreferences.h"
#include "app/dialogs/PropertiesDialog.h"
#include "app/frame/RecentFiles.h"
#include "ui/dialogs/FolderEdit.h"
#include "ui/dialogs/TabPages.h"
#include "views/chart/CTrendView.h"
#include "views/grid/CGridView.h"
#include "views/grid/MyCug.h"
#include "views/sheet/GridModel.h"

using namespace Qt::StringLiterals;

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

TEST_F(FrameLoadTest, OpeningTakesQuotesOffANameAndTurnsToTheGrid) {
    auto& frame = start();
    frame.OnViewTrendchart();
    frame.OnLoadSessionFromFile(u'"' + csv() + u'"');
    EXPECT_EQ(status(), "Rows: 2 | Channels: 2 | Bad lines: 0 | store.csv");
    EXPECT_EQ(frame.pages().activePage(), CMainFrame::kGridPage);
}

TEST_F(FrameLoadTest, AFileThatCannotBeOpenedLeavesAnEmptyGrid) {
    auto& frame = start(csv());
    std::string message;
    {
        DialogScript dialogs;
        dialogs.thenMessage(&message);
        frame.OnLoadSessionFromFile(path("gone.csv"));
    }
    EXPECT_NE(message.find("gone.csv"), std::string::npos) << message;
    EXPECT_EQ(status(), "");
    EXPECT_EQ(frame.windowTitle(), u"Pellam");
    EXPECT_EQ(frame.data().rowCount(), 0);
}

TEST_F(FrameLoadTest, ChangedCellsAreNotLostWithoutAQuestion) {
    const auto file = csv();
    auto& frame = start(file);
    auto& cells = frame.Grid()->gridModel();
    const auto type = [&](const char* text) {
        cells.setData(cells.index(1, 1), QString::fromUtf8(text));
    };
    EXPECT_EQ(frame.windowTitle(), u"store.csv - Pellam"_s);
    type("9");
    EXPECT_EQ(frame.windowTitle(), u"store.csv (modified) - Pellam"_s);
    {
        DialogScript dialogs;
        const auto cancel = [](QMessageBox& box) { box.button(QMessageBox::Cancel)->click(); };
        dialogs.then<QMessageBox>(cancel).then<QMessageBox>(cancel);
        EXPECT_FALSE(frame.close());
        frame.OnLoadSessionFromFile(file);
    }
    EXPECT_EQ(cells.index(1, 1).data().toString(), u"9"_s);

    // What was exported is not lost; a change after that would be.
    cells.setAllCharted(true);
    cells.setCharted(2, 2, true);
    frame.ExportCSV(path("kept.csv"));
    frame.OnLoadSessionFromFile(file);
    EXPECT_EQ(cells.index(1, 1).data().toString(), u"4.25"_s);
    type("9");
    untilIdle();
    give(Command::RevertToFile);
    EXPECT_EQ(cells.index(1, 1).data().toString(), u"4.25"_s);
    EXPECT_EQ(frame.windowTitle(), u"store.csv - Pellam"_s);
    type("8");
    DialogScript dialogs;
    dialogs.then<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Discard)->click(); });
    EXPECT_TRUE(frame.close());
}

TEST_F(FrameLoadTest, WhatWasPassedOverIsToldWithItsDetails) {
    const QByteArray d = "D,1,2008/02/25,12:00:00,0.0,1:A,0,1";
    const auto file =
        write("a.dlr", "Desc \"Mast <7>\"\n"
                       "S,0,0,10:0,1989,1,0,\"\",<A,\"1S\",G,<\"a\",\"u\",0,0,8,4,1>>:\n" +
                           d + "\n" + d + "\n");
    auto& frame = start();
    EXPECT_FALSE(frame.actions().action(Command::Properties)->isEnabled());
    frame.OnLoadSessionFromFile(file);
    EXPECT_EQ(status(), "Rows: 1 | Channels: 1 | Bad lines: 0 | "
                        "Passed over: 1 repeated line (in line 4) | a.dlr");
    QString marked;
    QString all;
    {
        DialogScript dialogs;
        dialogs
            .then<PropertiesDialog>([&](PropertiesDialog& dialog) {
                marked = dialog.text();
                dialog.reject();
            })
            .then<PropertiesDialog>([&](PropertiesDialog& dialog) {
                QTest::keyClick(dialog.focusWidget(), Qt::Key_A, Qt::ControlModifier);
                QTest::keyClick(dialog.focusWidget(), Qt::Key_C, Qt::ControlModifier);
                all = QApplication::clipboard()->text();
                dialog.reject();
            });
        auto* details = frame.statusBar()->findChild<QPushButton*>();
        ASSERT_TRUE(details && details->isVisible());
        details->click();
        give(Command::Properties);
    }
    EXPECT_EQ(marked, u"Passed over\t1 repeated line (in line 4)\n");
    EXPECT_TRUE(all.contains(u"Description\tMast <7>\n")) << all.toStdString();
    EXPECT_TRUE(all.endsWith(u"Channel\tA.a(u)\n")) << all.toStdString();
    frame.OnLoadSessionFromFile(csv());
    EXPECT_FALSE(frame.statusBar()->findChild<QPushButton*>()->isVisible());
}

TEST_F(FrameLoadTest, ABinaryFileAsksForTheSaveFolderThatItIsConvertedInto) {
    auto& frame = start();
    m_settings->WriteProfileString("Default", "SaveDir", "");
    const auto file = path("gauge.dbd");
    QFile::copy(QStringLiteral(PELLAM_SAMPLES "/tank-gauge.dbd"), file);
    std::string message;
    {
        DialogScript dialogs;
        dialogs.thenMessage(&message).then<CPreferences>([this](CPreferences& preferences) {
            preferences.saveFolder()->setPath(m_home.path());
            preferences.accept();
        });
        frame.OnLoadSessionFromFile(file);
    }
    EXPECT_TRUE(message.starts_with("Warning: No default save directory")) << message;
    EXPECT_EQ(status(), "Rows: 300 | Channels: 5 | Bad lines: 0 | gauge.dbd");
    EXPECT_EQ(cell(frame, 4, 34), u"filling, pump 2");
    EXPECT_TRUE(read(path("gauge.csv")).startsWith("Datetime,A.Level(m),"));
}

/// Drops on a widget and lets the window load what was dropped; whether the drop was taken.
static bool drop(QWidget& target, const QMimeData& data) {
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &enter);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    if (enter.isAccepted()) QApplication::sendEvent(&target, &drop);
    untilIdle();
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
        const auto name = QByteArray(target->metaObject()->className()).mid(8) + ".csv"; // pellam::
        QMimeData files;
        files.setUrls({QUrl::fromLocalFile(csv(name)), QUrl::fromLocalFile(csv("two.csv"))});
        EXPECT_TRUE(drop(*target, files));
        EXPECT_EQ(status(), "Rows: 2 | Channels: 2 | Bad lines: 0 | " + name.toStdString());
    }
    EXPECT_EQ(frame.recentFiles().paths().size(), 3);
}

TEST_F(FrameLoadTest, ADroppedVirtualFileIsKeptInTheSaveFolderOrThatOfAFirstStart) {
    auto& frame = start();
    QMimeData file;
    file.setData(u"FileGroupDescriptor"_s, QByteArray("\1\0\0\0", 4) + QByteArray(72, '\0') +
                                               QByteArray("tank.dbd").leftJustified(260, '\0'));
    file.setData(u"FileContents"_s, read(QStringLiteral(PELLAM_SAMPLES "/tank-gauge.dbd")));
    m_settings->WriteProfileString("Default", "SaveDir", "");
    {
        // Its conversion asks for the folder that is not set.
        DialogScript dialogs;
        dialogs.thenMessage().then<CPreferences>([](CPreferences& dialog) { dialog.reject(); });
        EXPECT_TRUE(drop(*pageOf<CTrendView>(frame), file));
    }
    EXPECT_TRUE(QFile::exists(path("Documents/Korvane/Pellam/tank.dbd")));
    m_settings->WriteProfileString("Default", "SaveDir", m_home.path().toStdString());
    EXPECT_TRUE(drop(*pageOf<CGridView>(frame), file));
    EXPECT_EQ(status(), "Rows: 300 | Channels: 5 | Bad lines: 0 | tank.dbd");
    EXPECT_TRUE(QFile::exists(path("tank.dbd")));
}

TEST_F(FrameLoadTest, RecentFilesAreTheLastFourNewestFirst) {
    auto& frame = start();
    for (const auto* name : {"a", "b", "c", "d", "e", "c"})
        frame.OnLoadSessionFromFile(csv(QByteArray(name) + ".csv"));
    QFile::remove(path("d.csv"));
    {
        DialogScript dialogs;
        dialogs.thenMessage();
        frame.OnLoadSessionFromFile(path("d.csv"));
    }
    QStringList texts;
    QMenu again;
    const RecentFiles kept(*m_settings, &again);
    for (const auto* action : again.actions())
        texts += u"%1 %2"_s.arg(action->text()).arg(action->data().toInt());
    EXPECT_EQ(texts.join(u',').toStdString(), "&1 c.csv 57616,&2 e.csv 57617,&3 b.csv 57618")
        << "d, which is gone, was taken off; a had fallen off before";
    frame.actions().recentMenu()->actions().at(1)->trigger();
    untilIdle();
    EXPECT_EQ(frame.windowTitle(), u"e.csv - Pellam");
}

TEST_F(FrameLoadTest, ATextOfAnyNameIsOneAgainAmongTheRecentFiles) {
    auto& frame = start();
    const QString file = csv("mast.dat");
    frame.recentFiles().add(file, true);
    frame.actions().recentMenu()->actions().at(0)->trigger();
    untilIdle();
    EXPECT_EQ(frame.windowTitle(), u"mast.dat - Pellam");
    EXPECT_TRUE(RecentFiles(*m_settings, std::make_unique<QMenu>().get()).isText(file));
}

TEST_F(FrameLoadTest, WindowsOnOneSettingsFileKeepEachOthersRecentFiles) {
    QMenu menus[2];
    SettingsStore other(m_settings->path());
    RecentFiles first(*m_settings, &menus[0]);
    RecentFiles second(other, &menus[1]);
    for (const auto* name : {"/a", "/b", "/c"})
        first.add(QString::fromLatin1(name));
    second.add(u"/d"_s);
    first.add(u"/b"_s);
    second.remove(u"/a"_s);
    EXPECT_EQ(second.paths().join(u' '), u"/b /d /c");
    EXPECT_EQ(menus[1].actions().size(), 3);
}

TEST_F(FrameLoadTest, SettingsThatCanNotBeWrittenAreToldOnceAndStayForTheSession) {
    write("plain", "x");
    m_settings = std::make_unique<SettingsStore>(path("plain/p.ini"));
    m_app = std::make_unique<CLumasetApp>(*m_settings);
    DialogScript dialogs;
    std::string message;
    dialogs.thenMessage(&message);
    auto& frame = start();
    const auto file = path("gauge.dbd");
    QFile::copy(QStringLiteral(PELLAM_SAMPLES "/tank-gauge.dbd"), file);
    frame.OnLoadSessionFromFile(file);
    EXPECT_EQ(message, "") << "a dialog amid a load takes no keys";
    EXPECT_EQ(status(), "Rows: 300 | Channels: 5 | Bad lines: 0 | gauge.dbd");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !message.empty(); }));
    EXPECT_EQ(message, "Warning: The settings can not be written to " +
                           path("plain/p.ini").toStdString() +
                           ". What you change is kept until Pellam is closed.");
    give(Command::Sidebar);
    EXPECT_EQ(setting("SideBarWidth"), "0");
    EXPECT_EQ(frame.recentFiles().paths(), QStringList{file});
    frame.close();
}

TEST_F(FrameLoadTest, TheOpenDialogStartsWhereThePersonLeftAndRemembers) {
    // last: "MRUReplayDir"; standard: "ReplayDir"
    const Table<const char*, const char*, const char*, const char*> cases = {
        {"last choice", "sub/old.dlr", "other/x", "sub"},
        {"standard folder", "", "other/x", "other"},
    };
    auto& frame = start();
    for (const auto* folder : {"sub", "other"})
        QDir(m_home.path()).mkdir(QString::fromLatin1(folder));
    for (const auto& [name, last, standard, start] : cases) {
        SCOPED_TRACE(name);
        const auto whole = [&](const char* part) {
            return *part ? path(part).toStdString() : std::string();
        };
        m_settings->WriteProfileString("Default", "MRUReplayDir", whole(last));
        m_settings->WriteProfileString("Default", "ReplayDir", whole(standard));
        const auto file = csv(QByteArray(start) + "/new.csv");
        DialogScript dialogs;
        dialogs.then<QFileDialog>([&](QFileDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"Select Replay File");
            EXPECT_EQ(dialog.directory().absolutePath().toStdString(), whole(start));
            dialog.findChild<QLineEdit*>()->setText(file);
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        give(Command::Open);
        EXPECT_EQ(setting("MRUReplayDir"), file.toStdString());
        EXPECT_EQ(frame.windowTitle(), u"new.csv - Pellam");
    }
    const auto before = setting("MRUReplayDir");
    DialogScript dialogs;
    dialogs.then<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    give(Command::Open);
    EXPECT_EQ(frame.windowTitle(), u"new.csv - Pellam") << "cancelled";
    EXPECT_EQ(setting("MRUReplayDir"), before);
}

TEST_F(FrameLoadTest, TheFirstStartMakesTheSaveFolderAndALaterOneKeepsIt) {
    m_settings->WriteProfileString("Default", "SaveDir", "/nowhere/at/all");
    start();
    const auto folder = path("Documents/Korvane/Pellam");
    EXPECT_EQ(setting("SaveDir"), "/nowhere/at/all");
    EXPECT_FALSE(QDir(folder).exists());
    m_settings->WriteProfileString("Default", "SaveDir", "");
    m_app = std::make_unique<CLumasetApp>(*m_settings);
    start();
    EXPECT_EQ(setting("SaveDir"), folder.toStdString());
    EXPECT_TRUE(QDir(folder).exists());
}

TEST_F(FrameLoadTest, SizeAndPlaceOfTheWindowComeBack) {
    start().resize(777, 555);
    untilIdle();
    frame().close();
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
    frame.OnLoadSessionFromFile(path("gone.csv"));
    EXPECT_FALSE(frame.isVisible()) << "closed once the load had ended";
}

} // namespace pellam
