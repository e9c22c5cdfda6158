#include "views/sheet/GridCorner.h"

#include <QPainter>
#include <QStyleOptionHeader>

namespace pellam {

GridCorner::GridCorner(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::NoFocus);
    setMarked(false);
}

void GridCorner::setMarked(bool marked) {
    setText(marked ? QStringLiteral("*") : QString());
    const QString state = marked ? tr("Changed since the chart was last built.\n") : QString();
    setToolTip(state + tr("Click to select all cells"));
    setAccessibleName(marked ? tr("Select all cells; changed") : tr("Select all cells"));
    update();
}

void GridCorner::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QStyleOptionHeader option;
    option.initFrom(this);
    option.state |= isDown() ? QStyle::State_Sunken : QStyle::State_Raised;
    option.rect = rect();
    option.position = QStyleOptionHeader::OnlyOneSection;
    style()->drawControl(QStyle::CE_HeaderSection, &option, &painter, this);
    if (!isMarked()) return;
    QFont mark = font();
    mark.setBold(true);
    mark.setPointSizeF(mark.pointSizeF() * 1.6);
    painter.setFont(mark);
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawText(rect(), Qt::AlignCenter, text());
}

} // namespace pellam
