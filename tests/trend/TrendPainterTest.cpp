#include "trend/paint/TrendExport.h"

#include <cmath>
#include <random>

using namespace pellam;

namespace {

// Noise with a spike and a stretch without values.
TrendChart noiseChart(int curves, std::size_t rows) {
    TrendChart chart;
    std::vector<double> seconds(rows);
    for (std::size_t i = 0; i < rows; ++i)
        seconds[i] = 1.7e9 + static_cast<double>(i);
    const auto times = TrendTimes::create(std::move(seconds));
    std::mt19937 generator(9);
    std::uniform_real_distribution<double> part(0, 1);
    for (int k = 0; k < curves; ++k) {
        std::vector<double> values(rows);
        for (double& value : values)
            value = 2 * k + part(generator);
        values[rows / 3] = 40;
        for (std::size_t i = rows / 2; i < rows / 2 + rows / 8; ++i)
            values[i] = NAN;
        TrendCurve& curve = chart.curve(k);
        curve.setPoints(times, std::move(values));
        curve.setText(QStringLiteral("Channel %1").arg(k));
        curve.style().relatedScale = 1;
    }
    chart.scale(1)->enabled = true;
    chart.scale(1)->actualMin = -10;
    chart.scale(1)->actualMax = 50;
    chart.state.timeMin = times->first();
    chart.state.timeMax = times->last();
    return chart;
}

// First and last row of a column inside the plot in which an image differs from one without curves.
std::pair<int, int> ink(const QImage& drawn, const QImage& empty, int x, const QRect& plot) {
    std::pair<int, int> rows{-1, -1};
    for (int y = plot.top(); y <= plot.bottom(); ++y) {
        if (drawn.pixel(x, y) == empty.pixel(x, y)) continue;
        if (rows.first < 0) rows.first = y;
        rows.second = y;
    }
    return rows;
}

// Extremes from a time up to another, sample by sample.
ValueRange plainRange(const TrendCurve& curve, double from, double to) {
    ValueRange range;
    for (std::size_t i = curve.times()->lowerBound(from); i < curve.times()->lowerBound(to); ++i) {
        range.min = std::fmin(range.min, curve.values()[i]);
        range.max = std::fmax(range.max, curve.values()[i]);
    }
    return range;
}

QImage painted(const TrendChart& chart, const TrendLayout& layout, double ratio) {
    QImage image((layout.size * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    TrendPainter().draw(image, chart, layout, TrendTheme::light());
    return image;
}

} // namespace

TEST(TrendPainter, InksEachColumnFromItsLeastToItsLargestValue) {
    TrendChart chart = noiseChart(1, 100000);
    const TrendCurve& curve = chart.curves.front();
    for (const double ratio : {1.0, 2.0}) {
        const TrendLayout layout = TrendPainter().layout(chart, QSizeF(700, 500));
        const QImage drawn = painted(chart, layout, ratio);
        chart.curves.front().style().visible = false;
        const QImage empty = painted(chart, layout, ratio);
        chart.curves.front().style().visible = true;
        const QRect plot(layout.plot.topLeft().toPoint() * ratio,
                         layout.plot.size().toSize() * ratio);
        const ScaleMap map = layout.scale(1)->map.over(plot.bottom() + 1, plot.top());
        const double width = (chart.state.timeMax - chart.state.timeMin) / plot.width();
        for (int column = 1; column + 1 < plot.width(); ++column) {
            const double from = chart.state.timeMin + width * column;
            const ValueRange own = plainRange(curve, from, from + width);
            // The pen reaches into the next column, and that column's line to the one after it.
            const ValueRange joined =
                plainRange(curve, from - (1 + ratio) * width, from + (2 + ratio) * width);
            const auto rows = ink(drawn, empty, plot.left() + column, plot);
            ASSERT_EQ(rows.first >= 0, !own.empty()) << column;
            if (own.empty()) continue;
            EXPECT_LE(rows.first, std::floor(map.toPixel(own.max))) << column;
            EXPECT_GE(rows.second, std::floor(map.toPixel(own.min))) << column;
            EXPECT_GE(rows.first, std::floor(map.toPixel(joined.max) - ratio)) << column;
            EXPECT_LE(rows.second, std::floor(map.toPixel(joined.min) + ratio)) << column;
        }
    }
}

TEST(TrendPainter, DrawsLinesAsWideAsTheyAreSteep) {
    for (const double ratio : {1.0, 2.0, 3.0}) {
        TrendChart chart = noiseChart(1, 2);
        const auto draw = [&](double first, double last) {
            chart.curves[0].setPoints(TrendTimes::create({200, 300, 400, 500}),
                                      {first, first, last, last});
            chart.state.timeMin = 0;
            chart.state.timeMax = 60000;
            const TrendLayout layout = TrendPainter().layout(chart, QSizeF(700, 500));
            return std::pair(painted(chart, layout, ratio), layout.plot);
        };
        chart.curves[0].style().colour = QColor(0, 96, 192); // on white: how red tells the ink
        const auto [image, plot] = draw(-9, 49); // a line of about one pixel from bottom to top
        const int y = static_cast<int>((plot.top() + 0.58 * plot.height()) * ratio); // no grid line
        double wide = 0;
        for (int x = static_cast<int>((plot.left() + 1) * ratio); x < (plot.left() + 8) * ratio;
             ++x)
            wide += (255 - qRed(image.pixel(x, y))) / 255.0;
        EXPECT_NEAR(wide, 1.5 * ratio, 0.5) << ratio;
    }
}

TEST(TrendPainter, KeepsCurvesInTheirStrips) {
    TrendChart chart = noiseChart(1, 5000);
    chart.scale(1)->position = {0, 0, 1, 50, true};
    chart.scale(2)->enabled = true;
    chart.scale(2)->position = {0, 0, 0, 50, true};
    chart.scale(1)->actualMin = 0.4; // values lie beyond both ends
    chart.scale(1)->actualMax = 0.6;
    const TrendLayout layout = TrendPainter().layout(chart, QSizeF(700, 500));
    const QImage drawn = painted(chart, layout, 1);
    chart.curves.front().style().visible = false;
    const QImage empty = painted(chart, layout, 1);
    const QRect plot = layout.plot.toRect();
    int inked = 0;
    for (int x = plot.left(); x <= plot.right(); ++x) {
        const auto rows = ink(drawn, empty, x, plot);
        if (rows.first < 0) continue;
        ++inked;
        EXPECT_GE(rows.first, layout.scale(1)->band.top()) << x;
    }
    EXPECT_GT(inked, 400);
}

TEST(TrendPainter, WritesFilesWhoseSizeDoesNotFollowThePoints) {
    for (const std::size_t rows : {20000u, 800000u}) {
        const TrendChart chart = noiseChart(12, rows);
        for (const auto write : {writeChartSvg, writeChartPdf}) {
            QBuffer buffer;
            buffer.open(QIODevice::WriteOnly);
            ASSERT_TRUE(write(buffer, chart, QSize(1600, 900), TrendTheme::paper()));
            EXPECT_LT(buffer.size(), 2000000) << rows;
            EXPECT_GT(buffer.size(), 20000) << rows;
        }
    }
    QBuffer unwritable;
    unwritable.open(QIODevice::ReadOnly);
    EXPECT_FALSE(writeChartSvg(unwritable, noiseChart(1, 100), QSize(80, 60), TrendTheme::paper()));
}

TEST(TrendPainter, DrawsLinesWhereItFillsColumns) {
    const TrendChart chart = noiseChart(1, 40000);
    const TrendLayout layout = TrendPainter().layout(chart, QSizeF(700, 500));
    const QImage filled = painted(chart, layout, 1);
    QImage lines(filled.size(), filled.format());
    QPainter painter(&lines);
    TrendPainter().draw(painter, chart, layout, TrendTheme::light(), 1);
    painter.end();
    const QRect plot = layout.plot.toRect().adjusted(1, 1, -1, -1);
    const QRgb colour = chart.curves.front().style().colour.rgb();
    int different = 0;
    int coloured = 0;
    for (int y = plot.top(); y <= plot.bottom(); ++y) {
        for (int x = plot.left(); x <= plot.right(); ++x) {
            const bool one = filled.pixel(x, y) == colour;
            coloured += one;
            // What one fills, the other at least touches.
            different += one && lines.pixel(x, y) == TrendTheme::light().plot.rgb();
        }
    }
    EXPECT_GT(coloured, 3000);
    EXPECT_LT(different, coloured / 50);
}

TEST(CurveStyle, DrawsEveryColourReadablyOnDark) {
    for (int k = 0; k < 21; ++k) {
        const QColor colour = defaultCurveStyle(k).colour;
        EXPECT_GE(colourContrast(colourOnScreen(colour, TrendTheme::dark().plot),
                                 TrendTheme::dark().plot),
                  3)
            << k;
        EXPECT_EQ(colourOnScreen(colour, Qt::white), colour) << k;
        for (int other = 0; other < k; ++other)
            EXPECT_NE(colour, defaultCurveStyle(other).colour) << k << ' ' << other;
    }
    EXPECT_EQ(defaultCurveStyle(7).colour, QColor(255, 128, 0));
    EXPECT_NE(defaultCurveStyle(21).dash, CurveDash::Solid);
}
