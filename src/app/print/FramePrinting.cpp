#include "app/print/FramePrinting.h"

#include "app/print/PreviewPane.h"
#include "views/chart/CTrendView.h"
#include "views/grid/CGridView.h"
#include "views/print/GridPrinter.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

namespace pellam {

namespace {

/// Hair lines of the page are thinner than a pixel of the preview: drawn larger, they keep even.
void paintFine(CTrendView& chart, QPainter& painter, const QRectF& area, double inches) {
    constexpr int kFiner = 3;
    const double ratio = painter.device()->devicePixelRatioF();
    const QSize pixels = (area.size() * ratio).toSize();
    QImage page(pixels * kFiner, QImage::Format_RGB32);
    QPainter fine(&page);
    chart.OnPrint(fine, page.rect(), page.width() / inches);
    fine.end();
    page = page.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    page.setDevicePixelRatio(ratio);
    painter.drawImage(area.topLeft(), page);
}

} // namespace

FramePrinting::FramePrinting(QWidget* window, CGridView& grid, CTrendView& chart)
    : QObject(window),
      m_window(window),
      m_grid(grid),
      m_chart(chart) {}

FramePrinting::~FramePrinting() = default;

QPrinter& FramePrinting::printer() {
    // Asking the print service takes time, so not before somebody prints.
    if (!m_printer) m_printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    return *m_printer;
}

void FramePrinting::printGrid(ProgressSink& progress) {
    const int pages = m_grid.pageCount(printer());
    if (pages == 0) return;
    printer().setDocName(m_grid.fileName());
    QPrintDialog dialog(&printer(), m_window);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    dialog.setMinMax(1, pages);
    if (dialog.exec() == QDialog::Accepted) m_grid.print(printer(), progress);
}

void FramePrinting::printChart() {
    m_chart.OnFilePrint(printer());
}

std::unique_ptr<PreviewPane> FramePrinting::previewGrid() {
    const auto paper = printer().pageLayout();
    auto sheets = std::make_shared<GridPrinter>(m_grid.data(), m_grid.fileName());
    sheets->setPageSize(paper.paintRect(QPageLayout::Point).size());
    if (sheets->pageCount() == 0) return nullptr;
    return std::make_unique<PreviewPane>(paper, sheets->pageCount(),
                                         [sheets](QPainter& painter, int page, const QRectF& area) {
                                             sheets->paintPage(painter, page, area);
                                         });
}

std::unique_ptr<PreviewPane> FramePrinting::previewChart() {
    std::unique_ptr<PreviewPane> pane;
    m_chart.OnFilePrintPreview(printer(), [&](const QPageLayout& paper) {
        const double inches = paper.paintRect(QPageLayout::Inch).width();
        pane = std::make_unique<PreviewPane>(
            paper, 1, [&chart = m_chart, inches](QPainter& painter, int, const QRectF& area) {
                paintFine(chart, painter, area, inches);
            });
    });
    return pane;
}

} // namespace pellam
