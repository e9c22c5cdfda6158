#pragma once

#include "ui/sidebar/TaskRow.h"

#include <QPointer>

class QAction;

namespace pellam {

/// A task of the sidebar: a row that shows an action and triggers it.
class TaskLink : public TaskRow {
    Q_OBJECT

  public:
    /// The action's own text is shown when `text` is empty.
    TaskLink(QAction* action, const QString& text, QWidget* parent);

    [[nodiscard]] QAction* action() const { return m_action; }

  protected:
    /// The checked state is the action's; a click alone changes nothing.
    void nextCheckState() override {}

  private:
    void followAction();

    QPointer<QAction> m_action;
    QString m_text;
};

} // namespace pellam
