#include "views/grid/CGridView.h"
#include "GridText.h"
#include "UntilIdle.h"
#include "base/InternationalSettings.h"
#include "views/grid/FindBar.h"
#include "views/grid/GoToDialog.h"
#include "views/grid/MyCug.h"

using namespace Qt::StringLiterals;

namespace pellam {
namespace {

class CGridViewTest : public testing::Test {
  protected:
    CGridViewTest() {
        fillGrid(m_grid, "Time|A(degC)|B\n"
                         "2024/01/02 10:00:00|1.5|off\n"
                         "2024/01/02 10:01:00|2.5|on\n"
                         "2024/01/02 10:02:00|4|off\n"
                         "2024/01/02 10:03:00|8|ON\n");
        for (const Row row : {1, 3})
            m_grid.addDamagedRow(row);
        m_view.beginLoad();
        m_view.endLoad(false, false);
        m_view.resize(700, 400);
        m_view.show();
        QApplication::processEvents();
    }

    [[nodiscard]] std::string current() const {
        const QModelIndex index = m_view.grid().currentIndex();
        return std::to_string(index.column()) + "," + std::to_string(index.row());
    }

    std::string search(const char* text, void (CGridView::*command)() = &CGridView::findNext) {
        m_view.findChild<FindBar*>()->findChild<QLineEdit*>()->setText(QString::fromUtf8(text));
        (m_view.*command)();
        untilIdle();
        return current();
    }

    GridData m_grid;
    const InternationalSettings m_settings;
    CGridView m_view{m_grid, m_settings};
};

TEST_F(CGridViewTest, KeepsACurrentCellThroughLoads) {
    EXPECT_EQ(current(), "1,1");
    m_view.beginLoad();
    m_grid.reset();
    m_view.endLoad(false, false);
    EXPECT_EQ(current(), "1,1");
}

TEST_F(CGridViewTest, DamagedLinesAreReadableOnDarkBackgrounds) {
    m_grid.setText(1, 1, "2.5", CellColour::DarkRed);
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(30, 30, 32));
    m_view.setPalette(dark);
    const QVariant text = m_view.grid().model()->index(2, 1).data(Qt::ForegroundRole);
    EXPECT_GT(text.value<QBrush>().color().lightness(), 150);
}

TEST_F(CGridViewTest, AddsUpTheSelectionForTheStatusBar) {
    QSignalSpy texts(&m_view, &CGridView::statisticsChanged);
    m_view.grid().selectArea({1, 2, 1, 4});
    ASSERT_TRUE(QTest::qWaitFor([&] { return !texts.isEmpty(); }));
    EXPECT_EQ(texts.last().first().toStringList().join(u"|").toStdString(),
              "Count: 4|Mean: 4|Min: 1.5|Max: 8|Std dev: 2.85774|Sum: 16");
    m_view.grid().selectArea({1, 1, 1, 1});
    EXPECT_TRUE(texts.last().first().toStringList().isEmpty());
}

TEST_F(CGridViewTest, FindsForwardsAndBackwards) {
    QSignalSpy notices(&m_view, &CGridView::notice);
    EXPECT_EQ(search("on"), "2,2");
    EXPECT_EQ(search("on"), "2,4");
    EXPECT_TRUE(notices.isEmpty());
    EXPECT_EQ(search("on"), "2,2");
    EXPECT_EQ(notices.count(), 1);
    EXPECT_EQ(search("off", &CGridView::findPrevious), "2,1");
    EXPECT_EQ(search("nowhere"), "2,1");
    EXPECT_EQ(notices.count(), 2);
    m_view.find();
    auto* bar = m_view.findChild<FindBar*>();
    EXPECT_TRUE(bar->isVisible());
    QTest::keyClick(bar->findChild<QLineEdit*>(), Qt::Key_Escape);
    EXPECT_FALSE(bar->isVisible());
}

TEST_F(CGridViewTest, GoesThroughDamagedLines) {
    QSignalSpy notices(&m_view, &CGridView::notice);
    std::string visited;
    for (int i = 0; i < 3; ++i)
        m_view.nextDamagedLine(), visited += current() + " ";
    for (int i = 0; i < 2; ++i)
        m_view.previousDamagedLine(), visited += current() + " ";
    EXPECT_EQ(visited, "1,2 1,4 1,2 1,4 1,2 ");
    EXPECT_EQ(notices.at(1).first().toString(), u"Damaged line 2 of 2"_s);
}

TEST_F(CGridViewTest, GoesToATime) {
    std::string remark;
    QTimer::singleShot(0, &m_view, [&] {
        auto* dialog = m_view.findChild<GoToDialog*>();
        auto* field = dialog->findChild<QLineEdit*>();
        field->setText(u"2025"_s);
        dialog->accept();
        untilIdle();
        EXPECT_TRUE(dialog->isVisible());
        field->setText(u"2024/01/02 10:01:30"_s);
        dialog->accept();
    });
    m_view.goTo();
    EXPECT_EQ(current(), "1,3");
}

} // namespace
} // namespace pellam
