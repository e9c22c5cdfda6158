#pragma once

#include "app/CommandIds.h"

#include <QHash>
#include <QObject>

#include <functional>

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

namespace pellam {

/// The main window's commands: one action each with its number, texts, key and icon, and the menus
/// and the toolbar made of them. It knows what a command is called, not what it does.
class FrameActions : public QObject {
    Q_OBJECT

  public:
    explicit FrameActions(QMainWindow* window);

    /// The action of a command; its data is the command's number.
    [[nodiscard]] QAction* action(Command command) const;
    /// The same by number; null when there is no such command.
    [[nodiscard]] QAction* actionOf(int number) const;

    /// Calls `handler` each time the command is given.
    void on(Command command, std::function<void()> handler);
    void setEnabled(Command command, bool enabled);
    void setChecked(Command command, bool checked);

    /// Fills the window's menu bar. Recent files go into recentMenu().
    void buildMenus();
    /// Makes the toolbar and adds it to the window.
    QToolBar* buildToolbar();

    [[nodiscard]] QMenu* recentMenu() const { return m_recent; }

  private:
    void buildActions();
    void fillMenu(const QString& title, const QList<Command>& commands);

    QMainWindow* m_window;
    QHash<int, QAction*> m_actions;
    QMenu* m_recent = nullptr;
};

} // namespace pellam
