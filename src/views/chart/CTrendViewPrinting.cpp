#include "views/chart/CTrendView.h"

#include "base/MessageSink.h"
#include "trend/control/CTrend.h"
#include "views/chart/PaperGuard.h"

#include <QFileInfo>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

namespace pellam {

namespace {

constexpr double kUnitsPerInch = 600; // of the measures below
constexpr double kMargin = 50;
constexpr double kChartTop = 150;
constexpr double kTitleHeight = 150;

/// A printer's paper in landscape; the orientation before comes back with its end.
class Landscape {
  public:
    explicit Landscape(QPrinter& printer)
        : m_printer(printer),
          m_before(printer.pageLayout().orientation()) {
        m_printer.setPageOrientation(QPageLayout::Landscape);
    }

    ~Landscape() { m_printer.setPageOrientation(m_before); }

    Landscape(const Landscape&) = delete;
    Landscape& operator=(const Landscape&) = delete;

  private:
    QPrinter& m_printer;
    QPageLayout::Orientation m_before;
};

} // namespace

void CTrendView::OnFilePrint(QPrinter& printer) {
    if (!hasChart()) return;
    const Landscape landscape(printer);
    printer.setDocName(m_fileName);
    if (OnPreparePrinting(printer)) print(printer);
}

void CTrendView::OnFilePrintPreview(QPrinter& printer,
                                    const std::function<void(const QPageLayout&)>& preview) {
    if (!hasChart()) return;
    const Landscape landscape(printer);
    preview(printer.pageLayout());
}

bool CTrendView::OnPreparePrinting(QPrinter& printer) {
    return QPrintDialog(&printer, this).exec() == QDialog::Accepted;
}

void CTrendView::OnBeginPrinting(bool preview) {
    if (preview) m_trend->SetLockUpdate(1);
}

void CTrendView::OnEndPrinting(bool preview) {
    if (preview) m_trend->SetLockUpdate(0);
}

void CTrendView::OnPrint(QPainter& painter, const QRectF& area, double unitsPerInch) {
    const double unit = unitsPerInch / kUnitsPerInch;
    const PaperGuard paper(*m_trend);
    painter.save();
    painter.fillRect(area, Qt::white);
    m_trend->PrintTrend(painter, area.adjusted(kMargin * unit, kChartTop * unit, 0, 0),
                        unitsPerInch);
    PrintTitlePage(painter, area, unit);
    painter.restore();
}

void CTrendView::PrintTitlePage(QPainter& painter, const QRectF& area, double unit) const {
    const QFileInfo file(m_fileName);
    const QString text = QStringLiteral("File: %1.%2").arg(file.completeBaseName(), file.suffix());
    QFont font;
    font.setPixelSize(100); // the device's own pixels are too coarse on a screen
    const QFontMetricsF metrics(font);
    const double scale = kTitleHeight * unit / metrics.height();
    const double width = area.width() / scale;
    painter.save();
    painter.translate(area.left(), area.top() + kMargin * unit);
    painter.scale(scale, scale);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QRectF(0, 0, width, metrics.height()), Qt::AlignHCenter | Qt::AlignTop,
                     metrics.elidedText(text, Qt::ElideMiddle, width));
    painter.restore();
}

void CTrendView::print(QPrinter& printer) {
    QPainter painter;
    bool printed = painter.begin(&printer);
    if (printed) {
        const QSize paper = printer.pageLayout().paintRectPixels(printer.resolution()).size();
        OnPrint(painter, QRectF(QPointF(), paper), printer.resolution());
        printed = painter.end();
    }
    if (!printed) m_context.messages.show("Warning: The printer could not be used");
}

} // namespace pellam
