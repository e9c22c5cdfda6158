#pragma once

#include "app/frame/CommandIds.h"

#include <QHash>
#include <QObject>

#include <functional>
#include <initializer_list>

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

namespace pellam {

/// What the main window is like at a moment, as far as commands depend on it.
struct FrameState {
    bool hasData = false;  ///< rows are loaded
    bool gridPage = false; ///< the grid page is in front, else the trend page
    bool preview = false;  ///< the print preview is on
    bool canCopy = false;  ///< cells are selected
    bool canEdit = false;  ///< the grid is not protected
    bool canPaste = false; ///< and the clipboard has text
    bool canGoToDamaged = false;
    bool hasChart = false;      ///< there are curves to be seen
    bool selectionZoom = false; ///< is on
    bool canStack = false;      ///< there are several axes
    bool stacked = false;       ///< the axes are
    bool canIncreaseFont = false;
    bool canDecreaseFont = false;
    bool sidebar = false; ///< shown
    bool toolbar = false; ///< shown
};

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
    /// Brings enabled states and check marks in line with the window's state.
    void showState(const FrameState& state);

    /// Fills the window's menu bar. Recent files go into recentMenu().
    void buildMenus();
    /// Makes the toolbar and adds it to the window.
    QToolBar* buildToolbar();

    [[nodiscard]] QMenu* recentMenu() const { return m_recent; }

  private:
    void buildActions();
    void setEnabled(std::initializer_list<Command> commands, bool enabled);
    void showChartState(const FrameState& state);
    void fillMenu(const QString& title, const QList<Command>& commands);

    QMainWindow* m_window;
    QHash<int, QAction*> m_actions;
    QMenu* m_recent = nullptr;
    bool m_zoomShown = false; ///< the icon is that of the selection zoom being on
};

} // namespace pellam
