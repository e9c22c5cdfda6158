#include "views/sheet/GridDelegate.h"

#include "views/sheet/AxisSpinBox.h"
#include "views/sheet/GridModel.h"
#include "views/text/CellWidths.h"

#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>

namespace pellam {

namespace {

constexpr int kButtonWidth = 17;

bool isAxisCell(const QModelIndex& index) {
    return index.row() == GridModel::kAxisRow && index.column() > 0;
}

void paintArrow(QPainter* painter, const QRect& rect, bool up, bool enabled) {
    const QPointF middle = QRectF(rect).center();
    const double half = 3.2;
    const double rise = up ? -1.8 : 1.8;
    QPolygonF arrow;
    arrow << middle + QPointF(-half, -rise) << middle + QPointF(half, -rise)
          << middle + QPointF(0, rise);
    painter->setBrush(enabled ? QColor(48, 40, 8) : QColor(190, 152, 40));
    painter->drawPolygon(arrow);
}

/// The mark of a changed cell: its upper left corner.
void paintEdited(QPainter* painter, const QRect& rect, const QColor& colour) {
    constexpr int size = 7;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(colour);
    const QPoint corner = rect.topLeft();
    painter->drawPolygon(QPolygon({corner, corner + QPoint(size, 0), corner + QPoint(0, size)}));
    painter->restore();
}

} // namespace

QRect GridDelegate::spinUpRect(const QRect& cell) {
    return {cell.right() - kButtonWidth + 1, cell.top(), kButtonWidth, cell.height() / 2};
}

QRect GridDelegate::spinDownRect(const QRect& cell) {
    const QRect up = spinUpRect(cell);
    return {up.left(), up.bottom() + 1, kButtonWidth, cell.height() - up.height()};
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    QStyleOptionViewItem plain = option;
    plain.state &= ~QStyle::State_HasFocus;
    // Columns that only fill the window look like what lies around the table.
    if (!(index.flags() & Qt::ItemIsEnabled)) {
        painter->fillRect(option.rect, option.palette.window());
        return;
    }
    QStyledItemDelegate::paint(painter, plain, index);
    if (index.data(GridModel::EditedRole).toBool()) {
        const bool selected = option.state.testFlag(QStyle::State_Selected);
        paintEdited(
            painter, option.rect,
            option.palette.color(selected ? QPalette::HighlightedText : QPalette::Highlight));
    }
    if (option.state & QStyle::State_HasFocus) {
        painter->setPen(QPen(option.palette.color(QPalette::Text), 1, Qt::SolidLine));
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
    if (!isAxisCell(index)) return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    const bool enabled = (index.flags() & Qt::ItemIsEditable) != 0;
    const int axis = index.data(GridModel::AxisRole).toInt();
    paintArrow(painter, spinUpRect(option.rect), true, enabled);
    paintArrow(painter, spinDownRect(option.rect), false, enabled && axis > 1);
    painter->restore();
}

QString GridDelegate::displayText(const QVariant& value, const QLocale&) const {
    constexpr qsizetype longest = 512; // more does not fit a screen, and laying it out takes long
    QString text = value.toString();
    // A cell is one line high.
    text.replace(u'\n', u' ').replace(u'\r', u' ');
    return text.size() <= longest ? text : text.left(longest) + u'\u2026';
}

void GridDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (!index.data(GridModel::NumberRole).toBool()) return;
    const QStyle* style = option->widget ? option->widget->style() : QApplication::style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, option, option->widget) + 1;
    const int room = option->rect.width() - 2 * margin;
    const QFontMetrics& metrics = option->fontMetrics;
    const auto characters = static_cast<int>(option->text.size());
    // Most cells have room to spare, which one character tells.
    if (characters * metrics.horizontalAdvance(u'E') <= room) return;
    option->text = numberWithin(option->text, room, QFontMetricsF(option->font));
}

QWidget* GridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                    const QModelIndex& index) const {
    if (isAxisCell(index)) return new AxisSpinBox(parent);
    auto* line = new QLineEdit(parent);
    line->setMaxLength(1 << 20);
    line->setAutoFillBackground(true);
    return line;
}

void GridDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    if (auto* spin = qobject_cast<AxisSpinBox*>(editor)) {
        spin->setValue(index.data(GridModel::AxisRole).toInt());
    } else if (auto* line = qobject_cast<QLineEdit*>(editor)) {
        line->setText(index.data(Qt::EditRole).toString());
    }
}

void GridDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                const QModelIndex& index) const {
    if (auto* spin = qobject_cast<AxisSpinBox*>(editor)) {
        spin->interpretText();
        model->setData(index, spin->axis(), Qt::EditRole);
    } else if (const auto* line = qobject_cast<QLineEdit*>(editor)) {
        // A line edit shows line ends as other characters: an untouched text must stay as it is.
        if (line->isModified()) model->setData(index, line->text(), Qt::EditRole);
    }
}

bool GridDelegate::eventFilter(QObject* object, QEvent* event) {
    auto* const editor = qobject_cast<QWidget*>(object);
    if (editor == nullptr || event->type() != QEvent::KeyPress)
        return QStyledItemDelegate::eventFilter(object, event);
    const auto* pressed = static_cast<QKeyEvent*>(event);
    const int key = pressed->key();
    const Qt::KeyboardModifiers modifiers = pressed->modifiers();
    if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Tab &&
        key != Qt::Key_Backtab) {
        return QStyledItemDelegate::eventFilter(object, event);
    }
    Q_EMIT commitData(editor);
    Q_EMIT closeEditor(editor);
    Q_EMIT leftByKey(key, modifiers);
    return true;
}

bool GridDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                               const QStyleOptionViewItem& option, const QModelIndex& index) {
    const bool press =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (!press || !isAxisCell(index) || !(index.flags() & Qt::ItemIsEditable)) {
        return QStyledItemDelegate::editorEvent(event, model, option, index);
    }
    const auto* mouse = static_cast<QMouseEvent*>(event);
    const QPoint place = mouse->position().toPoint();
    const bool up = spinUpRect(option.rect).contains(place);
    if (mouse->button() != Qt::LeftButton || !(up || spinDownRect(option.rect).contains(place))) {
        return false;
    }
    Q_EMIT spun(index.column(), up);
    return true;
}

} // namespace pellam
