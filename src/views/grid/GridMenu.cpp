#include "views/grid/GridMenu.h"

#include "views/grid/MyCug.h"
#include "views/sheet/GridModel.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>

namespace pellam {

GridMenu::GridMenu(MyCug& cug) : QMenu(&cug) {
    const bool editable = cug.OnEditStart(1, 1);
    const bool loaded = cug.gridModel().grid().rowCount() > 0;
    const bool pasteable = editable && QApplication::clipboard()->mimeData()->hasText();
    add(tr("Cut"), QKeySequence::Cut, MyCug::kCutCommand, loaded && editable);
    add(tr("Copy"), QKeySequence::Copy, MyCug::kCopyCommand, loaded);
    add(tr("Copy with Headings"), Qt::CTRL | Qt::SHIFT | Qt::Key_C, MyCug::kCopyWithHeadingsCommand,
        loaded);
    add(tr("Paste"), QKeySequence::Paste, MyCug::kPasteCommand, pasteable);
    addSeparator();
    add(tr("Find..."), QKeySequence::Find, MyCug::kFindCommand, loaded);
    add(tr("Go to..."), Qt::CTRL | Qt::Key_G, MyCug::kGoToCommand, loaded);
}

void GridMenu::add(const QString& text, const QKeySequence& keys, int command, bool enabled) {
    QAction* action = addAction(text);
    action->setShortcut(keys);
    action->setData(command);
    action->setEnabled(enabled);
}

} // namespace pellam
