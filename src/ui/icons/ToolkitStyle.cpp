#include "ui/icons/ToolkitStyle.h"

#include "ui/icons/IconSet.h"
#include "ui/icons/LineIconEngine.h"

#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QStyleOption>

#include <algorithm>

namespace pellam {

namespace {

/// The base style's lines all but vanish on a dark base.
QColor darkGridLine(const QPalette& colours) {
    const QColor base = colours.color(QPalette::Base);
    const QColor text = colours.color(QPalette::Text);
    const auto mixed = [](int from, int to) { return from + (to - from) * 22 / 100; };
    return {mixed(base.red(), text.red()), mixed(base.green(), text.green()),
            mixed(base.blue(), text.blue())};
}

void paintMark(QPainter& painter, const QRectF& box, QStyle::State state, const QColor& colour) {
    const qreal side = box.width();
    painter.setPen(QPen(colour, side / 7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const auto at = [&](qreal x, qreal y) { return box.topLeft() + QPointF(x, y) * side; };
    if (state & QStyle::State_NoChange)
        painter.drawLine(at(0.27, 0.5), at(0.73, 0.5));
    else if (state & QStyle::State_On)
        painter.drawPolyline(QPolygonF{at(0.24, 0.52), at(0.43, 0.71), at(0.77, 0.31)});
}

void paintCheckBox(QPainter& painter, const QStyleOption& option) {
    const QPalette& colours = option.palette;
    const bool enabled = option.state & QStyle::State_Enabled;
    const bool marked = option.state & (QStyle::State_On | QStyle::State_NoChange);
    const auto group = enabled ? QPalette::Active : QPalette::Disabled;
    const QColor accent = IconSet::accent(colours);
    QColor edge = colours.color(group, QPalette::Text);
    edge.setAlphaF(enabled ? 0.55F : 0.4F);
    if (enabled && (option.state & QStyle::State_MouseOver)) edge = accent;

    const qreal side = std::min(option.rect.width(), option.rect.height()) - 1.0;
    QRectF box(0, 0, side, side);
    box.moveCenter(QRectF(option.rect).center());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor filled = enabled ? accent : edge;
    painter.setPen(QPen(marked ? filled : edge, 1));
    painter.setBrush(marked ? filled : colours.color(group, QPalette::Base));
    painter.drawRoundedRect(box, side / 5, side / 5);
    const bool dark = filled.lightness() > 150;
    paintMark(painter, box, option.state, dark ? QColor(0x10, 0x20, 0x30) : QColor(Qt::white));
    painter.restore();
}

} // namespace

void ToolkitStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    auto* label = qobject_cast<QLabel*>(widget); // a tool tip is one too
    if (label == nullptr || label->textFormat() != Qt::AutoText) return;
    if (qobject_cast<QMessageBox*>(label->window()) == nullptr) label->setTextFormat(Qt::PlainText);
}

int ToolkitStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* returned) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    if (hint == SH_Table_GridLineColor && option != nullptr) {
        const QColor base = option->palette.color(QPalette::Base);
        if (base.lightness() < 128) return static_cast<int>(darkGridLine(option->palette).rgb());
    }
    return QProxyStyle::styleHint(hint, option, widget, returned);
}

QIcon ToolkitStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                                 const QWidget* widget) const {
    const auto own = [](const QString& file) { return QIcon(new LineIconEngine(file)); };
    switch (icon) {
    case SP_MessageBoxInformation:
        return own(QStringLiteral("message-information"));
    case SP_MessageBoxQuestion:
        return own(QStringLiteral("message-question"));
    case SP_MessageBoxWarning:
        return own(QStringLiteral("message-warning"));
    case SP_MessageBoxCritical:
        return own(QStringLiteral("message-critical"));
    default:
        return QProxyStyle::standardIcon(icon, option, widget);
    }
}

void ToolkitStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const {
    const bool checkBox =
        element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck;
    if (checkBox && baseStyle()->name().compare(u"fusion", Qt::CaseInsensitive) == 0)
        paintCheckBox(*painter, *option);
    else
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

} // namespace pellam
