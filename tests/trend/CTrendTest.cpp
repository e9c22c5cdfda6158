#include "TrendBench.h"

using namespace Qt::StringLiterals;

namespace pellam {
namespace {

constexpr char kRows[] = "0 1 11\n 25 2 12\n 50 3 13\n 75 - 14\n 100 5 15\n";

std::string settings(const CTrend& trend) {
    const TrendState& state = trend.chart().state;
    QStringList words;
    words += u"buttons %1 docking %2 lasso %3 font %4"_s.arg(state.curveButtons)
                 .arg(state.dockingScales)
                 .arg(state.lassoZoom)
                 .arg(state.fontScaleFactor);
    words += state.fontName + u' ' + state.backColor.name() + u' ' + state.trendBackColor.name();
    for (int axis = 1; axis <= 2; ++axis)
        words += u"%1 %2..%3"_s.arg(trend.GetYScText(axis))
                     .arg(trend.GetYScActualRangeMin(axis))
                     .arg(trend.GetYScActualRangeMax(axis));
    for (int curve = 0; curve < 2; ++curve)
        words +=
            u"%1 %2"_s.arg(trend.GetCurveRelatedScale(curve)).arg(trend.GetCurveVisible(curve));
    return words.join(u" | ").toStdString();
}

TEST(CTrend, PointsMustBeLaterThanTheLast) {
    CTrend trend;
    trend.SetCurveMaxDataSets(3, 4);
    EXPECT_LT(trend.GetCurveXValue(3), -1e300);
    std::string times;
    for (const double x : {5.0, 7.0, 7.0, 6.0, 8.5, 9.0, 10.0}) {
        trend.SetCurveYValue(3, x * 10);
        trend.SetCurveXValue(3, x);
        times += QString::number(trend.GetCurveXValue(3)).toStdString() + ' ';
    }
    EXPECT_EQ(times, "5 7 7 7 8.5 9 10 ");
    const auto range = trend.GetDataRange(3);
    ASSERT_TRUE(range);
    EXPECT_EQ(range->xFrom, 7) << "the oldest point made room";
    EXPECT_EQ(range->yTo, 100);
    trend.DeleteData(3);
    EXPECT_FALSE(trend.GetDataRange(3));
    EXPECT_FALSE(trend.setCurvePoints(3, TrendTimes::create({1, 2}), {1}));
    EXPECT_EQ(TrendTimes::create({1, 2, 2}), nullptr);
    EXPECT_EQ(TrendTimes::create({1, NAN}), nullptr);
    EXPECT_FALSE(TrendCurve().append(NAN, 4));
    EXPECT_FALSE(trend.GetDataRange(3));
}

TEST(CTrend, NumbersThatThereAreNotAreIgnored) {
    CTrend trend;
    for (const int axis : {-1, 0, 7, 1000000}) {
        trend.SetYScText(axis, u"x"_s);
        trend.SetYScActualRangeMax(axis, 5);
        trend.YScSetPosition(axis, {});
        EXPECT_EQ(trend.GetYScActualRangeMax(axis), 100) << axis;
    }
    for (const int curve : {-1, trendCurvePool}) {
        trend.SetCurveYValue(curve, 1);
        trend.SetCurveXValue(curve, 1);
        trend.SetCurveRelatedScale(curve, 1);
        EXPECT_EQ(trend.GetCurveRelatedScale(curve), 0) << curve;
        EXPECT_FALSE(trend.setCurvePoints(curve, TrendTimes::create({1}), {1}));
    }
    trend.SetFontScaleFactor(7);
    EXPECT_EQ(trend.GetFontScaleFactor(), 1.0);
    trend.SetFontScaleFactor(-1);
    EXPECT_EQ(trend.GetFontScaleFactor(), 0.1);
    trend.SetFontScaleFactor(std::nan(""));
    EXPECT_EQ(trend.GetFontScaleFactor(), 0.1);
}

TEST(CTrend, SavedSettingsComeBackInTurn) {
    TrendBench bench(kRows);
    CTrend& trend = bench.trend;
    const std::string first = settings(trend);
    trend.SaveTrend();
    trend.SetCurveButtons(0);
    trend.SetDockingScales(0);
    trend.SetLassoZoom(0);
    trend.SetBackColor(Qt::white);
    trend.SetTrendBackColor(QColor(1, 2, 3));
    trend.SetYScText(2, u"other"_s);
    const std::string second = settings(trend);
    trend.SaveTrend();
    trend.SetFontScaleFactor(0.9);
    trend.GetFont().SetName(u"Courier"_s);
    trend.SetCurveVisible(1, 0);
    trend.SetCurveRelatedScale(0, 2);
    trend.SetYScActualRangeMin(1, -7);
    EXPECT_NE(settings(trend), second);
    trend.RestoreTrend();
    EXPECT_EQ(settings(trend), second);
    trend.RestoreTrend();
    EXPECT_EQ(settings(trend), first);
    trend.RestoreTrend();
    EXPECT_EQ(settings(trend), first);
}

TEST(CTrend, LockedUpdatesDrawNothing) {
    TrendBench bench(kRows);
    const QImage before = bench.trend.grab().toImage();
    const int drawings = bench.scene().drawings();
    bench.trend.SetLockUpdate(1);
    bench.trend.SetLockUpdate(1);
    bench.trend.SetYScActualRangeMax(1, 500);
    bench.wheel(bench.at(0.5, 0.5), 1);
    bench.trend.SetLockUpdate(0);
    EXPECT_EQ(bench.trend.grab().toImage(), before);
    EXPECT_EQ(bench.scene().drawings(), drawings);
    bench.trend.SetLockUpdate(0);
    EXPECT_NE(bench.trend.grab().toImage(), before);
    EXPECT_EQ(bench.scene().drawings(), drawings + 1);
    EXPECT_EQ(bench.shown(), "time 0..100 | 0..500 | 0..20") << "nor does a locked chart zoom";
}

TEST(CTrend, MarksLieOverTheCurves) {
    const Table<const char*, std::function<void(TrendBench&)>> rows = {
        {"crosshair", [](TrendBench& b) { b.hover(b.at(0.3, 0.5)); }},
        {"cursor", [](TrendBench& b) { b.key(Qt::Key_A); }},
        {"current row", [](TrendBench& b) { b.trend.setCurrentTime(30); }},
        {"lasso",
         [](TrendBench& b) {
             b.press(b.at(0.2, 0.2));
             b.dragTo(b.at(0.4, 0.4));
         }},
        {"focus", [](TrendBench& b) { b.key(Qt::Key_Tab); }},
    };
    for (const auto& [name, act] : rows) {
        SCOPED_TRACE(name);
        TrendBench bench(kRows);
        const QImage before = bench.trend.grab().toImage();
        const int drawings = bench.scene().drawings();
        act(bench);
        const QImage after = bench.trend.grab().toImage();
        EXPECT_EQ(bench.scene().drawings(), drawings);
        QRegion changed;
        for (int y = 0; y < after.height(); ++y)
            for (int x = 0; x < after.width(); ++x)
                if (after.pixel(x, y) != before.pixel(x, y)) changed += QRect(x, y, 1, 1);
        EXPECT_FALSE(changed.isEmpty());
        EXPECT_TRUE((changed - bench.scene().overlay().region()).isEmpty())
            << "paints beyond the region that it asks for";
    }
}

TEST(CTrend, PopUpMenuOffersWhatCanBeDone) {
    TrendBench bench(kRows);
    bench.wheel(bench.at(0.5, 0.5), 1);
    QContextMenuEvent event(QContextMenuEvent::Mouse, bench.axis(1).toPoint(),
                            bench.trend.mapToGlobal(bench.axis(1).toPoint()));
    QCoreApplication::sendEvent(&bench.trend, &event);
    auto* menu = bench.trend.findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    QStringList lines;
    for (const QAction* action : menu->actions()) {
        if (action->isSeparator()) continue;
        lines += action->text().remove(u'&').section(u'\t', 0, 0) +
                 (action->isChecked() ? u" x"_s : QString()) +
                 (action->isEnabled() ? QString() : u" -"_s);
    }
    EXPECT_EQ(lines.join(u'\n').toStdString(),
              "Selection Zoom x\nZoom Back\nZoom Forward -\nShow Everything\nAuto Scale\n"
              "Fit Values to View\nFit Y Axis 1 to View\nCrosshair x\nMove Crosshair\n"
              "Set Cursor A\nSet Cursor B\nRemove Cursors -\nStrip Chart\n"
              "Break Lines at Gaps x\nY Axis 1...\nEdit Axis...\nCopy\nExport Image...");
    menu->close();
}

} // namespace
} // namespace pellam
