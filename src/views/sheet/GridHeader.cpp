#include "views/sheet/GridHeader.h"

#include "views/sheet/GridModel.h"
#include "views/text/HeadingText.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionButton>
#include <QStyleOptionHeader>
#include <QTableView>
#include <QToolTip>

#include <algorithm>
#include <cstdlib>

namespace pellam {

namespace {
constexpr int kMinimumHeight = 35;
constexpr int kMargin = 4;
constexpr int kScrollEdge = 24;

// The base class knows nothing of the locked column: it is shown the place where that would be if
// it had scrolled along.
QMouseEvent moved(const QMouseEvent& event, int shift) {
    return {event.type(),          event.position() + QPointF(shift, 0),
            event.scenePosition(), event.globalPosition(),
            event.button(),        event.buttons(),
            event.modifiers(),     event.pointingDevice()};
}
} // namespace

GridHeader::GridHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setSectionsClickable(false);
    setSectionsMovable(false);
    setHighlightSections(false);
    setSectionResizeMode(QHeaderView::Interactive);
    setMinimumSectionSize(24);
    setMouseTracking(true);
}

void GridHeader::setSelectionModel(QItemSelectionModel* selection) {
    if (selection->parent() == this) QHeaderView::setSelectionModel(selection);
}

void GridHeader::setCurrentColumn(int column) {
    if (column == m_current) return;
    m_current = column;
    viewport()->update();
}

QSize GridHeader::sizeHint() const {
    QFont bold = font();
    bold.setBold(true);
    const int text = 2 * QFontMetrics(bold).height() + 2 * kMargin;
    return {QHeaderView::sizeHint().width(), std::max(kMinimumHeight, text)};
}

int GridHeader::decorationWidth() const {
    return style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, this) + 4 * kMargin;
}

int GridHeader::headingWidth(int column) const {
    QFont bold = font();
    bold.setBold(true);
    const HeadingText heading(
        model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString().toStdString());
    const double text = heading.width(QFontMetricsF(bold));
    return text > 0 ? qCeil(text) + decorationWidth() + kMargin : 0;
}

QSize GridHeader::sectionSizeFromContents(int column) const {
    return {headingWidth(column), sizeHint().height()};
}

QRect GridHeader::headingRect(int column) const {
    const int left = column == 0 ? 0 : sectionViewportPosition(column);
    return {left, 0, sectionSize(column), viewport()->height()};
}

QRect GridHeader::checkBoxIn(const QRect& heading) const {
    const int wide = style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, this);
    const int high = style()->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, this);
    return {heading.left() + kMargin, heading.top() + (heading.height() - high) / 2, wide, high};
}

QRect GridHeader::checkBoxRect(int column) const {
    return checkBoxIn(headingRect(column));
}

int GridHeader::columnAt(int x) const {
    if (count() > 0 && x >= 0 && x < sectionSize(0)) return 0;
    return logicalIndexAt(x);
}

int GridHeader::frozenShift(int x) const {
    const int grip = style()->pixelMetric(QStyle::PM_HeaderGripMargin, nullptr, this);
    return count() > 0 && offset() > 0 && x < sectionSize(0) + grip ? -offset() : 0;
}

/// The column whose right edge is at a place; -1 for none.
int GridHeader::handleAt(int x) const {
    const int column = columnAt(x);
    if (column < 0) return -1;
    const int grip = style()->pixelMetric(QStyle::PM_HeaderGripMargin, nullptr, this);
    const QRect heading = headingRect(column);
    if (x > heading.right() - grip) return column;
    return x < heading.left() + grip ? column - 1 : -1;
}

bool GridHeader::resizable(int handle) const {
    return handle >= 0 && sectionResizeMode(handle) == QHeaderView::Interactive;
}

void GridHeader::paintEvent(QPaintEvent* event) {
    QHeaderView::paintEvent(event);
    if (count() == 0) return;
    QPainter painter(viewport());
    if (offset() > 0) {
        paintSection(&painter, headingRect(0), 0);
        painter.setPen(palette().color(QPalette::Dark));
        const int edge = sectionSize(0) - 1;
        painter.drawLine(edge, 0, edge, viewport()->height());
    }
    if (m_insertion < 0) return;
    const int x =
        m_insertion < count() ? headingRect(m_insertion).left() : headingRect(count() - 1).right();
    painter.fillRect(QRect(x - 2, 0, 4, viewport()->height()), palette().highlight());
}

void GridHeader::paintSection(QPainter* painter, const QRect& rect, int column) const {
    if (!rect.isValid() || model() == nullptr) return;
    painter->save();
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.rect = rect;
    option.section = column;
    option.position = QStyleOptionHeader::Middle;
    if (column == m_pressed && m_insertion >= 0) option.state |= QStyle::State_Sunken;
    style()->drawControl(QStyle::CE_HeaderSection, &option, painter, this);

    QStyleOptionButton box;
    box.initFrom(this);
    box.rect = checkBoxIn(rect);
    const bool charted =
        model()->headerData(column, Qt::Horizontal, GridModel::ChartedRole).toBool();
    box.state &= ~QStyle::State_HasFocus;
    box.state |= charted ? QStyle::State_On : QStyle::State_Off;
    painter->setClipRect(rect, Qt::IntersectClip);
    style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, painter, this);

    QFont bold = font();
    bold.setBold(column == m_current);
    painter->setFont(bold);
    const QRect room = rect.adjusted(decorationWidth() - kMargin, 0, -kMargin, 0);
    const HeadingText heading(
        model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString().toStdString());
    painter->setPen(palette().color(QPalette::ButtonText));
    painter->drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                      heading.lines(room.width(), QFontMetricsF(bold)).join(u'\n'));
    painter->restore();
}

void GridHeader::mousePressEvent(QMouseEvent* event) {
    const int x = qRound(event->position().x());
    const int column = columnAt(x);
    const int handle = handleAt(x);
    m_resizing = resizable(handle);
    m_resizeShift = -frozenShift(x);
    if (m_resizing) {
        QMouseEvent shown = moved(*event, m_resizeShift);
        QHeaderView::mousePressEvent(&shown);
        return;
    }
    if (event->button() != Qt::LeftButton || column < 0) return;
    if (handle >= 0) {
        Q_EMIT resizeRefused();
        return;
    }
    const QRect box = checkBoxRect(column).adjusted(-kMargin, -kMargin, 2, kMargin);
    if (box.contains(event->position().toPoint())) {
        Q_EMIT checkBoxClicked(column);
        return;
    }
    m_pressed = column;
    m_pressX = x;
    Q_EMIT headingPressed(column, event->modifiers());
}

void GridHeader::mouseMoveEvent(QMouseEvent* event) {
    const int x = qRound(event->position().x());
    if (m_pressed < 0) {
        QMouseEvent shown = moved(*event, m_resizing ? m_resizeShift : -frozenShift(x));
        QHeaderView::mouseMoveEvent(&shown);
        return;
    }
    if (m_pressed == 0 || m_pressed > m_lastMovable) return;
    if (m_insertion < 0) {
        if (std::abs(x - m_pressX) < QApplication::startDragDistance()) return;
        Q_EMIT dragStarted(m_pressed);
        setCursor(Qt::ClosedHandCursor);
        qApp->installEventFilter(this);
    }
    dragTo(x);
}

int GridHeader::insertionBefore(int x) const {
    const int last = std::min(m_lastMovable, count() - 1);
    if (x >= headingRect(last).center().x()) return last + 1;
    const int column = std::max(1, columnAt(std::max(x, sectionSize(0))));
    return x > headingRect(column).center().x() ? column + 1 : column;
}

void GridHeader::dragTo(int x) {
    m_insertion = insertionBefore(x);
    const bool beyond = x > viewport()->width() - kScrollEdge || x < sectionSize(0) + kScrollEdge;
    if (!beyond)
        m_scrollTimer.stop();
    else if (!m_scrollTimer.isActive())
        m_scrollTimer.start(40, this);
    viewport()->update();
}

void GridHeader::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_scrollTimer.timerId()) {
        QHeaderView::timerEvent(event);
        return;
    }
    const int x = viewport()->mapFromGlobal(QCursor::pos()).x();
    if (auto* table = qobject_cast<QTableView*>(parentWidget())) {
        QScrollBar* bar = table->horizontalScrollBar();
        bar->setValue(bar->value() + (x > viewport()->width() / 2 ? kScrollEdge : -kScrollEdge));
    }
    dragTo(x);
}

void GridHeader::mouseReleaseEvent(QMouseEvent* event) {
    if (m_pressed < 0) {
        QMouseEvent shown = moved(*event, m_resizeShift);
        QHeaderView::mouseReleaseEvent(&shown);
        m_resizing = false;
        return;
    }
    const int from = m_pressed;
    const int to = m_insertion > from ? m_insertion - 1 : m_insertion;
    endDrag();
    if (to > 0 && to != from) Q_EMIT moveRequested(from, to);
}

void GridHeader::endDrag() {
    if (m_insertion >= 0) {
        qApp->removeEventFilter(this);
        unsetCursor();
    }
    m_scrollTimer.stop();
    m_pressed = -1;
    m_insertion = -1;
    viewport()->update();
}

bool GridHeader::eventFilter(QObject* watched, QEvent* event) {
    // While a heading is dragged, Escape lets go of it wherever the keyboard focus is.
    if (m_insertion >= 0 && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        endDrag();
        return true;
    }
    return QHeaderView::eventFilter(watched, event);
}

void GridHeader::mouseDoubleClickEvent(QMouseEvent* event) {
    const int x = qRound(event->position().x());
    if (!resizable(handleAt(x))) {
        mousePressEvent(event);
        return;
    }
    QMouseEvent shown = moved(*event, -frozenShift(x));
    QHeaderView::mouseDoubleClickEvent(&shown);
}

bool GridHeader::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QHeaderView::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int column = columnAt(help->pos().x());
    const QString label =
        model() == nullptr || column < 0
            ? QString()
            : model()->headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString();
    QToolTip::showText(help->globalPos(), label, viewport());
    return true;
}

} // namespace pellam
