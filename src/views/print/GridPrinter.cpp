#include "views/print/GridPrinter.h"

#include "base/ProgressSink.h"
#include "views/text/HeadingText.h"
#include "views/text/ScreenText.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>

#include <algorithm>

namespace pellam {

namespace {

constexpr double kMargin = 20; // between a cell's edge and its text
const QColor kLine(176, 176, 176);
const QColor kHeadingFill(236, 239, 243);
const QColor kAxisFill(255, 207, 49);

/// Paints one page in the layout's units.
class PagePainter {
  public:
    PagePainter(QPainter& painter, const GridData& grid, const GridPageLayout& layout,
                const GridPageLayout::Page& page)
        : m_painter(painter),
          m_grid(grid),
          m_layout(layout),
          m_page(page) {}

    void paintTable() {
        m_painter.setFont(m_layout.headingFont());
        m_painter.fillRect(QRectF(0, 0, width(), m_layout.headingHeight()), kHeadingFill);
        double left = m_layout.rowNumberWidth();
        for (int column = m_page.firstColumn; column <= m_page.lastColumn; ++column) {
            paintHeading(column, left);
            left += m_layout.columnWidth(column);
        }
        m_painter.setFont(m_layout.font());
        for (GridRow row = m_page.firstRow; row <= m_page.lastRow; ++row)
            paintRow(row);
        paintLines();
    }

    void paintFooter(const QString& left, const QString& right) {
        m_painter.setFont(m_layout.font());
        m_painter.setPen(Qt::black);
        const QSizeF size = m_layout.size();
        const QRectF foot(0, size.height() - m_layout.footerHeight(), size.width(),
                          m_layout.footerHeight());
        const QFontMetricsF metrics(m_layout.font());
        const double room = size.width() - metrics.horizontalAdvance(right) - 4 * kMargin;
        m_painter.drawText(foot, Qt::AlignLeft | Qt::AlignBottom,
                           metrics.elidedText(left, Qt::ElideMiddle, room));
        m_painter.drawText(foot, Qt::AlignRight | Qt::AlignBottom, right);
    }

  private:
    [[nodiscard]] double width() const {
        double width = m_layout.rowNumberWidth();
        for (int column = m_page.firstColumn; column <= m_page.lastColumn; ++column) {
            width += m_layout.columnWidth(column);
        }
        return width;
    }

    [[nodiscard]] double top(GridRow row) const {
        return m_layout.headingHeight() +
               static_cast<double>(row - m_page.firstRow) * m_layout.rowHeight();
    }

    void paintHeading(int column, double left) {
        const double room = m_layout.columnWidth(column) - 2 * kMargin;
        const HeadingText heading(m_grid.column(column).label());
        const QFontMetricsF metrics(m_layout.headingFont());
        m_painter.setPen(Qt::black);
        m_painter.drawText(QRectF(left + kMargin, 0, room, m_layout.headingHeight()),
                           Qt::AlignLeft | Qt::AlignVCenter,
                           heading.lines(room, metrics).join(u'\n'));
    }

    void paintRow(GridRow row) {
        const QString number = row == 0 ? QStringLiteral("Axis") : QString::number(row);
        paintText(number, 0, row, m_layout.rowNumberWidth(), Qt::black, Qt::AlignRight);
        double left = m_layout.rowNumberWidth();
        CellBuffer buffer;
        for (int column = m_page.firstColumn; column <= m_page.lastColumn; ++column) {
            const double wide = m_layout.columnWidth(column);
            if (row > 0) {
                const QColor colour = m_grid.colour(column, row - 1) == CellColour::DarkRed
                                          ? QColor(192, 0, 0)
                                          : QColor(Qt::black);
                const bool numeric = m_grid.column(column).number(row - 1).has_value();
                paintText(screenText(m_grid.text(column, row - 1, buffer)), left, row, wide, colour,
                          numeric ? Qt::AlignRight : Qt::AlignLeft);
            } else if (column > 0) {
                m_painter.fillRect(QRectF(left, top(row), wide, m_layout.rowHeight()), kAxisFill);
                paintText(QString::number(m_grid.column(column).axis()), left, row, wide, Qt::black,
                          Qt::AlignLeft);
            }
            left += wide;
        }
    }

    void paintText(const QString& text, double left, GridRow row, double wide, const QColor& colour,
                   Qt::Alignment side) {
        constexpr qsizetype longest = 500;
        const double room = wide - 2 * kMargin;
        const QFontMetricsF metrics(m_layout.font());
        QString line = text.left(longest).simplified();
        if (side == Qt::AlignRight) line = numberWithin(line, room, metrics);
        m_painter.setPen(colour);
        m_painter.drawText(QRectF(left + kMargin, top(row), room, m_layout.rowHeight()),
                           int(side | Qt::AlignVCenter) | Qt::TextSingleLine,
                           metrics.elidedText(line, Qt::ElideRight, room));
    }

    void paintLines() {
        m_painter.setPen(QPen(kLine, 4));
        const double right = width();
        const double bottom = top(m_page.lastRow + 1);
        m_painter.drawLine(QPointF(0, 0), QPointF(right, 0));
        for (GridRow row = m_page.firstRow; row <= m_page.lastRow + 1; ++row) {
            m_painter.drawLine(QPointF(0, top(row)), QPointF(right, top(row)));
        }
        m_painter.drawLine(QPointF(0, 0), QPointF(0, bottom));
        double left = m_layout.rowNumberWidth();
        m_painter.drawLine(QPointF(left, 0), QPointF(left, bottom));
        for (int column = m_page.firstColumn; column <= m_page.lastColumn; ++column) {
            left += m_layout.columnWidth(column);
            m_painter.drawLine(QPointF(left, 0), QPointF(left, bottom));
        }
    }

    QPainter& m_painter;
    const GridData& m_grid;
    const GridPageLayout& m_layout;
    const GridPageLayout::Page m_page;
};

} // namespace

GridPrinter::GridPrinter(const GridData& grid, QString fileName)
    : m_grid(grid),
      m_fileName(std::move(fileName)),
      m_layout(grid) {}

void GridPrinter::setPageSize(QSizeF points) {
    m_layout.setPageSize(points);
}

void GridPrinter::paintPage(QPainter& painter, int page, const QRectF& target) const {
    if (page < 0 || page >= pageCount()) return;
    painter.save();
    painter.translate(target.topLeft());
    const double scale = target.width() / m_layout.size().width();
    painter.scale(scale, scale);
    PagePainter sheet(painter, m_grid, m_layout, m_layout.page(page));
    sheet.paintTable();
    sheet.paintFooter(
        m_fileName,
        QCoreApplication::translate("GridPrinter", "Page %1 of %2").arg(page + 1).arg(pageCount()));
    painter.restore();
}

bool GridPrinter::print(QPagedPaintDevice& device, PageRange range, ProgressSink& progress) {
    setPageSize(device.pageLayout().paintRect(QPageLayout::Point).size());
    const int first = std::max(1, range.first);
    const int last = range.last > 0 ? std::min(range.last, pageCount()) : pageCount();
    if (first > last) return false;

    ProgressScope scope(progress, "Printing", "Printing...", first, last);
    QPainter painter;
    if (!painter.begin(&device)) return false;
    for (int page = first; page <= last; ++page) {
        if (page > first && !device.newPage()) return false;
        paintPage(painter, page - 1,
                  QRectF(QPointF(0, 0), QSizeF(device.width(), device.height())));
        if ((page - first) % 10 == 0) {
            progress.addString("Page " + std::to_string(page) + " of " + std::to_string(last));
            progress.setPosition(page);
            if (progress.aborted()) return false;
        }
    }
    return painter.end();
}

} // namespace pellam
