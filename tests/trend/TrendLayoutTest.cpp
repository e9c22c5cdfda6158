#include "trend/layout/TrendLayout.h"

#include "trend/curves/TrendChart.h"

#include <algorithm>
#include <cmath>

using namespace pellam;

namespace {

TrendChart chartOf(int curves, int scales) {
    TrendChart chart;
    const auto times = TrendTimes::create({1710050000, 1710060000, 1710070000});
    for (int k = 0; k < curves; ++k) {
        TrendCurve& curve = chart.curve(k);
        curve.setPoints(times, {1.0 * k, 5.0 + k, 2.0});
        curve.setText(QStringLiteral("Channel number %1").arg(k));
        curve.style().relatedScale = 1 + k % scales;
        chart.scale(1 + k % scales)->enabled = true;
        chart.scale(1 + k % scales)->text = QStringLiteral("Unit %1").arg(k % scales);
    }
    chart.state.timeMin = times->first();
    chart.state.timeMax = times->last();
    return chart;
}

TrendLayout layoutOf(const TrendChart& chart, const QSizeF& size) {
    return TrendLayout::compute(chart, size, TimeTicks(QTimeZone("America/New_York")));
}

// "1L0 0-100": axis 1, left, first column from the plot, band in percent of the plot's height.
std::string bands(const TrendLayout& layout) {
    std::string text;
    for (const ScaleBand& band : layout.scales) {
        const auto percent = [&](double y) {
            return std::to_string(
                std::lround((y - layout.plot.top()) / layout.plot.height() * 100));
        };
        text += (text.empty() ? "" : ", ") + std::to_string(band.axis) +
                (band.right ? "R " : "L ") + percent(band.band.top()) + '-' +
                percent(band.band.bottom());
    }
    return text;
}

} // namespace

TEST(TrendLayout, ATimeAxisHasTwoLabelsOrOneAndItsStep) {
    QLocale::setDefault(QLocale::c());
    TrendChart chart = chartOf(1, 1);
    int alone = 0;
    for (double span = 1e-3; span < 4e9; span *= 1.31) {
        chart.state.timeMax = chart.state.timeMin + span;
        for (int width = 120; width < 700; width += 20) {
            const auto labels = layoutOf(chart, QSizeF(width, 300)).timeLabels;
            const auto marks = std::count_if(labels.begin(), labels.end(),
                                             [](const AxisLabel& label) { return !label.context; });
            if (marks > 1) continue;
            ++alone;
            EXPECT_TRUE(labels.back().text.contains(u"marks: ") || width < 200)
                << width << ' ' << span;
            EXPECT_LT(width, 300) << span;
        }
    }
    EXPECT_GT(alone, 0);
}

TEST(TrendLayout, TheFirstDateStandsAtTheStart) {
    QLocale::setDefault(QLocale::c());
    TrendChart chart = chartOf(1, 1);
    const double noon = 1710086400; // 2024-03-10 12:00 EDT
    const Table<double, double, const char*> rows = {
        {noon + 3300, noon + 18000, "10 Mar 2024"},
        {noon + 18000, noon + 90000, "10 Mar 2024, 11 Mar 2024"},
        {noon + 43190, noon + 90000, "11 Mar 2024"}, // a few seconds of the day before
    };
    for (const auto& [from, to, expected] : rows) {
        chart.state.timeMin = from;
        chart.state.timeMax = to;
        const TrendLayout layout = layoutOf(chart, QSizeF(800, 300));
        QStringList dates;
        for (const AxisLabel& label : layout.timeLabels)
            if (label.context) dates += label.text;
        EXPECT_EQ(dates.join(QStringLiteral(", ")).toStdString(), expected);
        const auto first = std::find_if(layout.timeLabels.begin(), layout.timeLabels.end(),
                                        [](const AxisLabel& label) { return label.context; });
        EXPECT_EQ(first->rect.left() == layout.plot.left(), from < noon + 43190);
    }
}

TEST(TrendLayout, ShowsAFewMicrosecondsAsThemselves) {
    TrendChart chart = chartOf(1, 1);
    chart.state.timeMax = chart.state.timeMin + 5e-6;
    const ScaleMap map = layoutOf(chart, QSizeF(800, 300)).timeMap;
    EXPECT_LT(map.max() - map.min(), 1e-4);
    EXPECT_GT(map.toPixel(chart.state.timeMax) - map.toPixel(chart.state.timeMin), 50);
}

TEST(TrendLayout, PutsScalesInBands) {
    // heights: percent; none = as at the start
    const Table<const char*, int, std::vector<int>, const char*> rows = {
        {"one", 1, {}, "1L 0-100"},
        {"three, in turn on either side", 3, {}, "1L 0-100, 3L 0-100, 2R 0-100"},
        {"two stacked", 2, {50, 50}, "1L 0-50, 2L 51-100"},
        {"five stacked",
         5,
         {20, 20, 20, 20, 20},
         "1L 0-20, 2L 21-40, 3L 42-60, 4L 61-80, 5L 81-100"},
        {"six at 16 percent fill the height",
         6,
         {16, 16, 16, 16, 16, 16},
         "1L 0-17, 2L 18-33, 3L 35-50, 4L 51-67, 5L 68-83, 6L 85-100"},
    };
    for (const auto& [name, scales, heights, expected] : rows) {
        TrendChart chart = chartOf(scales, scales);
        for (int a = 0; a < static_cast<int>(heights.size()); ++a)
            chart.scale(a + 1)->position = {0, a / 4, a % 4, heights[static_cast<std::size_t>(a)],
                                            true};
        EXPECT_EQ(bands(layoutOf(chart, QSizeF(1600, 900))), expected) << name;
    }
}

TEST(TrendLayout, LeavesNoTextOverAnotherOrCut) {
    for (const QSizeF size : {QSizeF(1600, 900), QSizeF(800, 600), QSizeF(420, 300)}) {
        for (const int curves : {1, 6, 24, 200}) {
            for (const double font : {0.1, 0.5, 1.0}) {
                TrendChart chart = chartOf(curves, std::min(curves, 6));
                for (int a = 1; curves == 24 && size.width() > 500 && a <= 6; ++a) {
                    chart.scale(a)->position = {0, (a - 1) / 4, (a - 1) % 4, 16, true};
                    chart.scale(a)->actualMin = 0; // a label at either end
                }
                chart.state.fontScaleFactor = font;
                chart.state.title = QStringLiteral("A title");
                chart.state.notes << QStringLiteral("Left out: %1").arg(QString(400, u'x'));
                const TrendLayout layout = layoutOf(chart, size);
                std::vector<QRectF> texts;
                for (const LegendItem& item : layout.legendItems)
                    texts.push_back(item.rect);
                if (!layout.legendLeftOut.empty()) texts.push_back(layout.legendMore);
                EXPECT_FALSE(layout.legendMore.intersects(layout.plot));
                for (const AxisLabel& label : layout.timeLabels)
                    texts.push_back(label.rect);
                for (const ScaleBand& band : layout.scales) {
                    for (const AxisLabel& label : band.labels)
                        texts.push_back(label.rect);
                    if (!band.titleText.isEmpty()) texts.push_back(band.title);
                }
                const QRectF whole(QPointF(), size);
                for (std::size_t i = 0; i < texts.size(); ++i) {
                    EXPECT_TRUE(whole.adjusted(-1, -1, 1, 1).contains(texts[i]) ||
                                size.width() < 500)
                        << size.width() << " curves " << curves << " font " << font;
                    for (std::size_t j = 0; j < i; ++j) {
                        const QRectF common = texts[i] & texts[j];
                        EXPECT_TRUE(common.height() <= 2.5 || common.width() <= 1)
                            << size.width() << " curves " << curves << " font " << font << ": " << i
                            << " and " << j;
                    }
                }
                const auto listed = static_cast<int>(layout.legendItems.size());
                EXPECT_EQ(listed + int(layout.legendLeftOut.size()), curves);
            }
        }
    }
}

TEST(TrendLayout, LeavesRoomForCurvesInANarrowWindow) {
    for (const int width : {150, 275, 400, 800})
        EXPECT_GE(layoutOf(chartOf(6, 6), QSizeF(width, 300)).plot.width(), 0.3 * width) << width;
}

TEST(TrendLayout, AScaleOfHiddenCurvesHasNoNumbers) {
    TrendChart chart = chartOf(4, 2);
    chart.curves[0].style().visible = false;
    EXPECT_FALSE(layoutOf(chart, QSizeF(800, 600)).scale(1)->labels.empty());
    chart.curves[2].style().visible = false;
    const TrendLayout layout = layoutOf(chart, QSizeF(800, 600));
    EXPECT_TRUE(layout.scale(1)->labels.empty());
    EXPECT_FALSE(layout.scale(2)->labels.empty());
}

TEST(TrendLayout, BearsAnySizeAndRange) {
    TrendChart chart = chartOf(6, 6);
    chart.scale(1)->actualMin = NAN;
    chart.scale(2)->actualMin = 999999.9;
    chart.scale(2)->actualMax = -999999.9;
    chart.scale(3)->logarithmic = true;
    chart.state.timeMin = 1e18;
    chart.state.timeMax = -1e18;
    for (const QSizeF size : {QSizeF(0, 0), QSizeF(1, 1), QSizeF(30, 20), QSizeF(100, 4000)}) {
        const TrendLayout layout = layoutOf(chart, size);
        EXPECT_GT(layout.plot.width(), 0) << size.width();
        EXPECT_GT(layout.plot.height(), 0) << size.width();
        for (const ScaleBand& band : layout.scales)
            EXPECT_TRUE(std::isfinite(band.map.toPixel(1))) << band.axis;
    }
}
