#pragma once

#include "ui/commands/CommandIds.h"
#include "ui/icons/IconSet.h"

#include <QKeySequence>
#include <QList>
#include <QObject>

#include <functional>
#include <initializer_list>
#include <optional>
#include <vector>

QT_BEGIN_NAMESPACE
class QAction;
class QKeyEvent;
class QMenu;
QT_END_NAMESPACE

namespace pellam {

/// What a command is called, and by which keys it is given.
struct CommandSpec {
    /// Who reads the keys: the window, wherever the focus is in it, or the control that has the
    /// focus, through CommandSet::press().
    enum class Keys { ByWindow, ByControl };

    Command command = {};
    const char* text = "";
    const char* keys = ""; ///< portable key texts, separated by "; ", the one that menus show first
    const char* tip = "";  ///< what the status bar says
    std::optional<IconName> icon = {};
    Keys readBy = Keys::ByWindow;
    std::optional<IconName> checkedIcon = {}; ///< instead, while the command is checked
};

/// A command without an icon whose keys the control reads.
constexpr CommandSpec readByControl(Command command, const char* text, const char* keys,
                                    const char* tip) {
    return {command, text, keys, tip, {}, CommandSpec::Keys::ByControl};
}

/// The commands of one part of the program, an action each. Menus, toolbars and sidebars show these
/// actions.
class CommandSet : public QObject {
    Q_OBJECT

  public:
    explicit CommandSet(QObject* parent = nullptr);

    using Rule = std::function<bool()>;

    /// Adds a command that `run` carries out. It can be given while `enabled` says so (always
    /// without it), and has a check mark while `checked` does.
    QAction* add(const CommandSpec& spec, std::function<void()> run, Rule enabled = {},
                 Rule checked = {});

    /// The action of a command; null when it is not of this set.
    [[nodiscard]] QAction* action(Command command) const;
    /// What was given for a command of this set.
    [[nodiscard]] const CommandSpec& spec(Command command) const;
    /// All actions, in the order in which they were added.
    [[nodiscard]] QList<QAction*> actions() const;

    /// Adds commands of this set and kSeparator to a menu.
    void addTo(QMenu& menu, std::initializer_list<Command> commands) const;

    /// Whether the set is of use now; else every command is grey. It is at first.
    void setActive(bool active);
    /// Brings enabled states, check marks and icons in line with what they depend on.
    void refresh();

    /// Whether one of the commands has this key, grey or not.
    [[nodiscard]] bool handles(const QKeyEvent& event) const;
    /// Gives the command that has this key, when it is not grey. False when none has it.
    bool press(const QKeyEvent& event);

  private:
    struct Entry {
        CommandSpec spec;
        Rule enabled;
        Rule checked;
        QAction* action;
        QList<QKeySequence> keys;
        bool checkedShown; ///< the icon is that of the checked command
    };

    [[nodiscard]] const Entry* find(Command command) const;
    [[nodiscard]] QAction* action(const QKeyEvent& event) const;
    void refresh(Entry& entry);

    std::vector<Entry> m_entries;
    bool m_active = true;
};

} // namespace pellam
