#include "views/chart/ChartFile.h"

#include "base/AtomicFile.h"
#include "base/FileName.h"
#include "trend/control/TrendOperations.h"
#include "trend/paint/TrendExport.h"
#include "views/chart/PaperGuard.h"

#include <QBuffer>

#include <string_view>

namespace pellam {

namespace {

/// The file's content; empty when the chart could not be drawn.
QByteArray chartBytes(const TrendChart& chart, std::string_view kind, const QSize& size,
                      double pixelRatio) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    const TrendTheme theme = TrendTheme::paper();
    bool written = false;
    if (kind == "svg") {
        written = writeChartSvg(buffer, chart, size, theme);
    } else if (kind == "pdf") {
        written = writeChartPdf(buffer, chart, size, theme);
    } else {
        written = chartImage(chart, size, theme, pixelRatio).save(&buffer, "PNG");
    }
    return written ? bytes : QByteArray();
}

} // namespace

Failure writeChartFile(TrendOperations& trend, const std::string& path, const QSize& size,
                       double pixelRatio, ProgressSink* waiting) {
    const std::string kind = extensionOf(path);
    if (kind != "png" && kind != "svg" && kind != "pdf")
        return {Failure::Kind::Write, path, -1, "a chart's file ends in .png, .svg or .pdf"};
    QByteArray bytes;
    {
        const PaperGuard paper(trend);
        bytes = chartBytes(trend.chart(), kind, size, pixelRatio);
    }
    if (bytes.isEmpty()) return {Failure::Kind::Write, path, -1, "the chart could not be drawn"};
    AtomicFile file;
    if (Failure failure = file.create(path, waiting)) return failure;
    file.append({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    return file.commit();
}

} // namespace pellam
