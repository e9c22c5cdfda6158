#include "app/frame/FrameActions.h"

#include "trend/control/TrendActions.h"
#include "ui/commands/CommandSet.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include <utility>

namespace pellam {

using enum Command;

FrameActions::FrameActions(QMainWindow* window, QList<CommandSet*> sets)
    : QObject(window),
      m_window(window),
      m_sets(std::move(sets)) {
    // The window owns every key, so that it works while the menu bar is hidden.
    for (const CommandSet* set : std::as_const(m_sets))
        m_window->addActions(set->actions());
}

QAction* FrameActions::action(Command command) const {
    for (const CommandSet* set : m_sets)
        if (QAction* found = set->action(command)) return found;
    return nullptr;
}

void FrameActions::fillMenu(const QString& title, const QList<Command>& commands) {
    auto* menu = m_window->menuBar()->addMenu(title);
    for (const auto command : commands) {
        if (command == kSeparator) {
            menu->addSeparator();
        } else if (command == FirstRecentFile) {
            m_recent = menu->addMenu(tr("&Recent Files"));
        } else {
            menu->addAction(action(command));
        }
    }
}

void FrameActions::buildMenus() {
    fillMenu(tr("&File"), {Open, OpenWithLayout, OpenDatabase, kSeparator, Export, ViewSpreadsheet,
                           kSeparator, Print, PrintPreview, kSeparator, Properties, Preferences,
                           FirstRecentFile, kSeparator, Exit});
    fillMenu(tr("&Edit"), {Undo, Redo, RevertToFile, kSeparator, Cut, Copy, CopyWithHeadings, Paste,
                           kSeparator, SelectAllChannels, DeselectAllChannels, kSeparator, Find,
                           FindNext, FindPrevious, GoTo, kSeparator, NextDamaged, PreviousDamaged});
    fillMenu(tr("&View"), {Command::Sidebar, Command::Toolbar, kSeparator, DataGrid, TrendChart,
                           kSeparator, EditAxis, AutoScale, FitValues, SelectionZoom, IncreaseFont,
                           DecreaseFont, kSeparator, MissingAsNumbers});
    auto* chart = m_window->menuBar()->addMenu(tr("&Chart"));
    fillTrendMenu(*chart, *m_sets.back(), kAllAxes);
    fillMenu(tr("&Help"), {HelpContents, About});
}

QToolBar* FrameActions::buildToolbar() {
    auto* bar = m_window->addToolBar(tr("Toolbar"));
    bar->setObjectName(QStringLiteral("Toolbar"));
    bar->setMovable(false);
    // Its context menu would offer a second, unnumbered way to hide it.
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setIconSize(QSize(20, 20));
    // clang-format off
    for (const auto command : {Open, Export, ViewSpreadsheet, kSeparator,
                               Print, PrintPreview, kSeparator,
                               Undo, Redo, kSeparator, Cut, Copy, Paste, kSeparator,
                               Find, GoTo, PreviousDamaged, NextDamaged, kSeparator,
                               SelectAllChannels, DeselectAllChannels, kSeparator,
                               DataGrid, TrendChart, kSeparator,
                               EditAxis, AutoScale, FitValues, SelectionZoom, StripChart, kSeparator,
                               Preferences, HelpContents})
        command == kSeparator ? (void)bar->addSeparator() : bar->addAction(action(command));
    // clang-format on
    return bar;
}

} // namespace pellam
