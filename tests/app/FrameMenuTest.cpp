#include "FrameFixture.h"

#include "trend/control/CTrend.h"
#include "trend/control/TrendScene.h"
#include "ui/sidebar/TaskSidebar.h"
#include "views/chart/CTrendView.h"
#include "views/grid/MyCug.h"
#include "views/sheet/GridModel.h"

using namespace Qt::StringLiterals;

namespace pellam {

using FrameMenuTest = FrameFixture;

/// The keys of a command, those first that its menu item shows.
static QStringList keysOf(const QAction* action) {
    const QString shown = action->text().section(u'\t', 1);
    if (!shown.isEmpty()) return {shown};
    return QKeySequence::listToString(action->shortcuts()).split(u"; "_s, Qt::SkipEmptyParts);
}

/// The keys in the first column of the help page of keys: "1 to 3" stands for 1, 2 and 3.
static QStringList keysOnHelpPage() {
    QFile page(u":/help/keyboard.html"_s);
    EXPECT_TRUE(page.open(QIODevice::ReadOnly));
    static const QRegularExpression row(u"<tr><td>(.*?)</td>"_s);
    QStringList keys;
    for (auto rows = row.globalMatch(QString::fromUtf8(page.readAll())); rows.hasNext();) {
        QString cell = rows.next().captured(1).replace(u"Delete"_s, u"Del"_s);
        const qsizetype range = cell.indexOf(u" to "_s);
        for (int i = cell.left(range).toInt(); range > 0 && i <= cell.mid(range + 4).toInt(); ++i)
            keys += QString::number(i);
        keys += cell.split(u", "_s);
    }
    return keys;
}

TEST_F(FrameMenuTest, EveryKeyIsOfOneCommandAndOnTheHelpPage) {
    const QStringList help = keysOnHelpPage();
    QStringList windowKeys;
    for (const QAction* action : start().QWidget::actions()) {
        EXPECT_FALSE(action->statusTip().isEmpty() &&
                     action->data().toInt() != int(Command::LoadTrend))
            << action->text().toStdString();
        const QStringList keys = keysOf(action);
        EXPECT_TRUE(keys.isEmpty() || help.contains(keys[0])) << keys.value(0).toStdString();
        for (const QKeySequence& key : action->shortcuts()) {
            EXPECT_FALSE(windowKeys.contains(key.toString())) << key.toString().toStdString();
            windowKeys += key.toString();
        }
    }
    EXPECT_GT(windowKeys.size(), 20);
}

TEST_F(FrameMenuTest, LettersOfAMenuAreOfOneItem) {
    for (const auto* menu : start().menuBar()->actions()) {
        QString letters;
        for (const auto* action : menu->menu()->actions()) {
            const qsizetype mark = action->text().indexOf(u'&');
            if (mark < 0) continue;
            const QChar letter = action->text()[mark + 1].toLower();
            EXPECT_FALSE(letters.contains(letter)) << action->text().toStdString();
            letters += letter;
        }
    }
}

TEST_F(FrameMenuTest, UndoAndRedoBelongToTheGrid) {
    auto& frame = start(csv());
    const auto state = [&] {
        frame.OnIdleUpdateCmdUI();
        std::string text;
        for (const auto command : {Command::Undo, Command::Redo}) {
            const auto* action = frame.actions().action(command);
            text += action->text().toStdString() + (action->isEnabled() ? "! " : " ");
        }
        CellBuffer buffer;
        return text + std::string(frame.data().text(1, 0, buffer));
    };
    EXPECT_EQ(state(), "&Undo Red&o 4.25");
    auto& model = frame.Grid()->gridModel();
    model.setData(model.index(1, 1), u"7"_s);
    EXPECT_EQ(state(), "&Undo Typing! Red&o 7");
    QTest::keyClick(frame.Grid(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(state(), "&Undo Red&o Typing! 4.25");
    give(Command::TrendChart);
    EXPECT_EQ(state(), "&Undo Red&o Typing 4.25");
    QTest::keyClick(&frame, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(state(), "&Undo Red&o Typing 4.25") << "not behind the chart";
    give(Command::DataGrid);
    QTest::keyClick(&frame, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(state(), "&Undo Typing! Red&o 7");
}

TEST_F(FrameMenuTest, TheChartsOwnKeysWorkInTheChartAlone) {
    auto& frame = start(csv());
    give(Command::TrendChart);
    frame.OnIdleUpdateCmdUI();
    CTrend& trend = frame.chartPage().trend();
    const auto marks = [&] { return trend.scene().marks.measuring(); };
    QTest::keyClick(frame.findChild<TaskSidebar*>(), Qt::Key_A);
    EXPECT_FALSE(marks()) << "the sidebar has the focus";
    QTest::keyClick(&trend, Qt::Key_A);
    EXPECT_TRUE(marks());
    give(Command::RemoveCursors);
    EXPECT_FALSE(marks());
    give(Command::CursorB);
    EXPECT_TRUE(marks());
    frame.OnIdleUpdateCmdUI();
    give(Command::DataGrid);
    frame.OnIdleUpdateCmdUI();
    give(Command::RemoveCursors);
    EXPECT_TRUE(marks()) << "grey while the grid is in front";
}

/// The commands that can be given now, by their letters.
static std::string enabled(CMainFrame& frame) {
    frame.OnIdleUpdateCmdUI();
    const std::pair<char, Command> letters[] = {
        {'O', Command::Open},         {'d', Command::OpenDatabase},
        {'E', Command::Export},       {'S', Command::ViewSpreadsheet},
        {'P', Command::Print},        {'v', Command::PrintPreview},
        {'f', Command::Preferences},  {'X', Command::Cut},
        {'C', Command::Copy},         {'H', Command::CopyWithHeadings},
        {'V', Command::Paste},        {'A', Command::SelectAllChannels},
        {'F', Command::Find},         {'D', Command::DeselectAllChannels},
        {'N', Command::FindNext},     {'G', Command::GoTo},
        {'8', Command::NextDamaged},  {'s', Command::Sidebar},
        {'t', Command::Toolbar},      {'x', Command::EditAxis},
        {'a', Command::AutoScale},    {'z', Command::SelectionZoom},
        {'+', Command::IncreaseFont}, {'-', Command::DecreaseFont},
        {'|', Command::StripChart},
    };
    std::string text;
    for (const auto& [letter, command] : letters)
        if (frame.actions().action(command)->isEnabled()) text += letter;
    return text;
}

TEST_F(FrameMenuTest, CommandsAreGreyWhereTheyWouldDoNothing) {
    QApplication::clipboard()->clear();
    auto& frame = start();
    EXPECT_EQ(enabled(frame), "Odfst") << "empty window";
    give(Command::TrendChart);
    EXPECT_EQ(enabled(frame), "OdfCstxaz+-") << "no chart to print, no scales to stack";
    frame.OnLoadSessionFromFile(csv());
    EXPECT_EQ(enabled(frame), "OdESPvfXCHAFDNGst") << "grid with data";
    QApplication::clipboard()->setText(u"1"_s);
    untilIdle();
    EXPECT_EQ(enabled(frame), "OdESPvfXCHVAFDNGst") << "text on the clipboard";
    give(Command::TrendChart);
    EXPECT_EQ(enabled(frame), "OdESPvfCADstxaz+-") << "trend page";
    give(Command::DataGrid);
    frame.OnSetPreviewMode(true);
    EXPECT_EQ(enabled(frame), "OdPf") << "print preview";
    frame.OnSetPreviewMode(false);
    DialogScript dialogs;
    dialogs.thenMessage();
    frame.OnLoadSessionFromFile(path("missing.csv"));
    EXPECT_EQ(enabled(frame), "OdfVst") << "after a load that failed";
}

TEST_F(FrameMenuTest, CheckMarksFollowTheWindow) {
    auto& frame = start();
    const auto checked = [&](Command command) {
        return frame.actions().action(command)->isChecked();
    };
    EXPECT_TRUE(checked(Command::DataGrid));
    EXPECT_TRUE(checked(Command::Toolbar));
    give(Command::TrendChart);
    give(Command::TrendChart);
    EXPECT_TRUE(checked(Command::TrendChart)) << "given twice it stays";
    EXPECT_FALSE(checked(Command::DataGrid));
    give(Command::Toolbar);
    frame.OnIdleUpdateCmdUI();
    EXPECT_FALSE(checked(Command::Toolbar));
    EXPECT_FALSE(frame.findChild<QToolBar*>()->isVisible());
    EXPECT_EQ(setting("ToolBar"), "0");
}

TEST_F(FrameMenuTest, KeysReachTheGridsChannels) {
    auto& frame = start(csv());
    const auto charted = [&] {
        std::string text;
        for (int column = 0; column < 4; ++column)
            text += frame.data().column(column).charted() ? '1' : '0';
        return text;
    };
    ASSERT_EQ(charted(), "1110");
    QTest::keyClick(&frame, Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(charted(), "0000");
    QTest::keyClick(&frame, Qt::Key_A, Qt::ControlModifier);
    EXPECT_NE(charted(), "0000");
}

} // namespace pellam
