#include "trend/paint/TrendExport.h"

#include <QIODevice>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

namespace pellam {
namespace {

constexpr double logicalInch = 96;
constexpr int pdfResolution = 288;

bool isWritten(QIODevice& device, qint64 before) {
    return device.isWritable() && device.pos() > before;
}

} // namespace

QImage chartImage(const TrendChart& chart, const QSize& size, const TrendTheme& theme,
                  double scale) {
    QImage image(size * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    TrendPainter painter;
    painter.draw(image, chart, painter.layout(chart, size), theme);
    return image;
}

bool writeChartSvg(QIODevice& device, const TrendChart& chart, const QSize& size,
                   const TrendTheme& theme) {
    const qint64 before = device.pos();
    QSvgGenerator generator;
    generator.setOutputDevice(&device);
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(), size));
    generator.setResolution(static_cast<int>(logicalInch));
    QPainter painter;
    if (!painter.begin(&generator)) return false;
    TrendPainter chartPainter;
    chartPainter.draw(painter, chart, chartPainter.layout(chart, size), theme, 1);
    return painter.end() && isWritten(device, before);
}

bool writeChartPdf(QIODevice& device, const TrendChart& chart, const QSize& size,
                   const TrendTheme& theme) {
    const qint64 before = device.pos();
    QPdfWriter writer(&device);
    writer.setPageSize(
        QPageSize(QSizeF(size) / logicalInch, QPageSize::Inch, QString(), QPageSize::ExactMatch));
    writer.setPageMargins({});
    writer.setResolution(pdfResolution);
    writer.setTitle(chart.state.title);
    QPainter painter;
    if (!painter.begin(&writer)) return false;
    const QSizeF page = QSizeF(size) * (pdfResolution / logicalInch);
    paintChart(painter, QRectF(QPointF(), page), pdfResolution, chart, theme);
    return painter.end() && isWritten(device, before);
}

void paintChart(QPainter& painter, const QRectF& target, double unitsPerInch,
                const TrendChart& chart, const TrendTheme& theme) {
    const double units = unitsPerInch / logicalInch;
    if (!(units > 0) || target.isEmpty()) return;
    painter.save();
    painter.translate(target.topLeft());
    painter.scale(units, units);
    TrendPainter chartPainter;
    chartPainter.draw(painter, chart, chartPainter.layout(chart, target.size() / units), theme);
    painter.restore();
}

} // namespace pellam
