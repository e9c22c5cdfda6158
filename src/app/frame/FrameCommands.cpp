#include "app/frame/FrameCommands.h"

#include "app/frame/CMainFrame.h"
#include "app/frame/FrameLayout.h"
#include "ui/commands/CommandSet.h"
#include "views/chart/CTrendView.h"
#include "views/grid/CGridView.h"

#include <QAction>

namespace pellam {

namespace {

using Rule = std::function<bool()>;

void addFiles(CommandSet& commands, CMainFrame& frame, const Rule& exportable) {
    commands.add({.command = Command::Open,
                  .text = "&Open...",
                  .keys = "Ctrl+O",
                  .tip = "Open a historical data file",
                  .icon = IconName::Open,
                  .run = [&frame] { frame.OnLoadLoadreplayfile(); }});
    commands.add({.command = Command::OpenDatabase,
                  .text = "Open &Database Session...",
                  .tip = "Open a session that is stored in a database",
                  .icon = IconName::Database,
                  .run = [&frame] { frame.OnLoadFromDatabase(); }});
    commands.add({.command = Command::Export,
                  .text = "&Export...",
                  .keys = "Ctrl+E",
                  .tip = "Write the checked channels to a CSV or text file",
                  .icon = IconName::Export,
                  .run = [&frame] { frame.ExportData(); },
                  .enabled = exportable});
    commands.add({.command = Command::ViewSpreadsheet,
                  .text = "View with External &Spreadsheet...",
                  .tip = "Export a CSV file and open it with your spreadsheet program",
                  .icon = IconName::Spreadsheet,
                  .run = [&frame] { frame.OnFileViewin(); },
                  .enabled = exportable});
    commands.add({.command = Command::Preferences,
                  .text = "Pre&ferences...",
                  .tip = "Choose the default save folder",
                  .icon = IconName::Preferences,
                  .run = [&frame] { frame.OnFilePreferences(); }});
    commands.add(
        {.command = Command::Exit, .text = "E&xit", .tip = "Leave Pellam", .run = [&frame] {
             frame.close();
         }});
    commands.add({.command = Command::LoadTrend, .text = "Load Trend", .run = [&frame] {
                      frame.OnLoadTrend();
                  }});
}

void addPrinting(CommandSet& commands, CMainFrame& frame) {
    const Rule printable = [&frame] {
        return frame.chartInFront() ? frame.chartPage().hasChart() : frame.data().rowCount() > 0;
    };
    commands.add({.command = Command::Print,
                  .text = "&Print...",
                  .keys = "Ctrl+P",
                  .tip = "Print the page in front",
                  .icon = IconName::Print,
                  .run = [&frame] { frame.OnFilePrint(); },
                  .enabled = printable});
    commands.add({.command = Command::PrintPreview,
                  .text = "Print Pre&view",
                  .keys = "Ctrl+Alt+P",
                  .tip = "Show the page in front as it will be printed",
                  .icon = IconName::PrintPreview,
                  .run = [&frame] { frame.OnSetPreviewMode(true); },
                  .enabled = [&frame, printable] { return printable() && !frame.preview(); }});
}

void addEditing(CommandSet& commands, CMainFrame& frame, const Rule& exportable) {
    // Copying is the command of the page in front.
    const auto copying = [&frame] {
        auto& page =
            frame.chartInFront() ? frame.chartPage().commands() : frame.gridPage().commands();
        return page.action(Command::Copy);
    };
    CommandSpec copy = frame.gridPage().commands().spec(Command::Copy);
    copy.readBy = CommandSpec::Keys::Window;
    copy.run = [copying] { copying()->trigger(); };
    copy.enabled = [copying] { return copying()->isEnabled(); };
    commands.add(copy);
    commands.add({.command = Command::SelectAllChannels,
                  .text = "Select &All Channels",
                  .keys = "Ctrl+A",
                  .tip = "Check all channels for chart and export",
                  .icon = IconName::SelectAll,
                  .run = [&frame] { frame.OnEditSelectAll(); },
                  .enabled = exportable});
    commands.add({.command = Command::DeselectAllChannels,
                  .text = "&Deselect All Channels",
                  .keys = "Ctrl+D",
                  .tip = "Uncheck all channels",
                  .icon = IconName::DeselectAll,
                  .run = [&frame] { frame.OnEditClearAll(); },
                  .enabled = exportable});
}

void addViews(CommandSet& commands, CMainFrame& frame) {
    const Rule noPreview = [&frame] { return !frame.preview(); };
    commands.add({.command = Command::Sidebar,
                  .text = "Sidebar",
                  .tip = "Show or hide the task sidebar",
                  .icon = IconName::Sidebar,
                  .run = [&frame] { frame.OnViewSidebar(); },
                  .enabled = noPreview,
                  .checked = [&frame] { return frame.frameLayout().hasSidebar(); }});
    commands.add({.command = Command::Toolbar,
                  .text = "&Toolbar",
                  .tip = "Show or hide the toolbar",
                  .run = [&frame] { frame.OnViewToolbar(); },
                  .enabled = noPreview,
                  .checked = [&frame] { return frame.frameLayout().hasToolbar(); }});
    commands.add({.command = Command::DataGrid,
                  .text = "Data Grid",
                  .tip = "Show the data on a grid",
                  .icon = IconName::Grid,
                  .run = [&frame] { frame.OnViewDatagrid(); },
                  .checked = [&frame] { return !frame.chartInFront(); }});
    commands.add({.command = Command::TrendChart,
                  .text = "Trend Chart",
                  .tip = "Show the data on a chart",
                  .icon = IconName::Chart,
                  .run = [&frame] { frame.OnViewTrendchart(); },
                  .checked = [&frame] { return frame.chartInFront(); }});
}

void addHelp(CommandSet& commands, CMainFrame& frame) {
    commands.add({.command = Command::HelpContents,
                  .text = "&Help Contents",
                  .keys = "F1",
                  .tip = "Open the help pages",
                  .icon = IconName::Help,
                  .run = [&frame] { frame.OnHelp(); }});
    commands.add({.command = Command::About,
                  .text = "&About...",
                  .tip = "Version and licence",
                  .icon = IconName::About,
                  .run = [&frame] { frame.OnAppAbout(); }});
    commands.add({.command = Command::ResetMessages,
                  .text = "Reset don't ask me again dialogues",
                  .tip = "Ask all questions again that were answered for good",
                  .icon = IconName::ResetDialogs,
                  .run = [&frame] { frame.OnClearXMessage(); }});
}

} // namespace

void addFrameCommands(CommandSet& commands, CMainFrame& frame) {
    const Rule exportable = [&frame] { return frame.data().rowCount() > 0 && !frame.preview(); };
    addFiles(commands, frame, exportable);
    addPrinting(commands, frame);
    addEditing(commands, frame, exportable);
    addViews(commands, frame);
    addHelp(commands, frame);
}

} // namespace pellam
