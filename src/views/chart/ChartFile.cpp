#include "views/chart/ChartFile.h"

#include "base/AtomicFile.h"
#include "trend/control/TrendOperations.h"
#include "trend/paint/TrendExport.h"
#include "views/chart/PaperGuard.h"

#include <QBuffer>
#include <QFileInfo>

namespace pellam {

namespace {

/// The file's content; empty when the chart could not be drawn.
QByteArray chartBytes(const TrendChart& chart, const QString& kind, const QSize& size,
                      double pixelRatio) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    const TrendTheme theme = TrendTheme::paper();
    bool written = false;
    if (kind == u"svg") {
        written = writeChartSvg(buffer, chart, size, theme);
    } else if (kind == u"pdf") {
        written = writeChartPdf(buffer, chart, size, theme);
    } else {
        written = chartImage(chart, size, theme, pixelRatio).save(&buffer, "PNG");
    }
    return written ? bytes : QByteArray();
}

} // namespace

Failure writeChartFile(TrendOperations& trend, const std::string& path, const QSize& size,
                       double pixelRatio) {
    const QString kind = QFileInfo(QString::fromStdString(path)).suffix().toLower();
    if (kind != u"png" && kind != u"svg" && kind != u"pdf")
        return {Failure::Kind::Write, path, -1, "a chart's file ends in .png, .svg or .pdf"};
    QByteArray bytes;
    {
        const PaperGuard paper(trend);
        bytes = chartBytes(trend.chart(), kind, size, pixelRatio);
    }
    if (bytes.isEmpty()) return {Failure::Kind::Write, path, -1, "the chart could not be drawn"};
    AtomicFile file;
    if (Failure failure = file.create(path)) return failure;
    if (Failure failure = file.write({bytes.constData(), static_cast<std::size_t>(bytes.size())}))
        return failure;
    return file.commit();
}

} // namespace pellam
