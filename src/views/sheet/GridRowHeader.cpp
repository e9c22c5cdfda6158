#include "views/sheet/GridRowHeader.h"

#include <QPainter>
#include <QStyleOptionHeader>

#include <algorithm>
#include <utility>

namespace pellam {

namespace {
constexpr int kMinimumWidth = 25;
constexpr int kMargin = 5;
} // namespace

GridRowHeader::GridRowHeader(QWidget* parent) : QHeaderView(Qt::Vertical, parent) {
    setSectionsClickable(true);
    setHighlightSections(false);
    setSectionResizeMode(QHeaderView::Interactive);
    connect(this, &QHeaderView::sectionResized, this, [this](int row) { m_resized = row; });
}

void GridRowHeader::setSelectionModel(QItemSelectionModel* selection) {
    if (selection->parent() == this) QHeaderView::setSelectionModel(selection);
}

void GridRowHeader::setCurrentRow(int row) {
    if (row == m_current) return;
    m_current = row;
    viewport()->update();
}

QSize GridRowHeader::sizeHint() const {
    QFont bold = font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    const int text = std::max(metrics.horizontalAdvance(QStringLiteral("  Axis  ")),
                              metrics.horizontalAdvance(QString::number(count())) + 2 * kMargin);
    return {std::max(kMinimumWidth, text), QHeaderView::sizeHint().height()};
}

void GridRowHeader::paintSection(QPainter* painter, const QRect& rect, int row) const {
    if (!rect.isValid() || model() == nullptr) return;
    painter->save();
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.rect = rect;
    option.section = row;
    option.position = QStyleOptionHeader::Middle;
    style()->drawControl(QStyle::CE_HeaderSection, &option, painter, this);

    const QVariant colour = model()->headerData(row, Qt::Vertical, Qt::ForegroundRole);
    painter->setPen(colour.isValid() ? colour.value<QBrush>().color()
                                     : palette().color(QPalette::ButtonText));
    QFont bold = font();
    bold.setBold(row == m_current);
    painter->setFont(bold);
    const QString text = model()->headerData(row, Qt::Vertical, Qt::DisplayRole).toString();
    if (row == 0)
        painter->drawText(rect, Qt::AlignCenter, text.trimmed());
    else
        painter->drawText(rect.adjusted(0, 0, -kMargin, 0), Qt::AlignRight | Qt::AlignVCenter,
                          text);
    painter->restore();
}

void GridRowHeader::mouseReleaseEvent(QMouseEvent* event) {
    QHeaderView::mouseReleaseEvent(event);
    const int row = std::exchange(m_resized, -1);
    if (row <= 0 || count() <= kMostSeparateHeights) return;
    const int height = sectionSize(row);
    const int axisHeight = sectionSize(0);
    setDefaultSectionSize(height);
    resizeSection(0, axisHeight);
    m_resized = -1;
}

} // namespace pellam
