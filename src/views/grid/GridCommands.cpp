#include "views/grid/GridCommands.h"

#include "ui/commands/CommandSet.h"
#include "views/grid/CGridView.h"
#include "views/grid/GridClipboard.h"
#include "views/grid/MyCug.h"
#include "views/sheet/GridModel.h"

#include <QAction>
#include <QCoreApplication>

namespace pellam {

namespace {

constexpr auto kByControl = CommandSpec::Keys::Control;

/// "&Undo Typing"
void nameStep(QAction* action, const char* verb, const QString& step) {
    action->setText((QCoreApplication::translate("Commands", verb) + u' ' + step).trimmed());
}

void addUndo(CommandSet& commands, MyCug& cug) {
    QUndoStack& steps = cug.gridModel().undoStack();
    auto* undo = commands.add({.command = Command::Undo,
                               .text = "&Undo",
                               .keys = "Ctrl+Z",
                               .tip = "Take the last change of the grid back",
                               .run = [&steps] { steps.undo(); },
                               .enabled = [&steps] { return steps.canUndo(); }});
    auto* redo = commands.add({.command = Command::Redo,
                               .text = "Red&o",
                               .keys = "Ctrl+Shift+Z; Ctrl+Y",
                               .tip = "Make the change again that was taken back",
                               .run = [&steps] { steps.redo(); },
                               .enabled = [&steps] { return steps.canRedo(); }});
    QObject::connect(&steps, &QUndoStack::undoTextChanged, undo,
                     [undo](const QString& step) { nameStep(undo, "&Undo", step); });
    QObject::connect(&steps, &QUndoStack::redoTextChanged, redo,
                     [redo](const QString& step) { nameStep(redo, "Red&o", step); });
}

void addClipboard(CommandSet& commands, MyCug& cug) {
    const auto loaded = [&cug] { return cug.gridModel().grid().rowCount() > 0; };
    const auto selected = [&cug, loaded] {
        return loaded() && cug.selectionModel()->hasSelection();
    };
    const auto editable = [&cug] { return cug.OnEditStart(1, 1); };
    commands.add({.command = Command::Cut,
                  .text = "Cu&t",
                  .keys = "Ctrl+X; Shift+Del",
                  .tip = "Copy the selected cells and empty them",
                  .icon = IconName::Cut,
                  .run = [&cug] { cug.clipboard().cut(); },
                  .enabled = [selected, editable] { return selected() && editable(); }});
    commands.add({.command = Command::Copy,
                  .text = "&Copy",
                  .keys = "Ctrl+C; Ctrl+Ins",
                  .tip = "Copy the selection",
                  .icon = IconName::Copy,
                  .readBy = kByControl,
                  .run = [&cug] { cug.clipboard().copy(); },
                  .enabled = selected});
    commands.add({.command = Command::CopyWithHeadings,
                  .text = "Copy with &Headings",
                  .keys = "Ctrl+Shift+C",
                  .tip = "Copy the selected cells with their headings",
                  .run = [&cug] { cug.clipboard().copy(true); },
                  .enabled = selected});
    commands.add({.command = Command::Paste,
                  .text = "&Paste",
                  .keys = "Ctrl+V; Shift+Ins",
                  .tip = "Paste cells at the current cell",
                  .icon = IconName::Paste,
                  .run = [&cug] { cug.clipboard().paste(); },
                  .enabled = [&cug, editable] { return cug.clipboard().hasText() && editable(); }});
    // On a protected grid it tells why nothing is emptied.
    commands.add({.command = Command::ClearCells,
                  .text = "C&lear Cells",
                  .keys = "Del",
                  .tip = "Empty the selected cells",
                  .readBy = kByControl,
                  .run = [&cug] { cug.clipboard().clear(); },
                  .enabled = selected});
}

void addFinding(CommandSet& commands, CGridView& page, const std::function<bool()>& loaded) {
    commands.add({.command = Command::Find,
                  .text = "&Find...",
                  .keys = "Ctrl+F",
                  .tip = "Find a text or value on the grid",
                  .icon = IconName::Find,
                  .run = [&page] { page.find(); },
                  .enabled = loaded});
    commands.add({.command = Command::FindNext,
                  .text = "Find &Next",
                  .keys = "F3",
                  .tip = "Go to the next place found",
                  .run = [&page] { page.findNext(); },
                  .enabled = loaded});
    commands.add({.command = Command::FindPrevious,
                  .text = "Find Pre&vious",
                  .keys = "Shift+F3",
                  .tip = "Go to the place found before",
                  .run = [&page] { page.findPrevious(); },
                  .enabled = loaded});
}

} // namespace

void addCellCommands(CommandSet& commands, MyCug& cug) {
    addUndo(commands, cug);
    addClipboard(commands, cug);
}

void addPageCommands(CommandSet& commands, CGridView& page) {
    const auto loaded = [&page] { return page.data().rowCount() > 0; };
    const auto damaged = [&page] { return !page.data().damagedRows().empty(); };
    addFinding(commands, page, loaded);
    commands.add({.command = Command::GoTo,
                  .text = "&Go To...",
                  .keys = "Ctrl+G",
                  .tip = "Go to a time or a row",
                  .icon = IconName::GoTo,
                  .run = [&page] { page.goTo(); },
                  .enabled = loaded});
    commands.add({.command = Command::NextDamaged,
                  .text = "Next Da&maged Line",
                  .keys = "F8",
                  .tip = "Go to the next line that failed its checksum",
                  .icon = IconName::NextDamaged,
                  .run = [&page] { page.nextDamagedLine(); },
                  .enabled = damaged});
    commands.add({.command = Command::PreviousDamaged,
                  .text = "P&revious Damaged Line",
                  .keys = "Shift+F8",
                  .tip = "Go to the line before that failed its checksum",
                  .icon = IconName::PreviousDamaged,
                  .run = [&page] { page.previousDamagedLine(); },
                  .enabled = damaged});
}

} // namespace pellam
