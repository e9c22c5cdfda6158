#pragma once

#include "trend/paint/TrendPainter.h"

QT_BEGIN_NAMESPACE
class QIODevice;
QT_END_NAMESPACE

namespace pellam {

/// A chart as an image of size x scale pixels.
QImage chartImage(const TrendChart& chart, const QSize& size, const TrendTheme& theme,
                  double scale = 1);
/// A chart as SVG text. False when the device can't be written.
bool writeChartSvg(QIODevice& device, const TrendChart& chart, const QSize& size,
                   const TrendTheme& theme);
/// A chart as a PDF page of the size, 96 pixels to the inch. False when the device can't be
/// written.
bool writeChartPdf(QIODevice& device, const TrendChart& chart, const QSize& size,
                   const TrendTheme& theme);
/// Draws a chart into a rectangle of a printer's or any other painter's device units;
/// `unitsPerInch` is the device's resolution.
void paintChart(QPainter& painter, const QRectF& target, double unitsPerInch,
                const TrendChart& chart, const TrendTheme& theme);

} // namespace pellam
