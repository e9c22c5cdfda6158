#include "app/frame/FrameCommands.h"

#include "app/frame/CMainFrame.h"
#include "app/frame/FrameLayout.h"
#include "ui/commands/CommandSet.h"
#include "views/chart/CTrendView.h"
#include "views/grid/CGridView.h"

#include <QAction>

namespace pellam {

namespace {

using enum Command;
using Rule = CommandSet::Rule;

void addFiles(CommandSet& commands, CMainFrame& frame, const Rule& exportable) {
    commands.add({Open, "&Open...", "Ctrl+O", "Open a historical data file", IconName::Open},
                 [&frame] { frame.OnLoadLoadreplayfile(); });
    commands.add({OpenWithLayout, "Open With &Layout...", "",
                  "Open a text file and tell how it is laid out"},
                 [&frame] { frame.OnOpenWithLayout(); });
    commands.add({OpenDatabase, "Open &Database Session...", "",
                  "Open a session that is stored in a database", IconName::Database},
                 [&frame] { frame.OnLoadFromDatabase(); });
    commands.add(
        {Export, "&Export...", "Ctrl+E", "Write the checked channels to a CSV or text file",
         IconName::Export},
        [&frame] { frame.ExportData(); }, exportable);
    commands.add(
        {ViewSpreadsheet, "View with External &Spreadsheet...", "",
         "Export a CSV file and open it with your spreadsheet program", IconName::Spreadsheet},
        [&frame] { frame.OnFileViewin(); }, exportable);
    commands.add(
        {Properties, "Propert&ies...", "Alt+Return",
         "Show what is known of the loaded file, and what of it was passed over"},
        [&frame] { frame.OnFileProperties(); }, [&frame] { return frame.data().rowCount() > 0; });
    commands.add({Preferences, "Pre&ferences...", "", "Choose the default save folder",
                  IconName::Preferences},
                 [&frame] { frame.OnFilePreferences(); });
    commands.add({Exit, "E&xit", "", "Leave Pellam"}, [&frame] { frame.close(); });
    commands.add({LoadTrend, "Load Trend", "", ""}, [&frame] { frame.OnLoadTrend(); });
}

void addPrinting(CommandSet& commands, CMainFrame& frame) {
    const Rule printable = [&frame] {
        return frame.chartInFront() ? frame.chartPage().hasChart() : frame.data().rowCount() > 0;
    };
    commands.add(
        {Print, "&Print...", "Ctrl+P", "Print the page in front", IconName::Print},
        [&frame] { frame.OnFilePrint(); }, printable);
    commands.add(
        {PrintPreview, "Print Pre&view", "Ctrl+Alt+P",
         "Show the page in front as it will be printed", IconName::PrintPreview},
        [&frame] { frame.OnSetPreviewMode(true); },
        [&frame, printable] { return printable() && !frame.preview(); });
}

void addEditing(CommandSet& commands, CMainFrame& frame, const Rule& exportable) {
    // Copying is the command of the page in front.
    const auto copying = [&frame] {
        auto& page =
            frame.chartInFront() ? frame.chartPage().commands() : frame.gridPage().commands();
        return page.action(Command::Copy);
    };
    CommandSpec copy = frame.gridPage().commands().spec(Command::Copy);
    copy.readBy = CommandSpec::Keys::ByWindow;
    commands.add(
        copy, [copying] { copying()->trigger(); }, [copying] { return copying()->isEnabled(); });
    commands.add(
        {SelectAllChannels, "Select &All Channels", "Ctrl+A",
         "Check all channels for chart and export", IconName::SelectAll},
        [&frame] { frame.OnEditSelectAll(); }, exportable);
    commands.add(
        {DeselectAllChannels, "&Deselect All Channels", "Ctrl+D", "Uncheck all channels",
         IconName::DeselectAll},
        [&frame] { frame.OnEditClearAll(); }, exportable);
}

void addViews(CommandSet& commands, CMainFrame& frame) {
    const Rule noPreview = [&frame] { return !frame.preview(); };
    commands.add(
        {Sidebar, "Sidebar", "", "Show or hide the task sidebar", IconName::Sidebar},
        [&frame] { frame.OnViewSidebar(); }, noPreview,
        [&frame] { return frame.frameLayout().hasSidebar(); });
    commands.add(
        {Toolbar, "&Toolbar", "", "Show or hide the toolbar"}, [&frame] { frame.OnViewToolbar(); },
        noPreview, [&frame] { return frame.frameLayout().hasToolbar(); });
    commands.add(
        {DataGrid, "Data Grid", "", "Show the data on a grid", IconName::Grid},
        [&frame] { frame.OnViewDatagrid(); }, {}, [&frame] { return !frame.chartInFront(); });
    commands.add(
        {TrendChart, "Trend Chart", "", "Show the data on a chart", IconName::Chart},
        [&frame] { frame.OnViewTrendchart(); }, {}, [&frame] { return frame.chartInFront(); });
}

void addMissing(CommandSet& commands, CMainFrame& frame) {
    commands.add(
        {MissingAsNumbers, "Missing Values as &Numbers", "Ctrl+M",
         "Draw and count numbers that stand for no value, such as -9999"},
        [&frame] { frame.OnViewMissing(); },
        [&frame] { return frame.data().hasMissingNumbers() && !frame.preview(); },
        [&frame] { return frame.data().missingAsNumbers(); });
}

void addHelp(CommandSet& commands, CMainFrame& frame) {
    commands.add({HelpContents, "&Help Contents", "F1", "Open the help pages", IconName::Help},
                 [&frame] { frame.OnHelp(); });
    commands.add({About, "&About...", "", "Version and licence", IconName::About},
                 [&frame] { frame.OnAppAbout(); });
    commands.add({ResetMessages, "Reset don't ask me again dialogues", "",
                  "Ask all questions again that were answered for good", IconName::ResetDialogs},
                 [&frame] { frame.OnClearXMessage(); });
}

} // namespace

void addFrameCommands(CommandSet& commands, CMainFrame& frame) {
    const Rule exportable = [&frame] { return frame.data().rowCount() > 0 && !frame.preview(); };
    addFiles(commands, frame, exportable);
    addPrinting(commands, frame);
    addEditing(commands, frame, exportable);
    addViews(commands, frame);
    addMissing(commands, frame);
    addHelp(commands, frame);
}

} // namespace pellam
