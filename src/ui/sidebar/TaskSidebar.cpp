#include "ui/sidebar/TaskSidebar.h"

#include "ui/sidebar/TaskGroup.h"
#include "ui/sidebar/TaskHeading.h"
#include "ui/sidebar/TaskLink.h"

#include <QAction>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace pellam {

TaskSidebar::TaskSidebar(QWidget* parent) : QScrollArea(parent) {
    auto* content = new QWidget;
    m_column = new QVBoxLayout(content);
    m_column->setContentsMargins(8, 8, 8, 8);
    m_column->setSpacing(10);
    m_column->addStretch(1);
    setWidget(content);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(tr("Tasks"));
}

QList<TaskGroup*> TaskSidebar::groups() const {
    QList<TaskGroup*> found;
    for (int i = 0; i < m_column->count(); ++i)
        if (auto* present = qobject_cast<TaskGroup*>(m_column->itemAt(i)->widget()))
            found += present;
    return found;
}

TaskGroup* TaskSidebar::group(const QString& id) const {
    for (TaskGroup* present : groups())
        if (present->id() == id) return present;
    return nullptr;
}

void TaskSidebar::addGroup(const QString& id, const QString& title, const QIcon& icon) {
    TaskGroup* added = group(id);
    if (!added) {
        added = new TaskGroup(id, widget());
        added->heading()->installEventFilter(this);
        m_column->insertWidget(m_column->count() - 1, added);
    }
    added->setTitle(title, icon);
}

void TaskSidebar::addTask(const QString& groupId, QAction* action, const QString& text) {
    TaskGroup* into = group(groupId);
    if (!into || !action) return;
    if (TaskLink* link = into->addTask(action, text)) link->installEventFilter(this);
}

void TaskSidebar::removeGroup(const QString& id) {
    TaskGroup* gone = group(id);
    if (!gone) return;
    m_column->removeWidget(gone);
    gone->hide();
    // A task of the group may be what removes it, and is still on the stack then.
    gone->deleteLater();
}

bool TaskSidebar::hasGroup(const QString& id) const {
    return group(id) != nullptr;
}

QStringList TaskSidebar::groupIds() const {
    QStringList ids;
    for (const TaskGroup* present : groups())
        ids += present->id();
    return ids;
}

QStringList TaskSidebar::taskTexts(const QString& groupId) const {
    QStringList texts;
    if (const TaskGroup* of = group(groupId))
        for (const TaskLink* task : of->tasks())
            texts += task->plainText();
    return texts;
}

void TaskSidebar::setExpanded(const QString& groupId, bool expanded) {
    if (TaskGroup* of = group(groupId)) of->setExpanded(expanded);
}

bool TaskSidebar::isExpanded(const QString& groupId) const {
    const TaskGroup* of = group(groupId);
    return of && of->heading()->isExpanded();
}

QSize TaskSidebar::sizeHint() const {
    return {225, 400};
}

QList<QWidget*> TaskSidebar::rows() const {
    QList<QWidget*> found;
    for (const TaskGroup* present : groups()) {
        found += present->heading();
        for (TaskLink* task : present->tasks())
            if (task->isVisible() && task->isEnabled()) found += task;
    }
    return found;
}

bool TaskSidebar::moveFocus(QWidget* from, int key) {
    const QList<QWidget*> all = rows();
    const qsizetype at = all.indexOf(from);
    qsizetype to = at;
    if (key == Qt::Key_Down) to = at + 1;
    if (key == Qt::Key_Up) to = at - 1;
    if (key == Qt::Key_Home) to = 0;
    if (key == Qt::Key_End) to = all.size() - 1;
    // The keys stay in the sidebar even at its ends, where there is nowhere to go.
    if (at < 0 || to < 0 || to >= all.size()) return true;
    all[to]->setFocus(Qt::TabFocusReason);
    return true;
}

bool TaskSidebar::eventFilter(QObject* watched, QEvent* event) {
    auto* row = qobject_cast<TaskRow*>(watched);
    if (!row) return QScrollArea::eventFilter(watched, event);
    if (event->type() == QEvent::FocusIn) ensureWidgetVisible(row, 0, 12);
    if (event->type() != QEvent::KeyPress) return QScrollArea::eventFilter(watched, event);
    const auto* press = static_cast<QKeyEvent*>(event);
    if (press->modifiers() & ~Qt::KeypadModifier) return false;
    const int key = press->key();
    if (key == Qt::Key_Down || key == Qt::Key_Up || key == Qt::Key_Home || key == Qt::Key_End)
        return moveFocus(row, key);
    if (key != Qt::Key_Left && key != Qt::Key_Right) return false;
    for (TaskGroup* present : groups()) {
        if (!present->isAncestorOf(row)) continue;
        // A row that is about to be hidden hands the keyboard to its heading.
        if (key == Qt::Key_Left) present->heading()->setFocus(Qt::TabFocusReason);
        present->setExpanded(key == Qt::Key_Right);
    }
    return true;
}

} // namespace pellam
