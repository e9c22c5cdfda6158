#include "ui/dialogs/NoticeBar.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>

namespace pellam {

/// A label that draws as much of its text as fits.
class NoticeBar::Line : public QLabel {
  public:
    [[nodiscard]] QSize minimumSizeHint() const override {
        return {1, QLabel::minimumSizeHint().height()};
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
        style()->drawItemText(&painter, rect(), int(Qt::AlignLeft | Qt::AlignVCenter), palette(),
                              isEnabled(), shown, foregroundRole());
    }
};

NoticeBar::NoticeBar(const QString& button, QWidget* parent)
    : QWidget(parent),
      m_line(new Line),
      m_button(new QPushButton(button)),
      m_close(new QToolButton) {
    m_line->setTextFormat(Qt::PlainText);
    m_line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_close->setAutoRaise(true);
    m_close->setFocusPolicy(Qt::StrongFocus);
    m_close->setToolTip(tr("Close (Esc)"));
    m_close->setAccessibleName(tr("Close this note"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 8, 5);
    row->addWidget(m_line, 1);
    row->addWidget(m_button);
    row->addWidget(m_close);
    connect(m_button, &QPushButton::clicked, this, &NoticeBar::chosen);
    connect(m_close, &QToolButton::clicked, this, &NoticeBar::dismiss);
}

void NoticeBar::open(const QString& text) {
    // Looking this icon up in the desktop's theme takes long, so not before it is seen.
    m_close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    m_line->setText(text);
    m_line->setToolTip(text);
    m_line->setAccessibleName(text);
    m_button->setAccessibleDescription(text);
    setAccessibleName(text);
    show();
    QAccessibleEvent told(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&told);
}

QString NoticeBar::text() const {
    return m_line->text();
}

void NoticeBar::dismiss() {
    hide();
    Q_EMIT dismissed();
}

void NoticeBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) return dismiss();
    QWidget::keyPressEvent(event);
}

void NoticeBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QColor edge = palette().color(QPalette::WindowText);
    edge.setAlphaF(0.2F);
    painter.fillRect(0, height() - 1, width(), 1, edge);
}

} // namespace pellam
