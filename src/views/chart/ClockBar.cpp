#include "views/chart/ClockBar.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QLabel>

namespace pellam {

ClockBar::ClockBar(QWidget* parent) : QWidget(parent), m_choice(new QComboBox) {
    // In the order of ClockChoice.
    m_choice->addItems({tr("as this computer"), tr("without daylight saving"), tr("UTC")});
    m_choice->setAccessibleName(tr("Clock of the chart"));
    m_choice->setToolTip(tr("By which clock the rows of this file were stamped"));
    auto* label = new QLabel(tr("Clock:"));
    label->setBuddy(m_choice);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 2, 8, 4);
    row->addWidget(label);
    row->addWidget(m_choice);
    row->addStretch(1);
    connect(m_choice, &QComboBox::activated, this,
            [this](int index) { Q_EMIT chosen(static_cast<ClockChoice>(index)); });
}

void ClockBar::setClock(ClockChoice clock) {
    m_choice->setCurrentIndex(static_cast<int>(clock));
}

ClockChoice ClockBar::clock() const {
    return static_cast<ClockChoice>(m_choice->currentIndex());
}

} // namespace pellam
