#include "views/grid/FindBar.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>

namespace pellam {

FindBar::FindBar(QWidget* parent)
    : QWidget(parent),
      m_text(new QLineEdit),
      m_columns(new QComboBox),
      m_case(new QCheckBox(tr("Match &case"))),
      m_whole(new QCheckBox(tr("&Whole cell"))),
      m_remark(new QLabel),
      m_close(new QToolButton) {
    auto* label = new QLabel(tr("F&ind:"));
    label->setBuddy(m_text);
    m_text->setMinimumWidth(120);
    m_columns->addItems({tr("All columns"), tr("Current column")});
    m_columns->setAccessibleName(tr("Columns to search"));
    auto* next = new QPushButton(tr("&Next"));
    auto* previous = new QPushButton(tr("&Previous"));
    next->setToolTip(tr("Find the next place (F3)"));
    previous->setToolTip(tr("Find the previous place (Shift+F3)"));
    m_close->setAutoRaise(true);
    m_close->setToolTip(tr("Close (Esc)"));
    m_close->setAccessibleName(tr("Close the find bar"));

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 5, 8, 5);
    row->addWidget(label);
    row->addWidget(m_text, 2);
    row->addWidget(next);
    row->addWidget(previous);
    row->addWidget(m_columns);
    row->addWidget(m_case);
    row->addWidget(m_whole);
    row->addWidget(m_remark, 1);
    row->addWidget(m_close);
    m_remark->setMinimumWidth(1); // a long remark must not widen the window

    connect(next, &QPushButton::clicked, this, &FindBar::findNext);
    connect(previous, &QPushButton::clicked, this, &FindBar::findPrevious);
    connect(m_close, &QToolButton::clicked, this, &FindBar::dismissed);
    const auto enable = [next, previous](const QString& text) {
        next->setEnabled(!text.isEmpty());
        previous->setEnabled(!text.isEmpty());
    };
    enable({});
    connect(m_text, &QLineEdit::textChanged, this, enable);
    connect(m_text, &QLineEdit::textChanged, m_remark, &QLabel::clear);
}

QString FindBar::text() const {
    return m_text->text();
}

bool FindBar::currentColumnOnly() const {
    return m_columns->currentIndex() == 1;
}

bool FindBar::caseSensitive() const {
    return m_case->isChecked();
}

bool FindBar::wholeCell() const {
    return m_whole->isChecked();
}

void FindBar::open() {
    // Looking these icons up in the desktop's theme takes long, so not before they are seen.
    m_text->setClearButtonEnabled(true);
    m_close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    show();
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
}

void FindBar::showRemark(const QString& remark) {
    m_remark->setText(remark);
    m_remark->setToolTip(remark);
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!text().isEmpty()) {
            if (event->modifiers() & Qt::ShiftModifier)
                Q_EMIT findPrevious();
            else
                Q_EMIT findNext();
        }
        break;
    case Qt::Key_Escape:
        Q_EMIT dismissed();
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace pellam
