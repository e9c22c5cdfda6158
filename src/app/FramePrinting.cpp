#include "app/FramePrinting.h"

#include "app/PreviewPane.h"
#include "views/CGridView.h"
#include "views/GridPrinter.h"

#include <QPrintDialog>
#include <QPrinter>

namespace pellam {

FramePrinting::FramePrinting(QWidget* window, CGridView& grid)
    : QObject(window),
      m_window(window),
      m_grid(grid) {}

FramePrinting::~FramePrinting() = default;

QPrinter& FramePrinting::printer() {
    // Asking the print service takes time, so not before somebody prints.
    if (!m_printer) m_printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    return *m_printer;
}

void FramePrinting::print(ProgressSink& progress) {
    const int pages = m_grid.pageCount(printer());
    if (pages == 0) return;
    printer().setDocName(m_grid.fileName());
    QPrintDialog dialog(&printer(), m_window);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    dialog.setMinMax(1, pages);
    if (dialog.exec() == QDialog::Accepted) m_grid.print(printer(), progress);
}

std::unique_ptr<PreviewPane> FramePrinting::makePreview() {
    const auto paper = printer().pageLayout();
    auto sheets = std::make_shared<GridPrinter>(m_grid.data(), m_grid.fileName());
    sheets->setPageSize(paper.paintRect(QPageLayout::Point).size());
    if (sheets->pageCount() == 0) return nullptr;
    return std::make_unique<PreviewPane>(paper, sheets->pageCount(),
                                         [sheets](QPainter& painter, int page, const QRectF& area) {
                                             sheets->paintPage(painter, page, area);
                                         });
}

} // namespace pellam
