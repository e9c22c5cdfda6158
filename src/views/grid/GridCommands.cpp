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

using enum Command;
using enum CommandSpec::Keys;

/// "&Undo Typing"
void nameStep(QAction* action, const char* verb, const QString& step) {
    action->setText((QCoreApplication::translate("Commands", verb) + u' ' + step).trimmed());
}

void addUndo(CommandSet& commands, MyCug& cug) {
    QUndoStack& steps = cug.gridModel().undoStack();
    auto* undo = commands.add(
        {Undo, "&Undo", "Ctrl+Z", "Take the last change of the grid back", IconName::Undo},
        [&steps] { steps.undo(); }, [&steps] { return steps.canUndo(); });
    auto* redo = commands.add(
        {Redo, "Red&o", "Ctrl+Shift+Z; Ctrl+Y", "Make the change again that was taken back",
         IconName::Redo},
        [&steps] { steps.redo(); }, [&steps] { return steps.canRedo(); });
    commands.add(
        {RevertToFile, "Revert to F&ile", "",
         "Take all changes of the grid back; Redo makes them again"},
        [&steps] { steps.setIndex(0); }, [&steps] { return steps.canUndo(); });
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
    commands.add(
        {Cut, "Cu&t", "Ctrl+X; Shift+Del", "Copy the selected cells and empty them", IconName::Cut},
        [&cug] { cug.clipboard().cut(); },
        [selected, editable] { return selected() && editable(); });
    commands.add(
        {Copy, "&Copy", "Ctrl+C; Ctrl+Ins", "Copy the selection", IconName::Copy, ByControl},
        [&cug] { cug.clipboard().copy(); }, selected);
    commands.add(
        {CopyWithHeadings, "Copy with &Headings", "Ctrl+Shift+C",
         "Copy the selected cells with their headings"},
        [&cug] { cug.clipboard().copy(true); }, selected);
    commands.add(
        {Paste, "&Paste", "Ctrl+V; Shift+Ins", "Paste cells at the current cell", IconName::Paste},
        [&cug] { cug.clipboard().paste(); },
        [&cug, editable] { return cug.clipboard().hasText() && editable(); });
    // On a protected grid it tells why nothing is emptied.
    commands.add(
        readByControl(ClearCells, "C&lear Cells", "Del", "Empty the selected cells"),
        [&cug] { cug.clipboard().clear(); }, selected);
}

void addFinding(CommandSet& commands, CGridView& page, const std::function<bool()>& loaded) {
    commands.add(
        {Find, "&Find...", "Ctrl+F", "Find a text or value on the grid", IconName::Find},
        [&page] { page.find(); }, loaded);
    commands.add(
        {FindNext, "Find &Next", "F3", "Go to the next place found"}, [&page] { page.findNext(); },
        loaded);
    commands.add(
        {FindPrevious, "Find Pre&vious", "Shift+F3", "Go to the place found before"},
        [&page] { page.findPrevious(); }, loaded);
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
    commands.add(
        {GoTo, "&Go To...", "Ctrl+G", "Go to a time or a row", IconName::GoTo},
        [&page] { page.goTo(); }, loaded);
    commands.add(
        {NextDamaged, "Next Da&maged Line", "F8", "Go to the next line that failed its checksum",
         IconName::NextDamaged},
        [&page] { page.nextDamagedLine(); }, damaged);
    commands.add(
        {PreviousDamaged, "P&revious Damaged Line", "Shift+F8",
         "Go to the line before that failed its checksum", IconName::PreviousDamaged},
        [&page] { page.previousDamagedLine(); }, damaged);
}

} // namespace pellam
