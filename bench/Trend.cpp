// What a redraw of the chart costs: 1600 x 900 pixels, everything drawn anew, beside another
// plotting library where there is one.

// The other library's header needs Qt's keywords.
#undef QT_NO_KEYWORDS

#include "ChartData.h"
#include "trend/paint/TrendExport.h"

#include <QApplication>
#include <QBuffer>
#include <benchmark/benchmark.h>

#ifdef PELLAM_HAS_QCUSTOMPLOT
#include <qcustomplot.h>

#include <algorithm>
#endif

namespace {

using namespace pellam;

constexpr QSize size(1600, 900);

// Arguments: curves, points in all, parts per million of the data in view.
void redrawArguments(benchmark::internal::Benchmark* benchmark) {
    for (const int curves : {12, 1})
        for (const int points : {100000, 1000000, 10000000})
            benchmark->Args({curves, points, 1000000});
    for (const int part : {10000, 100})
        benchmark->Args({12, 1000000, part})->Args({12, 10000000, part});
    benchmark->Unit(benchmark::kMillisecond);
}

TrendChart chartOf(const benchmark::State& state) {
    TrendChart chart = bench::waveChart(static_cast<std::size_t>(state.range(0)),
                                        static_cast<std::size_t>(state.range(1)));
    bench::zoomTo(chart, static_cast<double>(state.range(2)) / 1e6);
    return chart;
}

void redraw(benchmark::State& state) {
    const TrendChart chart = chartOf(state);
    TrendPainter painter;
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        const TrendLayout layout = painter.layout(chart, size);
        painter.draw(image, chart, layout, TrendTheme::light());
        benchmark::DoNotOptimize(image.constBits());
    }
}

void hundredMillion(benchmark::State& state) {
    static const TrendChart chart = bench::waveChart(1, 100000000); // seconds of work
    TrendPainter painter;
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
        painter.draw(image, chart, painter.layout(chart, size), TrendTheme::light());
}

void buildPyramids(benchmark::State& state) {
    const TrendChart chart = bench::waveChart(1, 10000000);
    const TrendCurve& curve = chart.curves.front();
    for (auto _ : state) {
        MinMaxPyramid pyramid;
        pyramid.build(curve.values(), curve.size());
        benchmark::DoNotOptimize(pyramid.size());
    }
    state.counters["bytes_per_sample"] =
        static_cast<double>(curve.bytes()) / static_cast<double>(curve.size());
}

void writeVectors(benchmark::State& state) {
    const TrendChart chart = bench::waveChart(12, 10000000);
    qint64 bytes = 0;
    for (auto _ : state) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        if (state.range(0) == 0)
            writeChartSvg(buffer, chart, size, TrendTheme::paper());
        else
            writeChartPdf(buffer, chart, size, TrendTheme::paper());
        bytes = buffer.size();
    }
    state.counters["bytes"] = static_cast<double>(bytes);
}

#ifdef PELLAM_HAS_QCUSTOMPLOT
// As many as the chart shows, on the left and right in turn.
std::vector<QCPAxis*> valueAxes(QCustomPlot& plot, std::size_t count) {
    std::vector<QCPAxis*> axes{plot.yAxis, plot.yAxis2};
    plot.yAxis2->setVisible(count > 1);
    plot.yAxis2->setTickLabels(true);
    while (axes.size() < count)
        axes.push_back(
            plot.axisRect()->addAxis(axes.size() % 2 ? QCPAxis::atRight : QCPAxis::atLeft));
    return axes;
}

void redrawQCustomPlot(benchmark::State& state) {
    const TrendChart chart = chartOf(state);
    QCustomPlot plot;
    // A widget that is not shown is told of no size: without this it draws 640 x 480 pixels.
    plot.resize(size);
    plot.setViewport(QRect(QPoint(), size));
    plot.legend->setVisible(true);
    const auto axes = valueAxes(plot, std::min<std::size_t>(6, chart.curves.size()));
    plot.xAxis->setTicker(QSharedPointer<QCPAxisTickerDateTime>::create());
    for (const TrendCurve& curve : chart.curves) {
        QCPAxis* axis = axes[static_cast<std::size_t>(curve.style().relatedScale - 1)];
        QCPGraph* graph = plot.addGraph(plot.xAxis, axis);
        graph->setName(curve.text());
        graph->setPen(QPen(curve.style().colour));
        QVector<double> times(static_cast<int>(curve.size()));
        std::copy_n(curve.times()->data(), curve.size(), times.begin());
        QVector<double> values(times.size());
        std::copy_n(curve.values(), curve.size(), values.begin());
        graph->setData(times, values, true);
    }
    plot.xAxis->setRange(chart.state.timeMin, chart.state.timeMax);
    for (QCPAxis* axis : axes)
        axis->setRange(-40, 40), axis->setLabel(QStringLiteral("Unit"));
    for (auto _ : state)
        plot.replot(QCustomPlot::rpImmediateRefresh);
}

BENCHMARK(redrawQCustomPlot)->Apply(redrawArguments);
#endif

BENCHMARK(redraw)->Apply(redrawArguments);
BENCHMARK(hundredMillion)->Unit(benchmark::kMillisecond);
BENCHMARK(buildPyramids)->Unit(benchmark::kMillisecond);
BENCHMARK(writeVectors)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
