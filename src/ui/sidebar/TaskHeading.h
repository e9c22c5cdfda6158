#pragma once

#include "ui/sidebar/TaskRow.h"

namespace pellam {

/// The heading of a task group: a row in bold with an arrow that tells whether the group is open.
class TaskHeading : public TaskRow {
    Q_OBJECT

  public:
    explicit TaskHeading(QWidget* parent = nullptr);

    void setExpanded(bool expanded);

    [[nodiscard]] bool isExpanded() const { return m_expanded; }

  protected:
    [[nodiscard]] QFont textFont() const override;

    [[nodiscard]] int trailingWidth() const override { return 16; }

    void paintTrailing(QPainter& painter, const QRect& place) override;

  private:
    bool m_expanded = true;
};

} // namespace pellam
