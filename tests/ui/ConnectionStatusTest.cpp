#include "ui/dialogs/CConnectionStatus.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace pellam {
namespace {

class ConnectionStatusTest : public testing::Test {
  protected:
    ConnectionStatusTest() {
        m_window.setCentralWidget(&m_edit);
        m_edit.addAction(&m_command);
        m_command.setShortcut(QKeySequence(u"Ctrl+O"_s));
        QObject::connect(&m_command, &QAction::triggered, &m_window, [this] { ++m_commands; });
        m_window.resize(800, 600);
        m_window.show();
        (void)QTest::qWaitForWindowActive(&m_window);
    }

    ~ConnectionStatusTest() override { m_edit.setParent(nullptr); }

    /// Does something while the operation handles events.
    template <typename Act>
    void meanwhile(Act act) {
        QTimer::singleShot(0, &m_window, act);
        m_status.AddString("Stage " + std::string(++m_stages, '*'));
    }

    /// Lets the operation go on until its window has come up.
    void waitUntilShown() {
        QElapsedTimer clock;
        for (clock.start(); !m_status.isVisible() && clock.elapsed() < 3000;)
            m_status.setPosition(1);
        ASSERT_TRUE(m_status.isVisible());
    }

    QPushButton* button(const char* text) {
        for (auto* found : m_status.findChildren<QPushButton*>())
            if (found->text() == QLatin1String(text)) return found;
        return nullptr;
    }

    std::string text(const char* label) {
        return m_status.findChild<QLabel*>(QLatin1String(label))->text().toStdString();
    }

    std::string line() { return text("line"); }

    QProgressBar& bar() { return *m_status.findChild<QProgressBar*>(); }

    QMainWindow m_window;
    QLineEdit m_edit;
    QAction m_command;
    int m_commands = 0;
    std::size_t m_stages = 0;
    CConnectionStatus m_status{&m_window};
};

TEST_F(ConnectionStatusTest, ShortOperationsShowNothing) {
    m_status.start("Loading Pellam", "Loading...", 1, 1000);
    for (int i = 1; i <= 1000; ++i)
        m_status.setPosition(i);
    EXPECT_FALSE(m_status.isVisible());
    m_status.finish();
    EXPECT_FALSE(QTest::qWaitFor([this] { return m_status.isVisible(); },
                                 CConnectionStatus::kShowAfter + 50));
}

TEST_F(ConnectionStatusTest, LongOperationsShowTheirStateInTheMiddleOfTheWindow) {
    m_status.start("Loading Pellam", "Loading...", 1, 100);
    waitUntilShown();
    EXPECT_EQ(m_status.windowTitle(), u"Loading Pellam");
    m_status.setWindowText("Window");
    EXPECT_EQ(m_status.windowTitle(), u"Window");
    EXPECT_EQ(text("heading"), "Loading Pellam");
    EXPECT_EQ(line(), "Loading...");
    const QPoint off = m_status.frameGeometry().center() - m_window.frameGeometry().center();
    EXPECT_LT(off.manhattanLength(), 60);
    m_status.finish();
    EXPECT_FALSE(m_status.isVisible());
}

TEST_F(ConnectionStatusTest, InputForOtherWindowsIsDropped) {
    m_status.start("Loading", "Loading...", 0, 10);
    waitUntilShown();
    meanwhile([this] { QTest::keyClicks(&m_edit, u"typed"_s); });
    meanwhile([this] { QTest::keyClick(&m_edit, Qt::Key_O, Qt::ControlModifier); });
    meanwhile([this] { m_command.trigger(); });
    EXPECT_EQ(std::exchange(m_commands, 0), 1) << "queued calls still run";
    meanwhile([this] {
        QMimeData data;
        data.setText(u"dropped"_s);
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&m_edit, &enter);
        QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&m_edit, &drop);
    });
    m_status.finish();
    QCoreApplication::processEvents();
    EXPECT_EQ(m_edit.text(), u"") << "nor does it come later";
    EXPECT_EQ(m_commands, 0);
    m_window.activateWindow();
    const auto active = [this] { return QApplication::activeWindow() == &m_window; };
    ASSERT_TRUE(QTest::qWaitFor(active));
    QTest::keyClicks(&m_edit, u"now"_s);
    QTest::keyClick(&m_edit, Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(m_edit.text(), u"now");
    EXPECT_EQ(m_commands, 1);
}

TEST_F(ConnectionStatusTest, OtherWindowsAreStillPainted) {
    class Canvas : public QWidget {
      public:
        using QWidget::QWidget;

        void paintEvent(QPaintEvent*) override { ++paints; }

        int paints = 0;
    };

    auto* canvas = new Canvas(&m_window);
    canvas->resize(20, 20);
    canvas->show();
    m_status.start("Loading", "Loading...", 0, 10);
    waitUntilShown();
    const int before = canvas->paints;
    canvas->update();
    m_status.AddString("Next stage");
    EXPECT_GT(canvas->paints, before);
}

TEST_F(ConnectionStatusTest, EachWayToStopAborts) {
    const Table<const char*, std::function<void()>> rows = {
        {"button", [this] { QTest::mouseClick(button("&Abort"), Qt::LeftButton); }},
        {"Escape", [this] { QTest::keyClick(&m_status, Qt::Key_Escape); }},
        {"close button", [this] { m_status.close(); }},
        {"program", [this] { m_status.requestAbort(); }},
    };
    for (const auto& [name, act] : rows) {
        SCOPED_TRACE(name);
        m_status.start("Loading", "Loading...", 0, 10);
        EXPECT_FALSE(m_status.aborted()) << "an abort is over with its operation";
        waitUntilShown();
        meanwhile(act);
        EXPECT_TRUE(m_status.aborted());
        EXPECT_TRUE(m_status.isVisible());
        m_status.addString("Loading 500");
        EXPECT_EQ(line(), "Aborting...");
        m_status.finish();
        EXPECT_TRUE(m_status.aborted());
    }
}

TEST_F(ConnectionStatusTest, AbortIsPostedOnlyWhenEnabled) {
    QSignalSpy posted(&m_status, &CConnectionStatus::abortPosted);
    m_status.start("Loading", "", 0, 1);
    m_status.requestAbort();
    EXPECT_EQ(posted.count(), 0);
    m_status.finish();
    m_status.EnablePostingOfAbort();
    m_status.start("Loading", "", 0, 1);
    m_status.requestAbort();
    m_status.requestAbort();
    EXPECT_EQ(posted.count(), 1);
}

TEST_F(ConnectionStatusTest, ClosingTheMainWindowStopsTheOperationFirst) {
    m_status.start("Loading", "Loading...", 0, 10);
    meanwhile([this] { m_window.close(); });
    EXPECT_TRUE(m_window.isVisible());
    EXPECT_TRUE(m_status.aborted());
    m_status.finish();
    EXPECT_TRUE(m_window.isVisible()) << "the caller gets to tidy up";
    QCoreApplication::processEvents();
    EXPECT_FALSE(m_window.isVisible());
}

TEST_F(ConnectionStatusTest, HiddenWindowComesBackWhenSomeoneTriesToWork) {
    m_status.start("Loading", "Loading...", 0, 10);
    waitUntilShown();
    meanwhile([this] { QTest::mouseClick(button("&Hide"), Qt::LeftButton); });
    EXPECT_FALSE(m_status.isVisible());
    meanwhile([] {});
    EXPECT_FALSE(m_status.isVisible());
    EXPECT_FALSE(m_status.aborted());
    meanwhile([this] { QTest::mouseClick(&m_edit, Qt::LeftButton); });
    meanwhile([] {});
    EXPECT_TRUE(m_status.isVisible());
}

TEST_F(ConnectionStatusTest, BarIsScaledFromAnyRange) {
    constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
    const Table<const char*, std::int64_t, std::int64_t, std::int64_t, int> rows = {
        {"start", 1, 1001, 1, 0},           {"half", 0, 500, 250, 5000},
        {"end", 1, 1001, 1001, 10000},      {"past the end", 0, 10, 99, 10000},
        {"before the start", 5, 10, -3, 0}, {"1.6 GB", 0, 1'600'000'000, 400'000'000, 2500},
        {"widest", 0, kMost, kMost, 10000}, {"below zero", -100, 100, 0, 5000},
        {"empty range", 1, 1, 1, 10000},    {"backward range", 10, 1, 5, 10000},
    };
    for (const auto& [name, first, last, position, permyriad] : rows) {
        SCOPED_TRACE(name);
        m_status.SetProgressRange(first, last);
        m_status.SetProgressPos(position);
        m_status.AddString(name, true);
        EXPECT_EQ(bar().value(), permyriad);
    }
    m_status.SetProgressRange(0, 100);
    for (int i = 0; i < 10; ++i)
        m_status.StepIt();
    m_status.AddString("there", true);
    EXPECT_EQ(bar().value(), 10000) << "ten steps fill it";
    m_status.start("Loading", "Loading...", 0, 10);
    EXPECT_EQ(bar().maximum(), 0) << "busy until a position is reported";
    m_status.setPosition(0);
    m_status.AddString("Found", true);
    EXPECT_EQ(bar().maximum(), 10000);
}

TEST_F(ConnectionStatusTest, AnOperationWithinAnotherSharesItsWindowAndAbort) {
    m_status.start("Loading Session", "Querying...", 0, 10);
    waitUntilShown();
    m_status.start("Loading Pellam", "Loading...", 0, 10);
    EXPECT_EQ(m_status.windowTitle(), u"Loading Pellam");
    m_status.requestAbort();
    m_status.finish();
    EXPECT_TRUE(m_status.isVisible());
    m_status.start("Loading Pellam", "Loading...", 0, 10);
    EXPECT_TRUE(m_status.aborted());
    m_status.finish();
    m_status.finish();
    EXPECT_FALSE(m_status.isVisible());
}

TEST_F(ConnectionStatusTest, LogKeepsStagesAndTheLastNumbersOfEach) {
    m_status.start("Loading", "Loading...", 0, 10);
    for (const char* text :
         {"Retrieved 100 records", "Retrieved 1200 records", "Scaling", "Done 1 of 2"})
        m_status.addString(text);
    QString log = QString::fromStdString(m_status.LogText());
    log.replace(QRegularExpression(u"\\d{4}/\\d\\d/\\d\\d \\d\\d:\\d\\d:\\d\\d "_s), u"T "_s);
    EXPECT_EQ(log, u"T Loading...\r\nT Retrieved 1200 records\r\nT Scaling\r\nT Done 1 of 2\r\n");
}

} // namespace
} // namespace pellam
