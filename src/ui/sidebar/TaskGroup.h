#pragma once

#include <QIcon>
#include <QWidget>

class QAction;

namespace pellam {

class TaskHeading;
class TaskLink;
class TaskRow;

/// A card of the task sidebar: a heading and the tasks under it, which it folds away.
class TaskGroup : public QWidget {
    Q_OBJECT

  public:
    TaskGroup(const QString& id, QWidget* parent);

    [[nodiscard]] QString id() const { return m_id; }

    void setTitle(const QString& title, const QIcon& icon);

    /// Appends a task; gives nothing when the action has one here already.
    TaskLink* addTask(QAction* action, const QString& text);
    /// The tasks from top to bottom.
    [[nodiscard]] QList<TaskLink*> tasks() const;

    [[nodiscard]] TaskHeading* heading() const { return m_heading; }

    void setExpanded(bool expanded);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString m_id;
    TaskHeading* m_heading;
    QWidget* m_body;
};

} // namespace pellam
