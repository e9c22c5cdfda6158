#include "views/chart/ChartClipboard.h"

#include "trend/control/TrendOperations.h"
#include "trend/paint/TrendExport.h"
#include "views/chart/PaperGuard.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <memory>

namespace pellam {

bool copyChart(TrendOperations& trend, bool minimised) {
    constexpr QSize kSize(800, 600);
    const TrendTheme theme = TrendTheme::paper();
    const PaperGuard paper(trend, !minimised);
    const QImage image = chartImage(trend.chart(), kSize, theme);
    if (image.isNull()) return false;
    QByteArray svg;
    QBuffer buffer(&svg);
    buffer.open(QIODevice::WriteOnly);
    auto content = std::make_unique<QMimeData>();
    content->setImageData(image);
    if (writeChartSvg(buffer, trend.chart(), kSize, theme))
        content->setData(QStringLiteral("image/svg+xml"), svg);
    QGuiApplication::clipboard()->setMimeData(content.release());
    return true;
}

} // namespace pellam
