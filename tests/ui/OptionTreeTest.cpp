#include "ui/dialogs/OptionTree.h"

using namespace Qt::StringLiterals;

namespace pellam {
namespace {

class OptionTreeTest : public testing::Test {
  protected:
    OptionTreeTest() {
        m_group = m_tree.addGroup(u"Channels"_s);
        m_tree.addOptions(m_group, {{0, u"Temp"_s}, {1, u"Wind"_s}});
        m_tree.addOptions(m_group, {{2, u"Temp max"_s}, {3, u"Rain"_s}});
        QObject::connect(&m_tree, &OptionTree::optionToggled, &m_tree, [this](int, int i, bool on) {
            m_changes += (on ? "+" : "-") + m_tree.option(0, i).text.toStdString() + " ";
        });
    }

    std::string changes() { return std::exchange(m_changes, {}); }

    OptionTree m_tree;
    QAbstractItemModelTester m_tester{m_tree.model(),
                                      QAbstractItemModelTester::FailureReportingMode::Fatal};
    int m_group = 0;
    std::string m_changes;
};

TEST_F(OptionTreeTest, BulkChecksTouchOnlyWhatTheFilterShows) {
    m_tree.setFilter(u"tEMP"_s);
    EXPECT_EQ(m_tree.visibleCount(), 2);
    m_tree.setVisibleChecked(true);
    EXPECT_EQ(changes(), "+Temp +Temp max ");
    m_tree.setFilter(u"max"_s);
    m_tree.setVisibleChecked(false);
    EXPECT_EQ(changes(), "-Temp max ");
    m_tree.setFilter(QString());
    EXPECT_EQ(m_tree.visibleCount(), 4);
    EXPECT_EQ(m_tree.checkedCount(), 1);
    m_tree.setVisibleChecked(true);
    EXPECT_EQ(changes(), "+Wind +Temp max +Rain ") << "a checked one is not reported again";
}

TEST_F(OptionTreeTest, SpaceTogglesEverySelectedBox) {
    m_tree.show();
    m_tree.focusFirstOption();
    QTest::keyClick(&m_tree, Qt::Key_Space);
    EXPECT_EQ(changes(), "+Temp ");
    QTest::keyClick(&m_tree, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&m_tree, Qt::Key_Space);
    EXPECT_EQ(changes(), "+Wind ") << "all follow the current one's new state";
    QTest::keyClick(&m_tree, Qt::Key_Space);
    EXPECT_EQ(changes(), "-Temp -Wind ");
    QTest::keyClick(&m_tree, Qt::Key_Home);
    QTest::keyClick(&m_tree, Qt::Key_Space);
    EXPECT_EQ(changes(), "") << "a group has no box";
}

TEST_F(OptionTreeTest, ClickOnABoxToggles) {
    m_tree.resize(300, 200);
    m_tree.show();
    const QModelIndex wind = m_tree.model()->index(1, 0, m_tree.model()->index(0, 0));
    ASSERT_TRUE(m_tree.isExpanded(wind.parent()));
    const QRect row = m_tree.visualRect(wind);
    QTest::mouseClick(m_tree.viewport(), Qt::LeftButton, {}, {row.left() + 10, row.center().y()});
    EXPECT_EQ(changes(), "+Wind ");
}

} // namespace
} // namespace pellam
