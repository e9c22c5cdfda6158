#include "RecordingSinks.h"
#include "ZoneScope.h"
#include "database/SessionLoad.h"
#include "database/SessionRows.h"
#include "database/ui/CSessionNameDlg.h"
#include "database/ui/LoginDlg.h"
#include "database/ui/PickBox.h"
#include "database/ui/WorkEvent.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace pellam {
namespace {

class SessionNameDlgTest : public testing::Test {
  protected:
    SessionNameDlgTest() {
        m_odbc.addSource("First", "Missing", "");
        test::SessionRows rows;
        rows.channels("Run1", "AB|0|60|||1|AB|North\n"
                              "A|0|60|||1|ab|North\n"
                              "A|0|60|||1|A|Norther\n"
                              "B|0|60|||1|C|South\n");
        rows.channels("Run2", "X|0|60|||1|D|East\n");
        rows.readings("Run1", "0|2024-03-31 02:30:00|0|A|0|L|1|0|AB|North\n"
                              "0|2024-04-01 12:00:00|0|A|0|L|1|0|AB|South\n"
                              "0|2024-05-02 03:04:05|0|A|0|L|1|0|AB|North\n");
        rows.readings("Run10", "0|2023-01-02 01:00:00|0|A|0|L|1|0|AB|North\n");
        m_odbc.addSqlite("Site", rows.sql() + "INSERT INTO data_header(session_id) VALUES "
                                              "('Run1'), ('Run2'), ('Run1'), ('Ünder 5%');");
    }

    CSessionNameDlg& open() {
        CSessionNameDlg::Context context{[this] { return m_saved; },
                                         [this](const QString& name) { m_saved = name; },
                                         m_messages,
                                         m_login,
                                         m_bias,
                                         0};
        m_dialog = std::make_unique<CSessionNameDlg>(std::move(context), &m_window);
        m_dialog->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_dialog.get()));
        return *m_dialog;
    }

    template <class Widget>
    Widget* named(const char* name) {
        for (auto* widget : m_dialog->findChildren<Widget*>())
            if (widget->accessibleName() == QLatin1String(name)) return widget;
        ADD_FAILURE() << name;
        return nullptr;
    }

    PickBox* box(const char* name) { return named<PickBox>(name); }

    /// Opens a list with the keyboard and closes it again: its texts, the chosen one in brackets.
    std::string list(const char* name) {
        auto* field = box(name);
        field->setFocus();
        QTest::keyClick(field, Qt::Key_F4);
        EXPECT_TRUE(QTest::qWaitFor([field] { return field->view()->isVisible(); })) << name;
        field->hidePopup();
        return print(name);
    }

    std::string print(const char* name) {
        auto* field = box(name);
        QStringList texts;
        for (int row = 0; row < field->count(); ++row)
            texts += row == field->currentIndex() ? u'[' + field->itemText(row) + u']'
                                                  : field->itemText(row);
        return texts.join(u' ').toStdString();
    }

    void pick(const char* name, int row) {
        auto* field = box(name);
        field->setCurrentIndex(row);
        Q_EMIT field->activated(row);
    }

    void type(const char* name, const char* text) {
        auto* field = box(name);
        field->setFocus();
        field->lineEdit()->selectAll();
        QTest::keyClicks(field, QLatin1String(text));
    }

    void typeAll(const char* session, const char* site, const char* job, const char* schedule) {
        type("Session", session);
        type("Site", site);
        type("Job", job);
        type("Schedule", schedule);
    }

    void clickRange() { QTest::keyClick(m_dialog->findChild<QCheckBox*>(), Qt::Key_Space); }

    std::string range() {
        QString text;
        for (const auto* name : {"Start date", "Start time", "End date", "End time"})
            text += named<QDateTimeEdit>(name)->text() + u' ';
        return text.trimmed().toStdString();
    }

    test::OdbcSetup m_odbc;
    QWidget m_window;
    QString m_saved = u"Site"_s;
    int m_bias = 0;
    test::RecordedMessages m_messages;
    DataSourceLogin m_login;
    std::unique_ptr<CSessionNameDlg> m_dialog;
};

TEST_F(SessionNameDlgTest, EachListIsReadAsItOpensAndFillsTheNext) {
    open();
    EXPECT_EQ(print("Data source"), "First Site");
    EXPECT_EQ(box("Data source")->currentText(), u"Site");
    EXPECT_EQ(print("Session"), "") << "only when it opens";
    EXPECT_EQ(list("Session"), "[Run1] Run2 Run1 Ünder 5%");
    EXPECT_EQ(print("Site"), "[AB] C *") << "ab and A are the beginnings of one listed";
    EXPECT_EQ(print("Job"), "[North] *") << "site_id = 'AB'";
    EXPECT_EQ(print("Schedule"), "[*] AB") << "always first";

    pick("Session", 1);
    EXPECT_EQ(print("Site") + " | " + print("Job") + " | " + print("Schedule"),
              "[D] * | [East] * | [*] X");
    pick("Site", 1);
    EXPECT_EQ(print("Job") + " | " + print("Schedule"), "[East] * | [*]")
        << "no schedule is at the site '*'";
    EXPECT_EQ(m_messages.texts, "");
}

TEST_F(SessionNameDlgTest, TypedSessions) {
    open();
    list("Session");
    type("Session", "Run1");
    EXPECT_EQ(list("Site"), "[AB] C *");
    type("Session", "Run*");
    EXPECT_EQ(list("Site"), "[*]") << "compared as Run%";
    EXPECT_EQ(print("Job"), "[*]");
    EXPECT_EQ(list("Schedule"), "[*]");
    EXPECT_EQ(m_messages.texts, "");
}

// What was picked for another session or site would find nothing; what was typed stays.
TEST_F(SessionNameDlgTest, WhatWasPickedGoesWithItsSession) {
    open();
    list("Session");
    const auto fields = [this] {
        return (box("Site")->currentText() + u' ' + box("Job")->currentText() + u' ' +
                box("Schedule")->currentText())
            .toStdString();
    };
    pick("Schedule", 1);
    EXPECT_EQ(fields(), "AB North AB");
    type("Session", "Run2");
    EXPECT_EQ(fields(), "* * *");
    EXPECT_EQ(list("Job"), "[East] *");
    type("Site", "A*");
    EXPECT_EQ(fields(), "A* * *");
    type("Session", "Run1");
    EXPECT_EQ(fields(), "A* * *");
    EXPECT_EQ(list("Job"), "[North] Norther *") << "of the typed site";
    type("Site", "C");
    EXPECT_EQ(list("Job"), "[South] *");
    EXPECT_EQ(print("Schedule"), "[*] B");
    EXPECT_EQ(m_messages.texts, "");
}

TEST_F(SessionNameDlgTest, ANameWithSettingsIsRefusedAndNeverKept) {
    m_saved = u"Site;UID=me;PWD=secret"_s;
    auto& dialog = open();
    EXPECT_EQ(m_saved, u"Site");
    EXPECT_EQ(box("Data source")->currentText(), u"Site");
    type("Data source", "Site;PWD=secret");
    QTest::keyClick(box("Session"), Qt::Key_F4);
    EXPECT_EQ(print("Session"), "") << "nothing to open";
    EXPECT_NE(m_messages.texts.find("can not hold ';'"), std::string::npos) << m_messages.texts;
    m_messages.texts.clear();
    type("Session", "Run1");
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_NE(m_messages.texts, "");
    EXPECT_EQ(m_saved, u"Site");
}

TEST_F(SessionNameDlgTest, LoggingIn) {
    const std::string name = "Field";
    std::optional<Login> login;
    const auto answer = [&](bool again, auto act) {
        LoginDlg dialog({name, "me", "refused", again}, &m_window);
        QTimer::singleShot(0, &dialog, [&] { act(dialog); });
        login = dialog.ask();
    };
    answer(true, [](LoginDlg& dialog) {
        EXPECT_NE(dialog.findChildren<QLabel*>().back()->text().indexOf(u"refused"), -1);
        auto* const password = qobject_cast<QLineEdit*>(dialog.focusWidget());
        ASSERT_TRUE(password);
        EXPECT_EQ(password->echoMode(), QLineEdit::Password);
        QTest::keyClicks(password, u"s;x"_s);
        QTest::keyClick(password, Qt::Key_Return);
    });
    ASSERT_TRUE(login);
    EXPECT_EQ(login->user + '/' + login->password, "me/s;x");
    answer(false, [](LoginDlg& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_FALSE(login);
}

TEST_F(SessionNameDlgTest, WhatIsTypedIsLookedUpAnywhereInTheList) {
    open();
    list("Session");
    type("Session", "UN");
    auto* completer = box("Session")->lineEdit()->completer();
    EXPECT_EQ(completer->completionModel()->rowCount(), 3);
    EXPECT_TRUE(completer->popup()->isVisible());
    box("Site")->setFocus(Qt::ShortcutFocusReason);
    EXPECT_FALSE(completer->popup()->isVisible()) << "a mnemonic leaves it";
    box("Session")->lineEdit()->setText(u"x"_s);
    Q_EMIT completer->activated(u"Run2"_s);
    EXPECT_EQ(print("Session"), "Run1 [Run2] Run1 Ünder 5%");
    EXPECT_EQ(print("Site"), "[D] *") << "as if picked from the list";
    type("Session", "Run?");
    EXPECT_EQ(completer->completionModel()->rowCount(), 0);
}

TEST_F(SessionNameDlgTest, TheRangeIsThatOfTheReadings) {
    open();
    EXPECT_EQ(range(), "1970/01/01 00:00:00 1970/01/01 00:00:00");
    typeAll("Run1", "*", "North", "A");
    clickRange();
    EXPECT_EQ(range(), "2023/01/02 01:00:00 2024/05/02 03:04:05")
        << "the earliest of all sessions that begin with Run1";
    EXPECT_TRUE(m_dialog->findChild<QCheckBox*>()->isChecked());
    type("Job", "?outh");
    EXPECT_FALSE(m_dialog->findChild<QCheckBox*>()->isChecked()) << "the range of another choice";
    clickRange();
    EXPECT_EQ(range(), "2024/04/01 12:00:00 2024/04/01 12:00:00");
    type("Job", "none");
    clickRange();
    EXPECT_EQ(range(), "2024/04/01 12:00:00 2024/04/01 12:00:00");
    EXPECT_FALSE(m_dialog->findChild<QCheckBox*>()->isChecked());
}

TEST_F(SessionNameDlgTest, WithMySqlAsTheFirstDataSourceExactTextsAreBeginnings) {
    test::OdbcSetup odbc;
    odbc.addSource("Another", "MySQL 8", "");
    test::SessionRows rows;
    rows.readings("Run1", "0|2024-03-31 02:30:00|0|A|0|L|1|0|AB|North\n"
                          "0|2024-05-02 03:04:05|0|A|0|L|1|0|AB|Northern\n");
    odbc.addSqlite("Site", rows.sql());
    open();
    typeAll("Run1", "*", "North", "*");
    clickRange();
    EXPECT_EQ(range(), "2024/03/31 02:30:00 2024/05/02 03:04:05");
}

TEST_F(SessionNameDlgTest, PickersStartAtTimeZeroAndTakeHoursThatTheZoneSkips) {
    // bias: standard and daylight bias together, seconds
    const Table<const char*, int, const char*> rows = {
        {"UTC", 0, "1970/01/01 00:00:00"},
        {"America/New_York", 18000, "1970/01/01 00:00:00"},
        {"America/New_York", 14400, "1969/12/31 23:00:00"},
        {"Europe/Berlin", -3600, "1970/01/01 00:00:00"},
    };
    for (const auto& [name, bias, start] : rows) {
        const ZoneScope zone(name);
        m_bias = bias;
        open();
        EXPECT_EQ(range(), std::string(start) + ' ' + start) << name;
        typeAll("Run1", "AB", "*", "*");
        clickRange();
        EXPECT_EQ(range(), "2023/01/02 01:00:00 2024/05/02 03:04:05") << name;
    }
}

TEST_F(SessionNameDlgTest, OkGivesTheTextsAsTheyStand) {
    auto& dialog = open();
    list("Session");
    pick("Session", 3);
    type("Site", "N?");
    type("Job", "O'Hara%");
    type("Schedule", "*");
    clickRange();
    named<QDateEdit>("Start date")->setDate({2024, 3, 31});
    named<QTimeEdit>("Start time")->setTime({2, 30, 15});
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    const auto& got = dialog.request();
    EXPECT_EQ(got.dataSource + '|' + got.session + '|' + got.site + '|' + got.job + '|' +
                  got.schedule + '|' + got.label + '|' + test::shown(got.start),
              "Site|Ünder 5%|N?|O'Hara%|*|*|2024/03/31 02:30:15");
    EXPECT_EQ(test::shown(got.end), "1970/01/01 00:00:00");
}

TEST_F(SessionNameDlgTest, TheDataSourcePickedIsRememberedAtOnceAndItsFailureShown) {
    auto& dialog = open();
    EXPECT_TRUE(box("Session")->hasFocus());
    auto* ok = dialog.findChild<QPushButton*>();
    EXPECT_FALSE(ok->isEnabled());
    pick("Data source", 0);
    EXPECT_EQ(m_saved, u"First");
    EXPECT_NE(m_messages.texts.find("[unixODBC]"), std::string::npos) << m_messages.texts;
    m_messages.texts.clear();
    clickRange();
    EXPECT_EQ(m_messages.texts, "");
    pick("Data source", 1);
    EXPECT_EQ(m_saved, u"Site");
    EXPECT_EQ(print("Session"), "[Run1] Run2 Run1 Ünder 5%");
    EXPECT_TRUE(ok->isEnabled());
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
}

TEST_F(SessionNameDlgTest, WhileADatabaseIsSlowTheDialogIsPaintedAndEscapeStops) {
    // Counts for many seconds before it finds its one row.
    m_odbc.addSqlite("Slow", "CREATE VIEW data_header AS WITH RECURSIVE c(x) AS (SELECT 1 UNION "
                             "ALL SELECT x + 1 FROM c WHERE x < 20000000) SELECT 'late' AS "
                             "session_id FROM c WHERE x = 20000000;");
    m_saved = u"Slow"_s;
    auto& dialog = open();
    int paints = 0;
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, [&] {
        dialog.update();
        EXPECT_TRUE(named<QLabel>("Status")->text().startsWith(u"Reading the sessions..."));
        dialog.close();
        EXPECT_TRUE(dialog.isVisible()) << "closing stops the question first";
        if (++paints == 5) QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    clock.start(10);
    box("Session")->showPopup();
    clock.stop();
    EXPECT_GE(paints, 1);
    EXPECT_EQ(named<QLabel>("Status")->text(), u"Stopped.");
    EXPECT_EQ(m_messages.texts, "");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(box("Session")->view()->isVisible());
}

} // namespace
} // namespace pellam
