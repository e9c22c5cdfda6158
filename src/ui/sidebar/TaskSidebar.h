#pragma once

#include <QIcon>
#include <QScrollArea>
#include <QString>

class QAction;
class QVBoxLayout;

namespace pellam {

class TaskGroup;

/// A column of task groups, each a heading that folds and a list of links bound to actions.
/// Tab and Shift+Tab, and the arrow keys, Home and End go from row to row; Enter and Space run a
/// task or fold a group, Left and Right fold and unfold it.
class TaskSidebar : public QScrollArea {
    Q_OBJECT

  public:
    explicit TaskSidebar(QWidget* parent = nullptr);

    /// Appends a group. A group whose id is present already keeps its place and its tasks and takes
    /// the new title and icon.
    void addGroup(const QString& id, const QString& title, const QIcon& icon = {});

    /// Appends a task to a group; ignored when there is no such group or the group has this action
    /// already. Icon, enabled and checked state and visibility follow the action; so does the text
    /// when `text` is empty. The task goes when the action is destroyed.
    void addTask(const QString& groupId, QAction* action, const QString& text = {});

    /// Removes a group with its tasks; harmless when there is none.
    void removeGroup(const QString& id);
    [[nodiscard]] bool hasGroup(const QString& id) const;

    /// Ids of the groups from top to bottom.
    [[nodiscard]] QStringList groupIds() const;
    /// Texts of a group's tasks from top to bottom; none when there is no such group.
    [[nodiscard]] QStringList taskTexts(const QString& groupId) const;

    /// Folds or unfolds a group.
    void setExpanded(const QString& groupId, bool expanded);
    [[nodiscard]] bool isExpanded(const QString& groupId) const;

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] TaskGroup* group(const QString& id) const;
    [[nodiscard]] QList<TaskGroup*> groups() const;
    [[nodiscard]] QList<QWidget*> rows() const;
    bool moveFocus(QWidget* from, int key);

    QVBoxLayout* m_column;
};

} // namespace pellam
