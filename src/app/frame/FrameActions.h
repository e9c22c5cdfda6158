#pragma once

#include "ui/commands/CommandIds.h"

#include <QList>
#include <QObject>

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

namespace pellam {

class CommandSet;

/// The menus and the toolbar of the main window, made of the commands of the window and its pages.
/// It knows where a command stands, not what it is.
class FrameActions : public QObject {
    Q_OBJECT

  public:
    /// The sets must outlive it.
    FrameActions(QMainWindow* window, QList<CommandSet*> sets);

    /// The action of a command, from the first set that has it; its data is the command's number.
    [[nodiscard]] QAction* action(Command command) const;

    /// Fills the window's menu bar. Recent files go into recentMenu().
    void buildMenus();
    /// Makes the toolbar and adds it to the window.
    QToolBar* buildToolbar();

    [[nodiscard]] QMenu* recentMenu() const { return m_recent; }

  private:
    void fillMenu(const QString& title, const QList<Command>& commands);

    QMainWindow* m_window;
    QList<CommandSet*> m_sets;
    QMenu* m_recent = nullptr;
};

} // namespace pellam
