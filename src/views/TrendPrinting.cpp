#include "views/TrendPrinting.h"

#include "trend/TrendExport.h"
#include "trend/TrendOperations.h"
#include "views/PaperLayout.h"

#include <QFileInfo>
#include <QFontMetricsF>
#include <QPaintEngine>
#include <QPainter>
#include <QPrinter>

#include <algorithm>

namespace pellam {

namespace {

constexpr double kUnitsPerInch = 600; // of the measures below
constexpr double kMargin = 50;
constexpr double kChartTop = 150;
constexpr double kTitleHeight = 150;

} // namespace

TrendPrinting::TrendPrinting(TrendOperations& trend, const QString& fileName)
    : m_trend(trend),
      m_fileName(fileName) {}

void TrendPrinting::paintPage(QPainter& painter, const QRectF& area, double unitsPerInch) const {
    const double unit = unitsPerInch / kUnitsPerInch;
    const PaperLayout paper(m_trend);
    painter.save();
    painter.fillRect(area, Qt::white);
    const double titleEnd = PrintTitlePage(painter, area, unit);
    const double top = std::max(kChartTop * unit, titleEnd);
    drawChart(painter, area.adjusted(kMargin * unit, top, 0, 0), unitsPerInch);
    painter.restore();
}

void TrendPrinting::drawChart(QPainter& painter, const QRectF& target, double unitsPerInch) const {
    const TrendTheme theme = TrendTheme::paper().with(m_trend.chart().state);
    if (painter.paintEngine()->type() != QPaintEngine::Raster)
        return paintChart(painter, target, unitsPerInch, m_trend.chart(), theme);
    // Pixels are filled far quicker column by column than as lines.
    const double scale = unitsPerInch / 96;
    QImage image = chartImage(m_trend.chart(), (target.size() / scale).toSize(), theme, scale);
    image.setDevicePixelRatio(1);
    painter.drawImage(target.topLeft().toPoint(), image);
}

double TrendPrinting::PrintTitlePage(QPainter& painter, const QRectF& area, double unit) const {
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
    return (kMargin + kTitleHeight) * unit;
}

bool TrendPrinting::print(QPrinter& printer) const {
    QPainter painter;
    if (!painter.begin(&printer)) return false;
    const QRectF area(QPointF(), printer.pageLayout().paintRectPixels(printer.resolution()).size());
    paintPage(painter, area, printer.resolution());
    return painter.end();
}

} // namespace pellam
