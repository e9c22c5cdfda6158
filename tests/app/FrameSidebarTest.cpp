#include "FrameFixture.h"

#include "app/frame/FiguresLabel.h"
#include "app/frame/FrameSidebar.h"
#include "app/print/PreviewPane.h"
#include "ui/sidebar/TaskSidebar.h"

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

namespace pellam {

using FrameSidebarTest = FrameFixture;

static std::string groups(CMainFrame& frame) {
    const auto& tasks = *frame.sidebar().tasks();
    QStringList lines;
    for (const auto& id : tasks.groupIds()) {
        lines += id;
        for (const auto& text : tasks.taskTexts(id))
            lines += u"  "_s + text;
    }
    return lines.join(u'\n').toStdString();
}

static const std::string kAlways = R"(What do you want to do?
  Open a historical data file
  Open a session from database
  Export the data
  View with external spreadsheet
  Print the current view
  Print preview the current view
  Change my preferences
  Reset don't ask me again dialogues
What do you want to view?
  View historical data on a grid
  View historical data on a chart
)";

TEST(FiguresLabel, ShowsFiguresWholeOrNotAtAll) {
    const QStringList figures{u"Mean: 14.18"_s, u"Min: -2"_s, u"Max: 99.5"_s};
    FiguresLabel label;
    label.setFigures(figures);
    label.show();
    std::set<QString> shown;
    for (int width = label.sizeHint().width() + 10; width >= 0; --width) {
        label.resize(width, 20);
        QApplication::sendPostedEvents();
        shown.insert(label.text());
        EXPECT_EQ(label.accessibleName(), figures.join(u"   "_s));
    }
    const std::set<QString> expected{QString(), figures[0], figures[0] + u"   "_s + figures[1],
                                     figures.join(u"   "_s)};
    EXPECT_EQ(shown, expected);
    EXPECT_EQ(label.minimumSizeHint().width(), 0);
}

TEST_F(FrameSidebarTest, TheOptionsGroupFollowsThePage) {
    auto& frame = start();
    const auto grid = kAlways + R"(Grid Options
  Select all channels
  Deselect all channels)";
    const auto trend = kAlways + R"(Trend Options
  Edit Axes
  Auto scale
  Selection zoom
  Increase font size
  Decrease font size)";
    EXPECT_EQ(groups(frame), grid);
    for (int round = 0; round < 2; ++round) {
        frame.OnViewTrendchart();
        EXPECT_EQ(groups(frame), trend);
        frame.OnViewDatagrid();
        frame.OnIdleUpdateCmdUI();
        EXPECT_EQ(groups(frame), grid);
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const auto rows = frame.sidebar().findChildren<QAbstractButton*>();
    EXPECT_EQ(std::count_if(rows.begin(), rows.end(),
                            [](const QAbstractButton* row) {
                                return row->accessibleName() == u"Select all channels";
                            }),
              1)
        << "none was left behind";
}

TEST_F(FrameSidebarTest, TogglingTwiceRestoresTheStandardWidth) {
    m_settings->WriteProfileInt("Default", "SideBarWidth", 300);
    auto& frame = start();
    const auto* toggle = frame.actions().action(Command::Sidebar);
    EXPECT_EQ(frame.sidebar().width(), 300);
    EXPECT_TRUE(toggle->isChecked());

    give(Command::Sidebar);
    EXPECT_EQ(setting("SideBarWidth"), "0");
    EXPECT_FALSE(frame.sidebar().isVisible());
    EXPECT_FALSE(toggle->isChecked());

    give(Command::Sidebar);
    untilIdle();
    EXPECT_EQ(setting("SideBarWidth"), "225");
    EXPECT_EQ(frame.sidebar().width(), 225);
    EXPECT_TRUE(toggle->isChecked());
}

TEST_F(FrameSidebarTest, DamagedWidthsAreBounded) {
    // expected: width in pixels, 0 when hidden
    const Table<const char*, int> cases = {
        {"5000", 600}, {"2147483647", 600}, {"99999999999", 225}, {"-5", 0}, {"wide", 225}};
    for (const auto& [stored, expected] : cases) {
        m_settings->WriteProfileString("Default", "SideBarWidth", stored);
        m_app = std::make_unique<CLumasetApp>(*m_settings);
        const auto& sidebar = start().sidebar();
        EXPECT_EQ(sidebar.isVisible() ? sidebar.width() : 0, expected) << stored;
    }
}

TEST_F(FrameSidebarTest, PreviewHidesTheSidebarAndBringsItBackAtTheStoredWidth) {
    m_settings->WriteProfileInt("Default", "SideBarWidth", 260);
    auto& frame = start(csv());
    give(Command::PrintPreview);
    ASSERT_NE(frame.preview(), nullptr);
    EXPECT_FALSE(frame.sidebar().isVisible());
    EXPECT_EQ(frame.preview()->pageCount(), 1);

    QTest::keyClick(frame.preview(), Qt::Key_Escape);
    untilIdle();
    EXPECT_EQ(frame.preview(), nullptr);
    EXPECT_TRUE(frame.sidebar().isVisible());
    EXPECT_EQ(frame.sidebar().width(), 260);
    EXPECT_EQ(setting("SideBarWidth"), "260");
}

TEST_F(FrameSidebarTest, PreviewTurnsPagesWithinBounds) {
    QByteArray rows = "Time,Level (m)\r\n";
    for (int row = 0; row < 400; ++row)
        rows += "2024/03/01 10:00:00," + QByteArray::number(row) + "\r\n";
    auto& frame = start(write("long.csv", rows));
    give(Command::PrintPreview);
    auto* preview = frame.preview();
    ASSERT_NE(preview, nullptr);
    ASSERT_GT(preview->pageCount(), 2);
    const int last = preview->pageCount();
    for (const auto& [key, page] : {std::pair{Qt::Key_PageUp, 1},
                                    {Qt::Key_PageDown, 2},
                                    {Qt::Key_End, last},
                                    {Qt::Key_PageDown, last}}) {
        QTest::keyClick(preview, key);
        EXPECT_EQ(preview->currentPage(), page);
    }
    auto* sheet = preview->findChild<PreviewSheet*>();
    const QImage lastPage = sheet->grab().toImage();
    QTest::keyClick(preview, Qt::Key_Home);
    EXPECT_NE(sheet->grab().toImage(), lastPage) << "the sheet shows its page";

    const auto wheel = [preview](int turn, Qt::KeyboardModifiers held) {
        auto* shown = preview->findChild<QScrollArea*>()->viewport();
        QWheelEvent event({9, 9}, shown->mapToGlobal(QPointF(9, 9)), {}, {0, turn}, Qt::NoButton,
                          held, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(shown, &event);
        return qRound(preview->findChild<PreviewSheet*>()->scale() * 1000);
    };
    const int before = wheel(0, Qt::ControlModifier);
    EXPECT_EQ(wheel(120, Qt::NoModifier), before);
    const int larger = wheel(120, Qt::ControlModifier);
    EXPECT_EQ(larger, qRound(before * 1.25));
    EXPECT_EQ(wheel(0, Qt::ControlModifier), larger);
    EXPECT_EQ(wheel(-120, Qt::ControlModifier), before);
}

TEST_F(FrameSidebarTest, ResetForgetsTheAnswersAndNothingElse) {
    auto& frame = start();
    m_settings->setValue("Software/Tarnholt/Pellam/XMessageBox/SpreadsheetRows", "16384");
    const auto folder = setting("SaveDir");
    give(Command::ResetMessages);
    EXPECT_EQ(m_settings->value("Software/Tarnholt/Pellam/XMessageBox/SpreadsheetRows"),
              std::nullopt);
    EXPECT_EQ(setting("SaveDir"), folder);
    EXPECT_TRUE(frame.isVisible());
}

} // namespace pellam
