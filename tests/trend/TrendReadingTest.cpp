#include "TrendBench.h"

#include "trend/paint/TrendTheme.h"
#include "trend/reading/ReadoutTable.h"

#include <algorithm>
#include <random>
#include <set>

using namespace Qt::StringLiterals;

namespace pellam {
namespace {

TEST(TrendReading, CrosshairReadsTheLastSampleAtOrBefore) {
    std::mt19937 random(7);
    std::vector<double> times;
    std::vector<std::vector<double>> curves(3);
    for (int i = 0; i < 400; ++i) {
        const double last = times.empty() ? 0 : times.back();
        times.push_back(std::round((last + 0.05 + double(random() % 50) / 100) * 100) / 100);
        for (auto& curve : curves)
            curve.push_back(random() % 4 == 0 ? std::nan("") : double(random() % 2001) / 100 - 10);
    }
    const auto allTimes = times;
    const auto allValues = curves;
    TrendBench bench(std::move(times), std::move(curves));
    const int drawings = bench.scene().drawings();
    for (int i = 0; i < 300; ++i) {
        const QPointF at = bench.at(double(random() % 1000) / 1000, double(random() % 1000) / 1000);
        bench.hover(at);
        if (!bench.layout().plot.contains(at)) continue;
        const double time = bench.layout().timeMap.toValue(at.x());
        double heading = -1;
        std::array<int, 3> found{-1, -1, -1};
        for (std::size_t c = 0; c < 3; ++c)
            for (std::size_t s = 0; s < allTimes.size() && allTimes[s] <= time; ++s)
                if (!std::isnan(allValues[c][s])) found[c] = int(s);
        for (const int sample : found)
            if (sample >= 0) heading = std::max(heading, allTimes[std::size_t(sample)]);
        const auto clock = [](double seconds) {
            const QDateTime moment =
                QDateTime::fromMSecsSinceEpoch(qRound64(seconds * 1000), QTimeZone::utc());
            return moment.toString(u"yyyy-MM-dd HH:mm:ss.zzz"_s).chopped(1);
        };
        QString expected = clock(heading < 0 ? time : heading);
        for (std::size_t c = 0; c < 3; ++c) {
            const auto sample = std::size_t(found[c]);
            const bool any = found[c] >= 0;
            const bool late = any && allTimes[sample] != heading;
            expected += u"\nCurve%1\t%2\tu%1\t%3"_s.arg(c + 1).arg(
                any ? QString::number(allValues[c][sample]) : u"–"_s,
                late ? clock(allTimes[sample]) : QString());
        }
        if (heading < 0) continue;
        EXPECT_EQ(bench.reading(), expected.toStdString()) << time;
    }
    bench.trend.grab();
    EXPECT_EQ(bench.scene().drawings(), drawings) << "the curves are not drawn again";
}

TEST(TrendReading, RowsAreMarkedLikeTheirCurves) {
    const auto marks = [](const QColor& colour, CurveDash dash) {
        ReadoutContent content;
        content.rows = {{colour, {u"Level"_s, u"1"_s}, dash}};
        ReadoutTable table;
        QImage image(200, 100, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        EXPECT_TRUE(table.arrange(content, QFont(), image.rect(), {}));
        table.paint(painter, TrendTheme::light());
        int ink = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                ink += image.pixelColor(x, y) == colour ? 1 : 0;
        return ink;
    };
    const QColor red(200, 0, 0);
    const int solid = marks(red, CurveDash::Solid);
    EXPECT_GT(solid, 20);
    EXPECT_EQ(marks(QColor(0, 0, 160), CurveDash::Solid), solid);
    std::set<int> dashed = {solid};
    for (const CurveDash dash : {CurveDash::Dash, CurveDash::Dot}) {
        const int ink = marks(red, dash);
        EXPECT_TRUE(ink > 0 && ink < solid && dashed.insert(ink).second) << ink;
    }
}

TEST(TrendReading, CursorsTellWhatLiesBetween) {
    TrendBench bench("0 1 5\n 10 2 -\n 20 4 7\n 30 -3.5 8\n 40 0.25 9\n 100 6 1\n");
    bench.hover(bench.at(0.45, 0.5));
    bench.key(Qt::Key_B);
    bench.hover(bench.at(0.12, 0.5));
    bench.key(Qt::Key_A);
    bench.hover(bench.at(0.25, 0.5));
    EXPECT_EQ(bench.reading(), "1970-01-01 00:00:20\n"
                               "A:  1970-01-01 00:00:10\nB:  1970-01-01 00:00:40\nB − A:  30 s\n"
                               "\tValue\tA\tB\tB − A\tMin\tMax\tMean\tCount\n"
                               "Curve1\t4\t2\t0.25\t-1.75\t-3.5\t4\t0.6875\t4\tu1\t\n"
                               "Curve2\t7\t5\t9\t4\t7\t9\t8.0000\t3\tu2\t");
    bench.drag(bench.at(0.4, 0.5), bench.at(0.33, 0.5));
    EXPECT_NE(bench.reading().find("B − A:  20 s"), std::string::npos) << bench.reading();
    EXPECT_EQ(bench.shown(), "time 0..100 | 0..10 | 0..20") << "dragging a cursor zooms nothing";
    bench.trend.setCurveUnit(1, u"mm"_s);
    bench.key(Qt::Key_Delete);
    bench.hover(bench.at(0.25, 0.5));
    EXPECT_EQ(bench.reading(), "1970-01-01 00:00:20\nA:  1970-01-01 00:00:10\n"
                               "\tValue\tA\nCurve1\t4\t2\tu1\t\nCurve2\t7\t5\tmm\t");
    bench.key(Qt::Key_Delete);
    bench.hover({1, 1});
    EXPECT_EQ(bench.reading(), "");
}

TEST(TrendReading, GripsOfCloseCursorsStandSideBySide) {
    TrendBench bench("0 1\n 30 2\n 31 4\n 80 6\n");
    bench.hover(bench.at(0.305, 0.5));
    bench.key(Qt::Key_A);
    bench.hover(bench.at(0.315, 0.5));
    bench.key(Qt::Key_B);
    bench.drag(bench.at(0.3, 0) + QPointF(-9, 4), bench.at(0.1, 0.5));
    EXPECT_NE(bench.reading().find("B − A:  31 s"), std::string::npos) << bench.reading();
}

TEST(TrendReading, ALoneFractionIsShownInFull) {
    std::vector<double> times;
    std::vector<double> values;
    for (int i = 0; i < 900; ++i) {
        times.push_back(i == 50 ? 50.25 : i); // among too many to look at all of them
        values.push_back(i + 0.5);
    }
    TrendBench bench(std::move(times), {values});
    bench.trend.setDecimalPoint(u',');
    bench.hover(bench.at(0.405, 0.5));
    EXPECT_EQ(bench.reading(), "1970-01-01 00:00:40\nCurve1\t40,5\tu1\t");
    bench.hover(bench.at(0.505, 0.5));
    EXPECT_EQ(bench.reading(), "1970-01-01 00:00:50,25\nCurve1\t50,5\tu1\t");
}

TEST(TrendReading, ArrowKeysStepFromSampleToSample) {
    TrendBench bench("0 1 -\n 10 - 2\n 55 3 -\n 90 4 4\n 150 5 -\n");
    const auto line = [&] {
        const std::string text = bench.reading();
        return text.substr(0, text.find('\n'));
    };
    const Table<Qt::Key, const char*, const char*> rows = {
        {Qt::Key_Right, "1970-01-01 00:00:10", "time 0..100"},
        {Qt::Key_Right, "1970-01-01 00:00:55", "time 0..100"},
        {Qt::Key_Right, "1970-01-01 00:01:30", "time 0..100"},
        {Qt::Key_Right, "1970-01-01 00:02:30", "time 100..200"},
        {Qt::Key_Right, "1970-01-01 00:02:30", "time 100..200"},
        {Qt::Key_Left, "1970-01-01 00:01:30", "time 40..140"},
        {Qt::Key_Escape, "", "time 40..140"},
    };
    for (const auto& [key, time, shown] : rows) {
        bench.key(key);
        EXPECT_EQ(line(), time);
        EXPECT_EQ(bench.shown().substr(0, std::strlen(shown)), shown) << time;
    }
}

TEST(TrendReading, ValuesKeepTheirDigits) {
    const Table<double, const char*> rows = {
        {0, "0"},
        {-0.0, "0"},
        {0.1, "0.1"},
        {-12.50, "-12.5"},
        {1e6, "1000000"},
        {123456.789012, "123456.789012"},
        {1e-7, "1e-07"},
        {1.0 / 3, "0.3333333333"},
        {1234567890.25, "1234567890.25"},
        {6.02e23, "6.02e+23"},
    };
    for (const auto& [value, text] : rows)
        EXPECT_EQ(TrendReading::valueText(value).toStdString(), text);
}

TEST(ReadoutTable, NeverHidesThePointAndStaysInside) {
    ReadoutContent content;
    content.lines = {u"2024-03-10 12:00:00"_s};
    for (const int rows : {1, 6, 30, 200}) {
        while (content.rows.size() < std::size_t(rows))
            content.rows.push_back({Qt::red, {u"Temperature"_s, u"123.45"_s, u"mm"_s, {}}});
        for (const QSizeF& size : {QSizeF(1200, 700), QSizeF(500, 300), QSizeF(300, 120)}) {
            ReadoutTable table;
            const QRectF area(QPointF(40, 30), size);
            int shown = 0;
            for (double x = 0; x <= 1; x += 0.1) {
                for (double y = 0; y <= 1; y += 0.1) {
                    const QPointF point(area.left() + x * size.width(),
                                        area.top() + y * size.height());
                    shown += table.arrange(content, QFont(), area, {{}, point});
                    EXPECT_FALSE(table.rect().contains(point)) << rows << ' ' << x << ' ' << y;
                    EXPECT_TRUE(table.rect().isEmpty() || area.contains(table.rect()));
                }
            }
            EXPECT_TRUE(shown == 121 || size.width() < 500) << rows << ' ' << size.width();
        }
    }
}

} // namespace
} // namespace pellam
