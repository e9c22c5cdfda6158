#include "ui/sidebar/TaskHeading.h"

#include <QPainter>

namespace pellam {

TaskHeading::TaskHeading(QWidget* parent) : TaskRow(parent) {
    setExpanded(true);
}

void TaskHeading::setExpanded(bool expanded) {
    m_expanded = expanded;
    setAccessibleDescription(expanded ? tr("Group, expanded") : tr("Group, collapsed"));
    update();
}

QFont TaskHeading::textFont() const {
    QFont bold = font();
    bold.setBold(true);
    return bold;
}

void TaskHeading::paintTrailing(QPainter& painter, const QRect& place) {
    constexpr qreal kHalf = 4.0;
    QColor quiet = palette().color(QPalette::Text);
    quiet.setAlphaF(0.6F);
    painter.setPen(QPen(quiet, 1.75, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    const QPointF middle = QRectF(place).center();
    // Up while the group is open: pressing it folds the group upwards.
    const qreal rise = m_expanded ? kHalf / 2 : -kHalf / 2;
    painter.drawPolyline(QPolygonF{middle + QPointF(-kHalf, rise), middle + QPointF(0, -rise),
                                   middle + QPointF(kHalf, rise)});
}

} // namespace pellam
