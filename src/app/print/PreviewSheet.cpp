#include "app/print/PreviewSheet.h"

#include <QPainter>

namespace pellam {

PreviewSheet::PreviewSheet(const QPageLayout& paper, Paint paint, QWidget* parent)
    : QWidget(parent),
      m_paper(paper),
      m_paint(std::move(paint)) {
    setScale(1.0);
}

void PreviewSheet::setPage(int page) {
    m_page = page;
    update();
}

void PreviewSheet::setScale(double scale) {
    m_scale = scale;
    const auto size = (paperSize() * scale).toSize() + QSize(2 * kRoom, 2 * kRoom);
    setFixedSize(size);
    update();
}

QSizeF PreviewSheet::paperSize() const {
    return m_paper.fullRect(QPageLayout::Point).size();
}

void PreviewSheet::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const QRectF sheet(QPointF(kRoom, kRoom), paperSize() * m_scale);
    for (int step = 1; step <= 4; ++step)
        painter.fillRect(sheet.translated(step, step), QColor(0, 0, 0, 24));
    painter.fillRect(sheet, Qt::white);

    const auto printable = m_paper.paintRect(QPageLayout::Point);
    const QRectF area(sheet.topLeft() + printable.topLeft() * m_scale, printable.size() * m_scale);
    painter.setClipRect(sheet);
    m_paint(painter, m_page, area);
}

} // namespace pellam
