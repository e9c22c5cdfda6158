#include "ui/sidebar/TaskSidebar.h"

#include "ui/icons/IconSet.h"

using namespace Qt::StringLiterals;

namespace pellam {
namespace {

class TaskSidebarTest : public testing::Test {
  protected:
    QAction* action(const char* text) {
        auto* made = new QAction(QString::fromLatin1(text), &m_owner);
        QObject::connect(made, &QAction::triggered, &m_owner,
                         [this, made] { m_run += made->text() + u';'; });
        return made;
    }

    void fill() {
        m_bar.addGroup(u"do"_s, u"What to do?"_s);
        m_bar.addTask(u"do"_s, m_open, u"Open a file"_s);
        m_bar.addTask(u"do"_s, m_export);
        m_bar.addGroup(u"view"_s, u"What to view?"_s);
        m_bar.addTask(u"view"_s, m_grid, u"View on a grid"_s);
    }

    void show() {
        m_bar.resize(225, 500);
        m_bar.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_bar));
    }

    std::string outline() const {
        std::string text;
        for (const QString& id : m_bar.groupIds())
            text += (id + u": "_s + m_bar.taskTexts(id).join(u" | "_s) + u'\n').toStdString();
        return text;
    }

    QAbstractButton* row(const QString& name) {
        for (auto* button : m_bar.findChildren<QAbstractButton*>())
            if (button->accessibleName() == name) return button;
        return nullptr;
    }

    std::string focusName() const {
        const QWidget* at = QApplication::focusWidget();
        return at ? at->accessibleName().toStdString() : "nothing";
    }

    std::string press(Qt::Key key) {
        QTest::keyClick(QApplication::focusWidget(), key);
        return focusName();
    }

    QObject m_owner;
    QString m_run;
    QAction* m_open = action("&Open...");
    QAction* m_export = action("E&xport && Save...\tCtrl+E");
    QAction* m_grid = action("Grid");
    TaskSidebar m_bar;
};

TEST_F(TaskSidebarTest, TaskMayRemoveItsOwnGroup) {
    fill();
    QObject::connect(m_grid, &QAction::triggered, &m_bar, [this] { m_bar.removeGroup(u"view"_s); });
    show();
    QTest::mouseClick(row(u"View on a grid"_s), Qt::LeftButton);
    EXPECT_EQ(m_run, u"Grid;");
    EXPECT_EQ(outline(), "do: Open a file | Export & Save\n");
}

TEST_F(TaskSidebarTest, KeyboardWalksRowsAndRunsTasks) {
    fill();
    m_export->setEnabled(false);
    show();
    row(u"What to do?"_s)->setFocus();
    EXPECT_EQ(press(Qt::Key_Down), "Open a file");
    EXPECT_EQ(press(Qt::Key_Return), "Open a file");
    EXPECT_EQ(press(Qt::Key_Space), "Open a file");
    EXPECT_EQ(m_run, u"&Open...;&Open...;");
    EXPECT_EQ(press(Qt::Key_Down), "What to view?") << "a greyed task is passed over";
    EXPECT_EQ(press(Qt::Key_End), "View on a grid");
    EXPECT_EQ(press(Qt::Key_Down), "View on a grid") << "nothing below";
    EXPECT_EQ(press(Qt::Key_Home), "What to do?");
    EXPECT_EQ(press(Qt::Key_Tab), "Open a file");
}

TEST_F(TaskSidebarTest, GroupsFoldFromTheKeyboard) {
    fill();
    show();
    row(u"Open a file"_s)->setFocus();
    EXPECT_EQ(press(Qt::Key_Left), "What to do?")
        << "a hidden row gives the keyboard to its heading";
    EXPECT_FALSE(m_bar.isExpanded(u"do"_s));
    EXPECT_FALSE(row(u"Open a file"_s)->isVisible());
    EXPECT_EQ(press(Qt::Key_Down), "What to view?");
    EXPECT_EQ(press(Qt::Key_Up), "What to do?");
    press(Qt::Key_Return);
    EXPECT_TRUE(row(u"Open a file"_s)->isVisible());
}

TEST_F(TaskSidebarTest, TaskFollowsItsAction) {
    fill();
    show();
    QAbstractButton* link = row(u"Export & Save"_s);
    ASSERT_TRUE(link);
    m_export->setText(u"Send"_s);
    m_export->setIcon(IconSet::icon(IconName::Export));
    m_export->setCheckable(true);
    m_export->setChecked(true);
    m_export->setEnabled(false);
    EXPECT_EQ(outline(), "do: Open a file | Send\nview: View on a grid\n");
    EXPECT_FALSE(link->icon().isNull());
    EXPECT_TRUE(link->isChecked());
    EXPECT_FALSE(link->isEnabled());
    QTest::mouseClick(link, Qt::LeftButton);
    EXPECT_EQ(m_run, u"");

    m_export->setEnabled(true);
    QObject::connect(m_export, &QAction::toggled, m_export, [this] { m_export->setChecked(true); });
    QTest::mouseClick(link, Qt::LeftButton);
    EXPECT_TRUE(link->isChecked()) << "the action refused, so the row stays as it was";
    delete m_export;
    EXPECT_EQ(outline(), "do: Open a file\nview: View on a grid\n");
}

TEST_F(TaskSidebarTest, LongTextsWrapInsteadOfBeingCut) {
    fill();
    show();
    const int before = row(u"Open a file"_s)->height();
    m_bar.addTask(u"do"_s, action("x"),
                  u"A long task text that takes several lines in a narrow sidebar like this"_s);
    m_bar.resize(140, 500);
    const QAbstractButton* wrapped = m_bar.findChildren<QAbstractButton*>().last();
    for (auto* button : m_bar.findChildren<QAbstractButton*>())
        if (button->accessibleName().startsWith(u"A long")) wrapped = button;
    EXPECT_TRUE(QTest::qWaitFor([&] { return wrapped->height() > 2 * before; }));
    for (auto* button : m_bar.findChildren<QAbstractButton*>()) {
        EXPECT_GE(button->height(), button->heightForWidth(button->width()))
            << button->accessibleName().toStdString();
    }
    EXPECT_LE(wrapped->width(), 140);
}

} // namespace
} // namespace pellam
