#include "app/dialogs/COptionTreeDlg.h"

#include "ui/dialogs/OptionTree.h"

using namespace Qt::StringLiterals;

namespace pellam {
namespace {

class OptionTreeDlgTest : public testing::Test {
  protected:
    OptionTreeDlgTest() { m_dialog.offer({"B.Temp(degC){0}", "B.Wind{1}", "X.Rain(mm){0}"}); }

    std::string chosen() const {
        std::string text;
        for (const std::string& label : m_dialog.chosen())
            text += label + " ";
        return text;
    }

    void check(int index, bool checked = true) { m_dialog.tree()->setChecked(0, index, checked); }

    QPushButton* button(const char* start) {
        for (auto* found : m_dialog.findChildren<QPushButton*>())
            if (found->text().remove(u'&').startsWith(QLatin1String(start))) return found;
        return nullptr;
    }

    COptionTreeDlg m_dialog;
};

TEST_F(OptionTreeDlgTest, BoxesCarryTextAndIdentifier) {
    const auto& wind = m_dialog.tree()->option(0, 1);
    EXPECT_EQ(wind.text, u"B.Wind");
    EXPECT_EQ(wind.id, (u'B' << 16) + 1u);
    EXPECT_EQ(m_dialog.tree()->option(0, 2).text, u"X.Rain(mm)");
    EXPECT_EQ(m_dialog.tree()->option(0, 2).id, quint32{u'X'} << 16);
    EXPECT_EQ(m_dialog.windowTitle(), u"Loading Large File");
}

TEST_F(OptionTreeDlgTest, CollectsInFileOrderEachOnce) {
    EXPECT_EQ(chosen(), "");
    check(2);
    check(0);
    EXPECT_EQ(chosen(), "B.Temp(degC){0} X.Rain(mm){0} ");
    check(0, false);
    EXPECT_EQ(chosen(), "X.Rain(mm){0} ");
    check(0);
    EXPECT_EQ(chosen(), "B.Temp(degC){0} X.Rain(mm){0} ");
    m_dialog.offer({"A.T{0}", "B.T{0}", "A.T{0}"});
    check(2);
    check(0);
    EXPECT_EQ(chosen(), "A.T{0} ");
    check(0, false);
    EXPECT_EQ(chosen(), "") << "equal labels are removed together";
    m_dialog.offer({});
    button("Select all")->click();
    EXPECT_EQ(chosen(), "");
    EXPECT_EQ(m_dialog.tree()->model()->rowCount(), 1) << "the group is there, empty";
}

TEST_F(OptionTreeDlgTest, LabelsComeBackByteForByte) {
    const std::string windows1252 = "A.Temp(\xB0\x43){0}";
    m_dialog.offer({windows1252, "A.a{b}c{12}", "A.plain", ""});
    EXPECT_EQ(m_dialog.tree()->option(0, 0).text, QString::fromUtf8("A.Temp(\u00B0C)"));
    EXPECT_EQ(m_dialog.tree()->option(0, 1).text, u"A.a{b}c");
    EXPECT_EQ(m_dialog.tree()->option(0, 2).text, u"A.plain");
    m_dialog.tree()->setVisibleChecked(true);
    EXPECT_EQ(m_dialog.chosen(),
              (std::vector<std::string>{windows1252, "A.a{b}c{12}", "A.plain", ""}));
}

TEST_F(OptionTreeDlgTest, SelectAllAndNoneWorkOnWhatTheFilterShows) {
    auto* filter = m_dialog.findChild<QLineEdit*>();
    filter->setText(u"b."_s);
    button("Select all")->click();
    EXPECT_EQ(chosen(), "B.Temp(degC){0} B.Wind{1} ");
    filter->clear();
    button("Select all")->click();
    filter->setText(u"rain"_s);
    button("Select none")->click();
    EXPECT_EQ(chosen(), "B.Temp(degC){0} B.Wind{1} ");
}

TEST_F(OptionTreeDlgTest, KeysInTheFilterStayInTheDialog) {
    std::string trace;
    QTimer::singleShot(0, &m_dialog, [&] {
        auto* filter = m_dialog.findChild<QLineEdit*>();
        QTest::keyClicks(filter, u"wind"_s);
        QTest::keyClick(filter, Qt::Key_Return);
        trace += m_dialog.isVisible() ? "open " : "closed ";
        trace += m_dialog.focusWidget() == m_dialog.tree() ? "tree " : "elsewhere ";
        QTest::keyClick(m_dialog.tree(), Qt::Key_Space);
        QTest::keyClick(filter, Qt::Key_Escape);
        trace += m_dialog.isVisible() && filter->text().isEmpty() ? "cleared " : "lost ";
        QTest::keyClick(filter, Qt::Key_Escape);
        trace += m_dialog.isVisible() ? "open" : "closed";
        m_dialog.reject();
    });
    const auto labels = m_dialog.choose({"A.Temp{0}", "A.Wind{1}"});
    EXPECT_EQ(trace, "open tree cleared closed");
    EXPECT_EQ(labels, std::vector<std::string>{"A.Wind{1}"}) << "Cancel keeps what was collected";
}

} // namespace
} // namespace pellam
