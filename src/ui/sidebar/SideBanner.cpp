#include "ui/sidebar/SideBanner.h"

#include <QEvent>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace pellam {

namespace {

constexpr int kMargin = 10;
constexpr int kGap = 10;
constexpr int kCaptionLines = 2;

} // namespace

SideBanner::SideBanner(QWidget* parent) : QWidget(parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void SideBanner::setIcon(const QIcon& icon) {
    m_icon = icon;
    textsChanged();
}

void SideBanner::setCaption(const QString& caption) {
    m_caption = caption;
    textsChanged();
}

void SideBanner::setTitle(const QString& title) {
    m_title = title;
    textsChanged();
}

void SideBanner::textsChanged() {
    setAccessibleName(m_caption + QStringLiteral(", ") + m_title);
    updateToolTip();
    updateGeometry();
    update();
}

QFont SideBanner::captionFont() const {
    QFont bold = font();
    bold.setBold(true);
    return bold;
}

int SideBanner::iconExtent() const {
    return std::max(32, fontMetrics().height() * 2);
}

int SideBanner::textWidth(int width) const {
    const int icon = m_icon.isNull() ? 0 : iconExtent() + kGap;
    return std::max(0, width - 2 * kMargin - icon);
}

QStringList SideBanner::captionLines(int width) const {
    const QFontMetrics metrics(captionFont());
    QTextLayout layout(m_caption, captionFont());
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        const bool last = lines.size() == kCaptionLines - 1;
        const QString text = last ? m_caption.mid(line.textStart())
                                  : m_caption.mid(line.textStart(), line.textLength());
        lines += metrics.elidedText(text.trimmed(), Qt::ElideRight, width);
        if (last) break;
    }
    layout.endLayout();
    return lines;
}

int SideBanner::heightForWidth(int width) const {
    const auto lines = std::max<qsizetype>(1, captionLines(textWidth(width)).size());
    const int caption = static_cast<int>(lines) * QFontMetrics(captionFont()).lineSpacing();
    const int text = caption + (m_title.isEmpty() ? 0 : fontMetrics().lineSpacing() + 2);
    return 2 * kMargin + std::max(text, m_icon.isNull() ? 0 : iconExtent());
}

QSize SideBanner::sizeHint() const {
    return {225, heightForWidth(225)};
}

QSize SideBanner::minimumSizeHint() const {
    return {2 * kMargin + iconExtent(), 2 * kMargin + iconExtent()};
}

void SideBanner::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QPalette& colours = palette();
    painter.fillRect(rect(), colours.color(QPalette::Base));
    painter.setPen(colours.color(QPalette::Mid));
    painter.drawLine(rect().bottomLeft(), rect().bottomRight());

    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const int extent = iconExtent();
    const int width = textWidth(this->width());
    QRect text(this->width() - kMargin - width, 0, width, height());
    QRect icon(kMargin, (height() - extent) / 2, extent, extent);
    if (mirrored) {
        text.moveLeft(kMargin);
        icon.moveRight(this->width() - kMargin - 1);
    }
    if (!m_icon.isNull()) m_icon.paint(&painter, icon);

    const QStringList lines = captionLines(width);
    const int lineHeight = QFontMetrics(captionFont()).lineSpacing();
    const int titleHeight = m_title.isEmpty() ? 0 : fontMetrics().lineSpacing() + 2;
    int y = (height() - static_cast<int>(lines.size()) * lineHeight - titleHeight) / 2;
    painter.setPen(colours.color(QPalette::Text));
    painter.setFont(captionFont());
    for (const QString& line : lines) {
        painter.drawText(QRect(text.x(), y, width, lineHeight), Qt::AlignVCenter | Qt::AlignLeading,
                         line);
        y += lineHeight;
    }
    QColor quiet = colours.color(QPalette::Text);
    quiet.setAlphaF(0.72F);
    painter.setPen(quiet);
    painter.setFont(font());
    painter.drawText(QRect(text.x(), y + 2, width, fontMetrics().lineSpacing()),
                     Qt::AlignVCenter | Qt::AlignLeading,
                     fontMetrics().elidedText(m_title, Qt::ElideRight, width));
}

void SideBanner::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    updateToolTip();
}

void SideBanner::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) textsChanged();
}

void SideBanner::updateToolTip() {
    const int width = textWidth(this->width());
    const QString shown = captionLines(width).join(u' ');
    const bool whole = shown == m_caption && fontMetrics().horizontalAdvance(m_title) <= width;
    setToolTip(whole ? QString() : m_caption + u'\n' + m_title);
}

} // namespace pellam
