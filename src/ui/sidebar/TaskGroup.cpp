#include "ui/sidebar/TaskGroup.h"

#include "ui/sidebar/TaskHeading.h"
#include "ui/sidebar/TaskLink.h"

#include <QAction>
#include <QPainter>
#include <QVBoxLayout>

namespace pellam {

TaskGroup::TaskGroup(const QString& id, QWidget* parent)
    : QWidget(parent),
      m_id(id),
      m_heading(new TaskHeading(this)),
      m_body(new QWidget(this)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(3, 3, 3, 3);
    column->setSpacing(1);
    column->addWidget(m_heading);
    column->addWidget(m_body);
    auto* body = new QVBoxLayout(m_body);
    body->setContentsMargins({});
    body->setSpacing(0);
    connect(m_heading, &QAbstractButton::clicked, this,
            [this] { setExpanded(!m_heading->isExpanded()); });
}

void TaskGroup::setTitle(const QString& title, const QIcon& icon) {
    m_heading->setPlainText(title);
    m_heading->setIcon(icon);
    setAccessibleName(title);
}

TaskLink* TaskGroup::addTask(QAction* action, const QString& text) {
    for (const TaskLink* present : tasks())
        if (present->action() == action) return nullptr;
    auto* link = new TaskLink(action, text, m_body);
    m_body->layout()->addWidget(link);
    return link;
}

QList<TaskLink*> TaskGroup::tasks() const {
    QList<TaskLink*> found;
    for (int i = 0; i < m_body->layout()->count(); ++i) {
        auto* link = qobject_cast<TaskLink*>(m_body->layout()->itemAt(i)->widget());
        if (link && link->action()) found += link;
    }
    return found;
}

void TaskGroup::setExpanded(bool expanded) {
    m_heading->setExpanded(expanded);
    m_body->setVisible(expanded);
}

void TaskGroup::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor edge = palette().color(QPalette::WindowText);
    edge.setAlphaF(0.14F);
    painter.setPen(QPen(edge, 1));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 7, 7);
}

} // namespace pellam
