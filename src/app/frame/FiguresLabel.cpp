#include "app/frame/FiguresLabel.h"

#include <QEvent>

namespace pellam {

namespace {

QString joined(const QStringList& figures) {
    return figures.join(QStringLiteral("   "));
}

} // namespace

FiguresLabel::FiguresLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void FiguresLabel::setFigures(const QStringList& figures) {
    if (figures == m_figures) return;
    m_figures = figures;
    setAccessibleName(wholeText());
    setToolTip(wholeText());
    updateGeometry();
    showWhatFits();
}

QString FiguresLabel::wholeText() const {
    return joined(m_figures);
}

int FiguresLabel::widthOf(const QString& text) const {
    const QMargins margins = contentsMargins();
    return fontMetrics().horizontalAdvance(text) + margins.left() + margins.right() + 2;
}

QSize FiguresLabel::sizeHint() const {
    return {widthOf(wholeText()), QLabel::sizeHint().height()};
}

QSize FiguresLabel::minimumSizeHint() const {
    return {0, QLabel::minimumSizeHint().height()};
}

void FiguresLabel::showWhatFits() {
    QStringList shown = m_figures;
    while (!shown.isEmpty() && widthOf(joined(shown)) > width())
        shown.removeLast();
    setText(joined(shown));
}

void FiguresLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    showWhatFits();
}

void FiguresLabel::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange) showWhatFits();
}

} // namespace pellam
