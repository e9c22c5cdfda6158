#include "ui/commands/CommandSet.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenu>

#include <algorithm>
#include <utility>

namespace pellam {

namespace {

QString translated(const char* text) {
    return QCoreApplication::translate("Commands", text);
}

/// The keys that are held down, as a shortcut has them: whether Shift is needed for a character
/// such as '+' depends on the keyboard.
QKeyCombination combinationOf(const QKeyEvent& event) {
    const int key = event.key();
    auto held = event.modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
    const bool sign =
        key < Qt::Key_Escape && !QChar(key).isLetterOrNumber() && key != Qt::Key_Space;
    if (sign) held &= ~Qt::ShiftModifier;
    return QKeyCombination(held, static_cast<Qt::Key>(key));
}

} // namespace

CommandSet::CommandSet(QObject* parent) : QObject(parent) {}

QAction* CommandSet::add(const CommandSpec& spec, std::function<void()> run, Rule enabled,
                         Rule checked) {
    auto keys = QKeySequence::listFromString(QString::fromLatin1(spec.keys));
    keys.removeAll(QKeySequence()); // an empty text gives an empty one
    QString text = translated(spec.text);
    const bool byWindow = spec.readBy == CommandSpec::Keys::ByWindow;
    // As a text it is only shown.
    if (!byWindow && !keys.isEmpty())
        text += u'\t' + keys.front().toString(QKeySequence::NativeText);
    auto* action = new QAction(text, this);
    if (byWindow) action->setShortcuts(keys);
    action->setData(static_cast<int>(spec.command));
    action->setStatusTip(translated(spec.tip));
    action->setMenuRole(QAction::NoRole);
    if (spec.icon) action->setIcon(IconSet::icon(*spec.icon));
    action->setCheckable(checked != nullptr);
    // Where an icon stands no check mark can.
    if (checked) action->setIconVisibleInMenu(false);
    connect(action, &QAction::triggered, this, [this, run = std::move(run)] {
        run();
        refresh();
    });
    m_entries.push_back({spec, std::move(enabled), std::move(checked), action, keys, false});
    return action;
}

const CommandSet::Entry* CommandSet::find(Command command) const {
    const auto at = std::find_if(m_entries.begin(), m_entries.end(), [command](const Entry& entry) {
        return entry.spec.command == command;
    });
    return at == m_entries.end() ? nullptr : &*at;
}

QAction* CommandSet::action(const QKeyEvent& event) const {
    const QKeySequence pressed(combinationOf(event));
    for (const Entry& entry : m_entries)
        if (entry.keys.contains(pressed)) return entry.action;
    return nullptr;
}

QAction* CommandSet::action(Command command) const {
    const Entry* entry = find(command);
    return entry ? entry->action : nullptr;
}

const CommandSpec& CommandSet::spec(Command command) const {
    return find(command)->spec;
}

QList<QAction*> CommandSet::actions() const {
    QList<QAction*> actions;
    for (const Entry& entry : m_entries)
        actions += entry.action;
    return actions;
}

void CommandSet::addTo(QMenu& menu, std::initializer_list<Command> commands) const {
    for (const Command command : commands)
        command == kSeparator ? (void)menu.addSeparator() : menu.addAction(action(command));
}

void CommandSet::setActive(bool active) {
    m_active = active;
    refresh();
}

void CommandSet::refresh() {
    for (Entry& entry : m_entries)
        refresh(entry);
}

void CommandSet::refresh(Entry& entry) {
    const CommandSpec& spec = entry.spec;
    entry.action->setEnabled(m_active && (!entry.enabled || entry.enabled()));
    if (!entry.checked) return;
    const bool checked = entry.checked();
    entry.action->setChecked(checked);
    if (std::exchange(entry.checkedShown, checked) == checked || !spec.checkedIcon) return;
    entry.action->setIcon(IconSet::icon(checked ? *spec.checkedIcon : *spec.icon));
}

bool CommandSet::handles(const QKeyEvent& event) const {
    return action(event) != nullptr;
}

bool CommandSet::press(const QKeyEvent& event) {
    QAction* const pressed = action(event);
    if (!pressed) return false;
    refresh();
    pressed->trigger();
    return true;
}

} // namespace pellam
