#include "FrameFixture.h"

namespace pellam {

using FrameMenuTest = FrameFixture;

static QString line(const QAction* action) {
    if (action->isSeparator()) return u"  --"_qs;
    if (action->menu()) return u"  %1 >"_qs.arg(action->text());
    return u"  %1 | %2 | %3"_qs.arg(action->text(), action->shortcut().toString())
        .arg(action->data().toInt());
}

TEST_F(FrameMenuTest, HasEveryItemWithItsKeyAndNumber) {
    QStringList lines;
    for (const auto* menu : start().menuBar()->actions()) {
        lines += menu->text();
        for (const auto* action : menu->menu()->actions())
            lines += line(action);
    }
    EXPECT_EQ(lines.join(u'\n').toStdString(), R"(&File
  &Open... | Ctrl+O | 32771
  Open &Database Session... |  | 109
  --
  &Export... | Ctrl+E | 32772
  View with External &Spreadsheet... |  | 32794
  --
  &Print... | Ctrl+P | 57607
  Print Pre&view | Ctrl+Alt+P | 57609
  --
  P&roperties... | Alt+Return | 33010
  Pre&ferences... |  | 32808
  &Recent Files >
  --
  E&xit |  | 57665
&Edit
  Cu&t | Ctrl+X | 57635
  &Copy | Ctrl+C | 57634
  Copy with &Headings | Ctrl+Shift+C | 33001
  &Paste | Ctrl+V | 57637
  --
  Select &All Channels | Ctrl+A | 57642
  &Deselect All Channels | Ctrl+D | 57633
  --
  &Find... | Ctrl+F | 57636
  Find &Next | F3 | 33002
  Find Pre&vious | Shift+F3 | 33003
  &Go To... | Ctrl+G | 33004
  --
  Next Da&maged Line | F8 | 33005
  P&revious Damaged Line | Shift+F8 | 33006
&View
  Sidebar |  | 32809
  &Toolbar |  | 59392
  --
  Data Grid |  | 32800
  Trend Chart |  | 32801
  --
  Edit A&xis... | Ctrl+Shift+X | 32782
  &Auto Scale | F5 | 32789
  Selection &Zoom | F6 | 32795
  &Increase Font Size | Ctrl++ | 32776
  &Decrease Font Size | Ctrl+- | 32777
&Help
  &Help Contents | F1 | 57667
  &About... |  | 57664)");
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
    QApplication::clipboard()->setText(u"1"_qs);
    QTest::qWait(10);
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
