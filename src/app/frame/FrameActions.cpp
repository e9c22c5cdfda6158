#include "app/frame/FrameActions.h"

#include "ui/icons/IconSet.h"

#include <QAction>
#include <QActionGroup>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include <optional>
#include <utility>

namespace pellam {

namespace {

/// A command as the menus show it.
struct Entry {
    Command command;
    const char* text;
    const char* key; ///< portable key text, several separated by "; "; empty for none
    std::optional<IconName> icon;
    const char* tip; ///< what the status bar says
    bool checkable = false;
};

using enum Command;

// clang-format off
const Entry kEntries[] = {
    {Open, "&Open...", "Ctrl+O", IconName::Open, "Open a historical data file"},
    {OpenDatabase, "Open &Database Session...", "", IconName::Database,
     "Open a session that is stored in a database"},
    {Export, "&Export...", "Ctrl+E", IconName::Export, "Write the checked channels to a CSV or text file"},
    {ViewSpreadsheet, "View with External &Spreadsheet...", "", IconName::Spreadsheet,
     "Export a CSV file and open it with your spreadsheet program"},
    {Print, "&Print...", "Ctrl+P", IconName::Print, "Print the page in front"},
    {PrintPreview, "Print Pre&view", "Ctrl+Alt+P", IconName::PrintPreview, "Show the page in front as it will be printed"},
    {Preferences, "Pre&ferences...", "", IconName::Preferences, "Choose the default save folder"},
    {Properties, "P&roperties...", "Alt+Return", {}, "Show what is known of the loaded file, and what of it was passed over"},
    {Exit, "E&xit", "", {}, "Leave Pellam"},

    {Cut, "Cu&t", "Ctrl+X", IconName::Cut, "Copy the selected cells and empty them"},
    {Copy, "&Copy", "Ctrl+C", IconName::Copy, "Copy the selection"},
    {CopyWithHeadings, "Copy with &Headings", "Ctrl+Shift+C", {}, "Copy the selected cells with their headings"},
    {Paste, "&Paste", "Ctrl+V", IconName::Paste, "Paste cells at the current cell"},
    {SelectAllChannels, "Select &All Channels", "Ctrl+A", IconName::SelectAll, "Check all channels for chart and export"},
    {DeselectAllChannels, "&Deselect All Channels", "Ctrl+D", IconName::DeselectAll, "Uncheck all channels"},
    {Find, "&Find...", "Ctrl+F", IconName::Find, "Find a text or value on the grid"},
    {FindNext, "Find &Next", "F3", {}, "Go to the next place found"},
    {FindPrevious, "Find Pre&vious", "Shift+F3", {}, "Go to the place found before"},
    {GoTo, "&Go To...", "Ctrl+G", IconName::GoTo, "Go to a time or a row"},
    {NextDamaged, "Next Da&maged Line", "F8", IconName::NextDamaged, "Go to the next line that failed its checksum"},
    {PreviousDamaged, "P&revious Damaged Line", "Shift+F8", IconName::PreviousDamaged,
     "Go to the line before that failed its checksum"},

    {Sidebar, "Sidebar", "", IconName::Sidebar, "Show or hide the task sidebar", true},
    {Toolbar, "&Toolbar", "", {}, "Show or hide the toolbar", true},
    {DataGrid, "Data Grid", "", IconName::Grid, "Show the data on a grid", true},
    {TrendChart, "Trend Chart", "", IconName::Chart, "Show the data on a chart", true},
    {EditAxis, "Edit A&xis...", "Ctrl+Shift+X", IconName::EditAxes, "Edit the titles and ranges of the axes"},
    {AutoScale, "&Auto Scale", "F5", IconName::AutoScale, "Fit the axes to the data"},
    {SelectionZoom, "Selection &Zoom", "F6", IconName::SelectionZoomOff,
     "Zoom into a part of the chart by drawing a frame around it", true},
    {IncreaseFont, "&Increase Font Size", "Ctrl++; Ctrl+=", IconName::IncreaseFont, "Make the chart's texts larger"},
    {DecreaseFont, "&Decrease Font Size", "Ctrl+-", IconName::DecreaseFont, "Make the chart's texts smaller"},
    {StripChart, "&Strip Chart", "F7", IconName::StripChart, "Give every axis a strip of its own", true},

    {HelpContents, "&Help Contents", "F1", IconName::Help, "Open the help pages"},
    {About, "&About...", "", IconName::About, "Version and licence"},
    {ResetMessages, "Reset don't ask me again dialogues", "", IconName::ResetDialogs,
     "Ask all questions again that were answered for good"},
    {LoadTrend, "Load Trend", "", {}, ""},
};
// clang-format on

// A gap in a list of commands: the separator line.
constexpr auto kGap = static_cast<Command>(0);

} // namespace

FrameActions::FrameActions(QMainWindow* window) : QObject(window), m_window(window) {
    buildActions();
}

QAction* FrameActions::action(Command command) const {
    return m_actions.value(static_cast<int>(command));
}

QAction* FrameActions::actionOf(int number) const {
    return m_actions.value(number);
}

void FrameActions::on(Command command, std::function<void()> handler) {
    connect(action(command), &QAction::triggered, m_window,
            [handler = std::move(handler)] { handler(); });
}

void FrameActions::setEnabled(std::initializer_list<Command> commands, bool enabled) {
    for (const auto command : commands)
        action(command)->setEnabled(enabled);
}

void FrameActions::showState(const FrameState& state) {
    const bool onGrid = state.gridPage && !state.preview;
    setEnabled({Export, ViewSpreadsheet, SelectAllChannels, DeselectAllChannels},
               state.hasData && !state.preview);
    const bool printable = state.gridPage ? state.hasData : state.hasChart;
    setEnabled({Properties}, state.hasData);
    setEnabled({Print}, printable);
    setEnabled({PrintPreview}, printable && !state.preview);
    setEnabled({Find, FindNext, FindPrevious, GoTo}, state.hasData && onGrid);
    setEnabled({CopyWithHeadings}, state.hasData && onGrid && state.canCopy);
    setEnabled({Cut}, state.hasData && onGrid && state.canCopy && state.canEdit);
    setEnabled({Paste}, onGrid && state.canPaste);
    setEnabled({NextDamaged, PreviousDamaged}, onGrid && state.canGoToDamaged);
    setEnabled({Command::Sidebar, Command::Toolbar}, !state.preview);
    showChartState(state);

    action(Command::Sidebar)->setChecked(state.sidebar);
    action(Command::Toolbar)->setChecked(state.toolbar);
    action(DataGrid)->setChecked(state.gridPage);
    action(TrendChart)->setChecked(!state.gridPage);
}

void FrameActions::showChartState(const FrameState& state) {
    const bool onChart = !state.gridPage && !state.preview;
    const bool onGrid = state.gridPage && !state.preview;
    setEnabled({EditAxis, AutoScale, SelectionZoom}, onChart);
    setEnabled({IncreaseFont}, onChart && state.canIncreaseFont);
    setEnabled({DecreaseFont}, onChart && state.canDecreaseFont);
    setEnabled({StripChart}, onChart && state.canStack);
    setEnabled({Copy}, onChart || (onGrid && state.hasData && state.canCopy));

    action(StripChart)->setChecked(state.stacked);
    auto* const zoom = action(SelectionZoom);
    zoom->setChecked(state.selectionZoom);
    if (std::exchange(m_zoomShown, state.selectionZoom) == state.selectionZoom) return;
    zoom->setIcon(IconSet::icon(state.selectionZoom ? IconName::SelectionZoomOn
                                                    : IconName::SelectionZoomOff));
}

void FrameActions::buildActions() {
    for (const auto& entry : kEntries) {
        auto* made = new QAction(tr(entry.text), m_window);
        made->setData(static_cast<int>(entry.command));
        made->setShortcuts(QKeySequence::listFromString(QString::fromLatin1(entry.key)));
        made->setStatusTip(tr(entry.tip));
        made->setCheckable(entry.checkable);
        made->setMenuRole(QAction::NoRole);
        if (entry.icon) made->setIcon(IconSet::icon(*entry.icon));
        // Where an icon stands no check mark can.
        if (entry.checkable) made->setIconVisibleInMenu(false);
        m_actions.insert(static_cast<int>(entry.command), made);
        // The window owns every key, so that it works while the menu bar is hidden.
        m_window->addAction(made);
    }
    // One page is always in front: choosing it again must not clear its mark.
    auto* pages = new QActionGroup(this);
    for (const auto page : {DataGrid, TrendChart})
        pages->addAction(action(page));
}

void FrameActions::fillMenu(const QString& title, const QList<Command>& commands) {
    auto* menu = m_window->menuBar()->addMenu(title);
    for (const auto command : commands) {
        if (command == kGap) {
            menu->addSeparator();
        } else if (command == FirstRecentFile) {
            m_recent = menu->addMenu(tr("&Recent Files"));
        } else {
            menu->addAction(action(command));
        }
    }
}

void FrameActions::buildMenus() {
    fillMenu(tr("&File"),
             {Open, OpenDatabase, kGap, Export, ViewSpreadsheet, kGap, Print, PrintPreview, kGap,
              Properties, Preferences, FirstRecentFile, kGap, Exit});
    fillMenu(tr("&Edit"),
             {Cut, Copy, CopyWithHeadings, Paste, kGap, SelectAllChannels, DeselectAllChannels,
              kGap, Find, FindNext, FindPrevious, GoTo, kGap, NextDamaged, PreviousDamaged});
    fillMenu(tr("&View"), {Sidebar, Toolbar, kGap, DataGrid, TrendChart, kGap, EditAxis, AutoScale,
                           SelectionZoom, IncreaseFont, DecreaseFont});
    fillMenu(tr("&Help"), {HelpContents, About});
}

QToolBar* FrameActions::buildToolbar() {
    auto* bar = m_window->addToolBar(tr("Toolbar"));
    bar->setObjectName(QStringLiteral("Toolbar"));
    bar->setMovable(false);
    // Its context menu would offer a second, unnumbered way to hide it.
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setIconSize(QSize(20, 20));
    for (const auto command : {Open,
                               Export,
                               ViewSpreadsheet,
                               kGap,
                               Print,
                               PrintPreview,
                               kGap,
                               Cut,
                               Copy,
                               Paste,
                               kGap,
                               Find,
                               GoTo,
                               PreviousDamaged,
                               NextDamaged,
                               kGap,
                               SelectAllChannels,
                               DeselectAllChannels,
                               kGap,
                               DataGrid,
                               TrendChart,
                               kGap,
                               EditAxis,
                               AutoScale,
                               SelectionZoom,
                               StripChart,
                               kGap,
                               Preferences,
                               HelpContents}) {
        command == kGap ? (void)bar->addSeparator() : bar->addAction(action(command));
    }
    return bar;
}

} // namespace pellam
