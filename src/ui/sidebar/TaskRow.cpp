#include "ui/sidebar/TaskRow.h"

#include "ui/icons/IconSet.h"

#include <QKeyEvent>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace pellam {

namespace {

constexpr int kSide = 8;   // pixels left and right of the content
constexpr int kAbove = 5;  // pixels above and below it
constexpr int kGap = 8;    // pixels between icon and text
constexpr int kCorner = 5; // pixels
constexpr int kMinimumText = 48;

/// Breaks the text into lines of a width; gives the height of them all.
qreal breakLines(QTextLayout& layout, qreal width) {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    qreal y = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, y});
        y += line.height();
    }
    layout.endLayout();
    return y;
}

} // namespace

TaskRow::TaskRow(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void TaskRow::setPlainText(const QString& text) {
    if (text == plainText() && !this->text().isEmpty()) return;
    setText(QString(text).replace(u'&', QStringLiteral("&&")));
    setAccessibleName(text);
    updateGeometry();
}

int TaskRow::iconExtent() const {
    return std::max(20, fontMetrics().height() + 2);
}

int TaskRow::textLeft() const {
    return kSide + (icon().isNull() ? 0 : iconExtent() + kGap);
}

int TaskRow::textWidth(int width) const {
    return std::max(kMinimumText, width - textLeft() - kSide - trailingWidth());
}

qreal TaskRow::textHeight(int width) const {
    QTextLayout layout(plainText(), textFont());
    return breakLines(layout, textWidth(width));
}

int TaskRow::heightForWidth(int width) const {
    const int content = std::max(iconExtent(), static_cast<int>(std::ceil(textHeight(width))));
    return content + 2 * kAbove;
}

QSize TaskRow::sizeHint() const {
    const int text = QFontMetrics(textFont()).horizontalAdvance(plainText()) + 2;
    const int width = textLeft() + text + kSide + trailingWidth();
    return {width, heightForWidth(width)};
}

QSize TaskRow::minimumSizeHint() const {
    return {textLeft() + kMinimumText + kSide + trailingWidth(), iconExtent() + 2 * kAbove};
}

void TaskRow::paintState(QPainter& painter) const {
    QColor accent = IconSet::accent(palette());
    const QRectF box = QRectF(rect()).adjusted(1, 1, -1, -1);
    qreal strength = 0;
    if (isChecked()) strength += 0.16;
    if (isEnabled() && underMouse()) strength += 0.10;
    if (isDown()) strength += 0.12;
    painter.setPen(Qt::NoPen);
    if (strength > 0) {
        accent.setAlphaF(static_cast<float>(strength));
        painter.setBrush(accent);
        painter.drawRoundedRect(box, kCorner, kCorner);
    }
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(IconSet::accent(palette()), 2));
        painter.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
    }
}

void TaskRow::paintText(QPainter& painter) const {
    const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    painter.setPen(palette().color(group, QPalette::Text));
    QTextLayout layout(plainText(), textFont());
    const int width = textWidth(this->width());
    const qreal height = breakLines(layout, width);
    const qreal left =
        layoutDirection() == Qt::RightToLeft ? this->width() - textLeft() - width : textLeft();
    layout.draw(&painter, {left, (this->height() - height) / 2});
}

void TaskRow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintState(painter);
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const int extent = iconExtent();
    const auto place = [&](int x, int width) {
        return QRect(mirrored ? this->width() - x - width : x, 0, width, height());
    };
    if (!icon().isNull()) {
        const QRect square = place(kSide, extent).adjusted(0, (height() - extent) / 2, 0, 0);
        icon().paint(&painter, QRect(square.topLeft(), QSize(extent, extent)), Qt::AlignCenter,
                     isEnabled() ? QIcon::Normal : QIcon::Disabled,
                     isChecked() ? QIcon::On : QIcon::Off);
    }
    paintText(painter);
    if (const int trailing = trailingWidth())
        paintTrailing(painter, place(width() - kSide - trailing, trailing));
}

void TaskRow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat()) click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

void TaskRow::changeEvent(QEvent* event) {
    QAbstractButton::changeEvent(event);
    if (event->type() == QEvent::FontChange) updateGeometry();
}

} // namespace pellam
