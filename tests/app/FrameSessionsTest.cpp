#include "FrameFixture.h"
#include "GridText.h"

#include "app/frame/RecentFiles.h"
#include "database/SessionRows.h"
#include "database/ui/CSessionNameDlg.h"
#include "database/ui/PickBox.h"
#include "database/ui/WorkEvent.h"
#include "ui/dialogs/TabPages.h"

using namespace Qt::StringLiterals;

namespace pellam {

class FrameSessionsTest : public FrameFixture {
  protected:
    FrameSessionsTest() {
        test::SessionRows rows;
        rows.channels("Site 7/2008.5",
                      "A|0|60|Temp|degC|1|North|Dip\nB|0|60|Wind|m/s|1|East|Dip\n");
        rows.readings("Site 7/2008.5", "0|2024-03-31 02:30:00|5|A|0|Temp|12.6|0|North|Dip\n"
                                       "0|2024-03-31 02:31:00|0|B|0|Wind|3|0|East|Dip\n");
        m_odbc.addSqlite(
            "Site", rows.sql() + "INSERT INTO data_header(session_id) VALUES ('Site 7/2008.5');");
    }

    /// Chooses all of a session and gives OK.
    static std::function<void(CSessionNameDlg&)> choose(const QString& session,
                                                        const QString& dsn = u"Site"_s) {
        return [=](CSessionNameDlg& dialog) {
            for (auto* box : dialog.findChildren<PickBox*>()) {
                const auto name = box->accessibleName();
                box->setEditText(name == u"Data source" ? dsn
                                 : name == u"Session"   ? session
                                                        : u"*"_s);
            }
            dialog.accept();
        };
    }

    test::OdbcSetup m_odbc;
};

TEST_F(FrameSessionsTest, ASessionIsLoadedAndGoesByItsName) {
    auto& frame = start();
    frame.OnViewTrendchart();
    DialogScript dialogs;
    dialogs.then<CSessionNameDlg>(choose(u"Site 7/2008.5"_s))
        .then<QFileDialog>([](QFileDialog& dialog) {
            EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), u"Site 7_2008.5");
            dialog.reject();
        });
    give(Command::OpenDatabase);
    EXPECT_EQ(gridText(frame.data()), "Time|A.Temp(degC)|B.Wind(m/s)\n"
                                      "2024/03/31 02:30:00.5|13|\n"
                                      "2024/03/31 02:31:00.000000||3");
    EXPECT_EQ(status(), "Rows: 2 | Channels: 2 | Bad lines: 0 | Site 7/2008.5");
    EXPECT_EQ(frame.windowTitle(), u"Site 7/2008.5 - Pellam");
    EXPECT_EQ(frame.pages().activePage(), CMainFrame::kGridPage);
    EXPECT_TRUE(frame.recentFiles().paths().isEmpty());
    EXPECT_EQ(setting("LastDSN"), "Site");
    EXPECT_EQ(setting("MRUReplayDir"), "");
    give(Command::Export);
}

TEST_F(FrameSessionsTest, CancellingKeepsTheDataAndOkEmptiesTheGrid) {
    auto& frame = start(csv());
    const auto before = gridText(frame.data());
    DialogScript dialogs;
    std::string message;
    dialogs.then<CSessionNameDlg>([](CSessionNameDlg& dialog) { dialog.reject(); })
        .then<CSessionNameDlg>(choose(u"None"_s))
        .thenMessage(&message);
    give(Command::OpenDatabase);
    EXPECT_EQ(gridText(frame.data()), before);
    EXPECT_EQ(frame.windowTitle(), u"store.csv - Pellam");
    give(Command::OpenDatabase);
    EXPECT_EQ(message, "Warning: No records were found matching the supplied criteria");
    EXPECT_EQ(frame.data().rowCount(), 0);
    EXPECT_EQ(frame.windowTitle(), u"Pellam");
    EXPECT_EQ(status(), "");
}

TEST_F(FrameSessionsTest, RowsBeforeAFailureCarryARemark) {
    test::SessionRows rows;
    rows.channels("Run", "A|0|60|Temp|degC|1|North|Dip\n");
    rows.readings("Run", "0|2024-03-31 02:30:00|0|A|0|Temp|1|0|North|Dip\n"
                         "0|2024-03-31 02:31:00|0|A|0|Temp|2|0|North|Dip\n"
                         "0|2024-03-31 02:32:00|0|A|0|Temp|3|0|North|Dip\n");
    m_odbc.addSqlite("Torn", rows.sql() + test::SessionRows::failingAt(3));
    auto& frame = start();
    DialogScript dialogs;
    std::string message;
    dialogs.then<CSessionNameDlg>(choose(u"Run"_s, u"Torn"_s)).thenMessage(&message);
    give(Command::OpenDatabase);
    EXPECT_EQ(message, "Warning: Database exception. Load aborted.");
    EXPECT_TRUE(status().starts_with("Load aborted: the session goes on | Rows: 1 ")) << status();
    EXPECT_EQ(frame.data().rowCount(), 1);
}

TEST_F(FrameSessionsTest, ClosingTheWindowStopsASlowLoad) {
    // The channels take many seconds to be found.
    m_odbc.addSqlite("Slow",
                     test::SessionRows().channels("late", "A|0|60|Temp|degC|1|North|Dip\n").sql() +
                         "ALTER TABLE data_details RENAME TO stored; CREATE VIEW data_details AS "
                         "WITH RECURSIVE c(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM c WHERE x < "
                         "20000000) SELECT * FROM stored WHERE (SELECT max(x) FROM c) > 0;");
    auto& frame = start(csv());
    DialogScript dialogs;
    dialogs.then<CSessionNameDlg>(choose(u"late"_s, u"Slow"_s));
    QTimer closing;
    QObject::connect(&closing, &QTimer::timeout, [&] {
        if (QApplication::activeModalWidget()) return;
        frame.close();
        EXPECT_TRUE(frame.isVisible());
        closing.stop();
    });
    closing.start(400);
    give(Command::OpenDatabase);
    untilIdle();
    EXPECT_FALSE(frame.isVisible());
    EXPECT_EQ(frame.data().rowCount(), 0);
}

} // namespace pellam
