#include "TrendBench.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace pellam {
namespace {

constexpr char kRows[] = "0 1 11\n 25 2 12\n 50 3 13\n 75 4 14\n 100 5 15\n";

using Act = std::function<void(TrendBench&)>;

struct Row {
    const char* name;
    Act act;
    const char* shown;
};

void compare(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        TrendBench bench(kRows);
        row.act(bench);
        EXPECT_EQ(bench.shown(), row.shown);
    }
}

TEST(CTrendInteraction, WheelZoomsAroundThePointer) {
    compare({
        {"nearer", [](auto& b) { b.wheel(b.at(0.5, 0.5), 1); }, "time 10..90 | 0..10 | 0..20"},
        {"farther", [](auto& b) { b.wheel(b.at(0.2, 0.5), -1); }, "time -5..120 | 0..10 | 0..20"},
        {"around a quarter", [](auto& b) { b.wheel(b.at(0.25, 0.9), 1); },
         "time 5..85 | 0..10 | 0..20"},
        {"values", [](auto& b) { b.wheel(b.at(0.5, 0.5), 1, Qt::ShiftModifier); },
         "time 0..100 | 1..9 | 2..18"},
        {"time axis", [](auto& b) { b.wheel(b.axis(0), 1, Qt::ShiftModifier); },
         "time 10..90 | 0..10 | 0..20"},
        {"one scale", [](auto& b) { b.wheel(b.axis(2), 1); }, "time 0..100 | 0..10 | 2..18"},
        {"legend", [](auto& b) { b.wheel(b.layout().legendItems[0].rect.center(), 1); },
         "time 0..100 | 0..10 | 0..20"},
        {"a band of a strip chart",
         [](auto& b) {
             b.trend.YScSetPosition(1, {0, 0, 0, 50, true});
             b.trend.YScSetPosition(2, {0, 0, 1, 50, true});
             const QRectF band = b.layout().scale(2)->band;
             b.wheel({b.at(0.5, 0).x(), band.center().y()}, 1, Qt::ShiftModifier);
         },
         "time 0..100 | 0..10 | 2..18"},
    });
}

TEST(CTrendInteraction, DragsMoveWhatTheyGrab) {
    const auto tenth = [](TrendBench& b, Qt::MouseButton button) {
        b.drag(b.at(0.5, 0.5), b.at(0.4, 0.6), button);
    };
    compare({
        {"middle button", [&](auto& b) { tenth(b, Qt::MiddleButton); },
         "time 10..110 | 1..11 | 2..22"},
        {"left without selection zoom",
         [&](auto& b) {
             b.trend.SetLassoZoom(0);
             tenth(b, Qt::LeftButton);
         },
         "time 10..110 | 1..11 | 2..22"},
        {"left with Space held",
         [&](auto& b) {
             QTest::keyPress(&b.trend, Qt::Key_Space);
             tenth(b, Qt::LeftButton);
             QTest::keyRelease(&b.trend, Qt::Key_Space);
         },
         "time 10..110 | 1..11 | 2..22"},
        {"time axis",
         [](auto& b) {
             const QPointF from = b.axis(0);
             b.drag(from, from + b.at(0.1, 0) - b.at(0, 0.3));
         },
         "time -10..90 | 0..10 | 0..20"},
        {"scale",
         [](auto& b) {
             const QPointF from = b.axis(1);
             b.drag(from, from + b.at(0.2, 0.1) - b.at(0, 0));
         },
         "time 0..100 | 1..11 | 0..20"},
        {"right button", [&](auto& b) { tenth(b, Qt::RightButton); },
         "time 0..100 | 0..10 | 0..20"},
    });
}

TEST(CTrendInteraction, LassoZoomsToWhatItCovers) {
    compare({
        {"box", [](auto& b) { b.drag(b.at(0.25, 0.25), b.at(0.75, 0.5)); },
         "time 25..75 | 5..7.5 | 10..15"},
        {"from right below", [](auto& b) { b.drag(b.at(0.75, 0.5), b.at(0.25, 0.25)); },
         "time 25..75 | 5..7.5 | 10..15"},
        {"flat: time only",
         [](auto& b) { b.drag(b.at(0.25, 0.5), b.at(0.75, 0.5) + QPointF(0, 5)); },
         "time 25..75 | 0..10 | 0..20"},
        {"upright: values only",
         [](auto& b) { b.drag(b.at(0.5, 0.25), b.at(0.5, 0.5) + QPointF(5, 0)); },
         "time 0..100 | 5..7.5 | 10..15"},
        {"beyond the border", [](auto& b) { b.drag(b.at(0.5, 0.5), b.at(1.5, 2)); },
         "time 50..100 | 0..5 | 0..10"},
        {"too small", [](auto& b) { b.drag(b.at(0.5, 0.5), b.at(0.5, 0.5) + QPointF(6, 6)); },
         "time 0..100 | 0..10 | 0..20"},
        {"given up",
         [](auto& b) {
             b.press(b.at(0.25, 0.25));
             b.dragTo(b.at(0.75, 0.5));
             b.key(Qt::Key_Escape);
             b.release(b.at(0.75, 0.5));
         },
         "time 0..100 | 0..10 | 0..20"},
    });
}

TEST(CTrendInteraction, LassoTellsItsSpans) {
    TrendBench bench(kRows);
    bench.press(bench.at(0.25, 0.25));
    bench.dragTo(bench.at(0.75, 0.5));
    EXPECT_EQ(bench.reading(), "50.0 s\n"
                               "1970-01-01 00:00:25.0 – 1970-01-01 00:01:15.0\n"
                               "\tFrom\tTo\tSpan\n"
                               "u1\t5.00\t7.50\t2.50\n"
                               "u2\t10.00\t15.00\t5.00");
    bench.dragTo(bench.at(0.75, 0.25));
    EXPECT_EQ(bench.reading(), "50.0 s\n1970-01-01 00:00:25.0 – 1970-01-01 00:01:15.0");
    bench.key(Qt::Key_Escape);
    EXPECT_EQ(bench.reading().find("Span"), std::string::npos);
}

TEST(CTrendInteraction, KeysMoveAndZoom) {
    const Table<const char*, const char*> rows = {
        {"PgDown", "time 90..190 | 0..10 | 0..20"},
        {"PgUp", "time -90..10 | 0..10 | 0..20"},
        {"Ctrl+Right", "time 10..110 | 0..10 | 0..20"},
        {"Shift+Left", "time -10..90 | 0..10 | 0..20"},
        {"Up", "time 0..100 | 1..11 | 2..22"},
        {"Down", "time 0..100 | -1..9 | -2..18"},
        {"+", "time 10..90 | 0..10 | 0..20"},
        {"Shift+=", "time 10..90 | 0..10 | 0..20"},
        {"Ctrl+-", "time 0..100 | 0..10 | 0..20"}, // the owner's
        {"Alt+-", "time 0..100 | -1.25..11.25 | -2.5..22.5"},
        {"+, Backspace", "time 0..100 | 0..10 | 0..20"},
        {"+, Backspace, Shift+Backspace", "time 10..90 | 0..10 | 0..20"},
        {"+, Up, Backspace", "time 10..90 | 0..10 | 0..20"},
        {"+, Up, Home", "time 0..100 | 0.9..5.5 | 9.9..16.5"},
        {"+, Home, Backspace", "time 10..90 | 0..10 | 0..20"},
        {"Backspace", "time 0..100 | 0..10 | 0..20"},
    };
    for (const auto& [keys, shown] : rows) {
        TrendBench bench(kRows);
        QTest::keySequence(&bench.trend, QKeySequence(QString::fromLatin1(keys)));
        EXPECT_EQ(bench.shown(), shown) << keys;
    }
}

TEST(CTrendInteraction, AxesAreFittedToTheValuesBetweenTheShownTimes) {
    constexpr char kWaves[] = "0 -100 7\n 40 1 7\n 50 3 -\n 60 2 7\n 100 900 7\n";

    struct Case {
        const char* name;
        const char* keys;
        double from, to;
        bool logarithmic;
        const char* shown;
    };

    const Case cases[] = {
        {"all axes", "Shift+F5", 30, 70, false, "time 30..70 | 0.9..3.1 | 6.65..7.35"},
        {"one axis", "Alt+2", 30, 70, false, "time 30..70 | 0..10 | 6.65..7.35"},
        {"the other", "Alt+1", 30, 70, false, "time 30..70 | 0.9..3.1 | 0..20"},
        {"none that is there", "Alt+3", 30, 70, false, "time 30..70 | 0..10 | 0..20"},
        {"no sample in view", "Alt+1", 52, 58, false, "time 52..58 | 1.95..3.05 | 0..20"},
        {"logarithmic", "Alt+1", 0, 50, true, "time 0..50 | 0.95..3.17 | 0..20"},
        {"back", "Shift+F5, Backspace", 30, 70, false, "time 30..70 | 0..10 | 0..20"},
    };
    for (const Case& row : cases) {
        TrendBench bench(kWaves);
        bench.trend.SetXScActualRangeMin(row.from);
        bench.trend.SetXScActualRangeMax(row.to);
        bench.trend.SetYScLogarithmic(1, row.logarithmic ? 1 : 0);
        QTest::keySequence(&bench.trend, QKeySequence(QString::fromLatin1(row.keys)));
        EXPECT_EQ(bench.shown(), row.shown) << row.name;
    }
}

TEST(CTrendInteraction, KeysMoveTheCrosshair) {
    constexpr char kWaves[] = "0 1 -\n 2 2 -\n 4 1 -\n 6 1.01 -\n 8 1 5\n 10 5 -\n 12 9 -\n"
                              " 40 2 5\n 42 1 -\n 70 9 -\n 72 8.9 -\n 74 9 -\n 76 3 -\n";
    const Table<const char*, double, double> rows = {
        {"X", 0, 2},
        {"X, X", 0, 4}, // but not the ripple at 6
        {"X, X, X", 0, 12},
        {"X", 41, 42},
        {"X", 70, 70}, // no turn comes any more
        {"Shift+X", 76, 74},
        {"Shift+X", 41, 12},
        {"N", 0, 12},
        {"N, N", 0, 42},
        {"N, N, N", 0, 42},
        {"Shift+N", 76, 42},
        {"Shift+N, Shift+N", 76, 12},
    };
    for (const auto& [keys, from, to] : rows) {
        TrendBench bench(kWaves);
        bench.trend.commands().setCrosshair(from);
        QTest::keySequence(&bench.trend, QKeySequence(QString::fromLatin1(keys)));
        EXPECT_EQ(bench.scene().marks.crosshair.value_or(-1), to) << keys << ' ' << from;
    }
    TrendBench bench(kWaves);
    bench.trend.commands().setCrosshair(50);
    const ScaleMap map = bench.layout().timeMap;
    const Table<const char*, double> steps = {
        {"Alt+Right", 1}, {"Alt+Shift+Right", 11}, {"Alt+Left", 10}, {"Alt+Shift+Left", 0}};
    for (const auto& [key, pixels] : steps) {
        QTest::keySequence(&bench.trend, QKeySequence(QString::fromLatin1(key)));
        EXPECT_NEAR(map.toPixel(*bench.scene().marks.crosshair), map.toPixel(50) + pixels, 1e-6)
            << key;
    }
    bench.key(Qt::Key_F10, Qt::ShiftModifier);
    auto* menu = bench.trend.findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    delete menu;
}

TEST(CTrendInteraction, TurnsOfTheWheelAreOneStepUntilAPause) {
    TrendBench bench(kRows);
    bench.wheel(bench.at(0.5, 0.5), 1);
    bench.wheel(bench.at(0.5, 0.5), 1);
    bench.wheel(bench.at(0.5, 0.5), 1, Qt::ShiftModifier);
    EXPECT_EQ(bench.shown(), "time 18..82 | 1..9 | 2..18");
    bench.key(Qt::Key_Backspace);
    EXPECT_EQ(bench.shown(), "time 18..82 | 0..10 | 0..20");
    bench.key(Qt::Key_Backspace);
    EXPECT_EQ(bench.shown(), "time 0..100 | 0..10 | 0..20");
    bench.wheel(bench.at(0.5, 0.5), 1);
    QElapsedTimer pause;
    pause.start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return pause.hasExpired(TrendCommands::kStepPause + 1); }));
    bench.wheel(bench.at(0.5, 0.5), 1);
    bench.key(Qt::Key_Backspace);
    EXPECT_EQ(bench.shown(), "time 10..90 | 0..10 | 0..20");
}

TEST(CTrendInteraction, ZoomLastsUntilNewData) {
    TrendBench bench(kRows);
    bench.wheel(bench.at(0.5, 0.5), 1);
    bench.trend.SetYScText(1, u"changed"_s);
    bench.trend.SetCurveVisible(1, 0);
    bench.trend.SetYScActualRangeMax(1, 50);
    EXPECT_EQ(bench.shown(), "time 10..90 | 0..50 | 0..20");
    EXPECT_TRUE(bench.trend.canZoomBack());
    bench.doubleClick(bench.at(0.5, 0.5));
    EXPECT_EQ(bench.shown(), "time 0..100 | 0.9..5.5 | 0..20") << "hidden curves count for nothing";
    bench.trend.DeleteData(0);
    EXPECT_FALSE(bench.trend.canZoomBack());
}

TEST(CTrendInteraction, ZoomingStopsAtWhatDoublesTellApart) {
    TrendBench bench(kRows);
    bench.trend.SetXScActualRangeMin(1.7e9);
    bench.trend.SetXScActualRangeMax(1.7e9 + 100);
    double span = 100;
    for (int i = 0; i < 200; ++i) {
        bench.wheel(bench.at(0.5, 0.5), 1);
        const double now = bench.trend.GetXScActualRangeMax() - bench.trend.GetXScActualRangeMin();
        ASSERT_LE(now, span) << "never back out";
        span = now;
    }
    EXPECT_GT(span, 2e-5);
    EXPECT_LT(span, 5e-5);
    for (int i = 0; i < 200; ++i)
        bench.wheel(bench.at(0.5, 0.5), -1);
    EXPECT_LT(bench.trend.GetXScActualRangeMax(), 3e11);
    for (int i = 0; i < 4000; ++i)
        bench.wheel(bench.axis(1), -1);
    EXPECT_TRUE(std::isfinite(bench.trend.GetYScActualRangeMax(1)));
    EXPECT_FALSE(bench.trend.grab().isNull());
}

TEST(CTrendInteraction, PanningStopsAtTheEndsOfTheCalendar) {
    constexpr double kYear1 = -62135596800;
    constexpr double kYear10000 = 253402300800;
    const Table<double, Qt::Key> rows = {{kYear1 + 250, Qt::Key_PageUp},
                                         {kYear10000 - 350, Qt::Key_PageDown}};
    for (const auto& [begin, key] : rows) {
        TrendBench bench(kRows);
        bench.trend.SetXScActualRangeMin(begin);
        bench.trend.SetXScActualRangeMax(begin + 100);
        for (int i = 0; i < 9; ++i)
            bench.key(key);
        const double min = bench.trend.GetXScActualRangeMin();
        const double max = bench.trend.GetXScActualRangeMax();
        EXPECT_NE(min, begin);
        EXPECT_TRUE(min >= kYear1 && max <= kYear10000) << min;
        EXPECT_NEAR(max - min, 100, 0.01) << "the span stays";
    }
}

TEST(CTrendInteraction, ClicksChooseTimesDragsDoNot) {
    TrendBench bench(kRows);
    QStringList chosen;
    QObject::connect(&bench.trend, &CTrend::timeClicked, &bench.trend,
                     [&](double time) { chosen += QString::number(time); });
    bench.click(bench.at(0.3, 0.5));
    bench.trend.SetLassoZoom(0);
    bench.click(bench.at(0.6, 0.1));
    bench.drag(bench.at(0.5, 0.5), bench.at(0.6, 0.5));
    bench.key(Qt::Key_Home);
    bench.click(bench.axis(0));
    bench.hover(bench.at(0.8, 0.5));
    bench.key(Qt::Key_Return);
    EXPECT_EQ(chosen.join(u' ').toStdString(), "25 50 75")
        << "the times of the values that the crosshair reads";
}

TEST(CTrendInteraction, LegendSwitchesCurvesByMouseAndKeys) {
    TrendBench bench(kRows);
    QStringList switched;
    QObject::connect(
        &bench.trend, &CTrend::curveVisibilityChanged, &bench.trend,
        [&](int curve, bool on) { switched += QString::number(curve) + (on ? u'+' : u'-'); });
    bench.click(bench.layout().legendItems[1].rect.center());
    bench.click(bench.layout().legendItems[1].rect.center());
    bench.press(bench.layout().legendItems[0].rect.center());
    bench.release(bench.at(0.5, 0.5));
    EXPECT_EQ(switched.join(u' ').toStdString(), "1- 1+") << "a press dragged off does nothing";
    switched.clear();
    bench.key(Qt::Key_Tab);
    bench.key(Qt::Key_Space);
    bench.key(Qt::Key_Right);
    bench.key(Qt::Key_Right);
    bench.key(Qt::Key_Return);
    bench.key(Qt::Key_Left);
    bench.key(Qt::Key_Space);
    bench.key(Qt::Key_Escape);
    bench.key(Qt::Key_Space);
    EXPECT_EQ(switched.join(u' ').toStdString(), "0- 1- 0+");
    switched.clear();
    bench.key(Qt::Key_Tab);
    bench.key(Qt::Key_Backtab, Qt::ShiftModifier);
    bench.key(Qt::Key_Space);
    EXPECT_EQ(switched.join(u' ').toStdString(), "") << "back out of the legend";
    bench.trend.SetCurveButtons(0);
    bench.key(Qt::Key_Tab);
    bench.key(Qt::Key_Space);
    EXPECT_EQ(switched.join(u' ').toStdString(), "") << "a plain legend has no buttons";
}

TEST(CTrendInteraction, CurvesBeyondTheLegendAreInItsMenu) {
    TrendBench bench("0 1 2 3 4 5 6\n 100 2 3 4 5 6 7\n");
    bench.trend.resize(240, 160);
    const std::vector<int> beyond = bench.layout().legendLeftOut;
    ASSERT_FALSE(beyond.empty());
    const auto choose = [&](std::size_t item) {
        auto* menu = bench.trend.findChild<QMenu*>();
        ASSERT_NE(menu, nullptr);
        EXPECT_EQ(menu->actions().size(), qsizetype(beyond.size()));
        menu->actions()[qsizetype(item)]->trigger();
        delete menu;
    };
    bench.click(bench.layout().legendMore.center());
    choose(0);
    bench.key(Qt::Key_Tab);
    for (int i = 0; i < 9; ++i)
        bench.key(Qt::Key_Right);
    bench.key(Qt::Key_Space);
    choose(beyond.size() - 1);
    for (int curve = 0; curve < 6; ++curve)
        EXPECT_EQ(bench.trend.GetCurveVisible(curve),
                  curve != beyond.front() && curve != beyond.back());
}

TEST(CTrendInteraction, ScaleDialogChangesItsScale) {
    // shown: "" = the dialog refuses
    const Table<const char*, const char*, const char*, bool, const char*> rows = {
        {"plain", "-5", "12.5", false, "time 0..100 | -5..12.5 | 0..20"},
        {"decimal comma", "0,5", "2", false, "time 0..100 | 0.5..2 | 0..20"},
        {"logarithmic", "1", "1000", true, "time 0..100 | 1..1000 | 0..20"},
        {"reversed", "5", "1", false, ""},
        {"no number", "x", "1", false, ""},
        {"logarithm of zero", "0", "1", true, ""},
    };
    for (const auto& [name, min, max, logarithmic, shown] : rows) {
        SCOPED_TRACE(name);
        TrendBench bench(kRows);
        bool accepted = false;
        QTimer::singleShot(0, &bench.trend, [&] {
            auto* dialog = bench.trend.findChild<QDialog*>();
            const auto edits = dialog->findChildren<QLineEdit*>();
            for (QLineEdit* edit : edits) {
                if (edit->text() == u"0")
                    edit->setText(QString::fromLatin1(min));
                else if (edit->text() == u"10")
                    edit->setText(QString::fromLatin1(max));
            }
            dialog->findChild<QLineEdit*>()->setText(u"another title"_s);
            dialog->findChild<QCheckBox*>()->setChecked(logarithmic);
            auto* ok = dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
            accepted = ok->isEnabled();
            accepted ? ok->click() : dialog->reject();
        });
        bench.doubleClick(bench.axis(1));
        EXPECT_EQ(accepted, shown[0] != 0);
        EXPECT_EQ(bench.shown(), accepted ? shown : "time 0..100 | 0..10 | 0..20");
        EXPECT_EQ(bench.trend.GetYScLogarithmic(1), accepted && logarithmic ? 1 : 0);
        EXPECT_EQ(bench.trend.canZoomBack(), accepted);
        bench.trend.zoomBack();
        EXPECT_EQ(bench.shown(), "time 0..100 | 0..10 | 0..20");
        EXPECT_EQ(bench.trend.GetYScLogarithmic(1), 0);
        EXPECT_EQ(bench.trend.GetYScText(1), u"u1"_s);
    }
}

TEST(CTrendInteraction, KeysOfMenuCommands) {
    TrendBench bench(kRows);
    CTrend& trend = bench.trend;
    QStringList asked;
    const auto note = [&](auto signal, const char* name) {
        QObject::connect(&trend, signal, [&asked, name] { asked += QLatin1String(name); });
    };
    note(&CTrend::copyRequested, "copy");
    note(&CTrend::exportImageRequested, "export");
    note(&CTrend::editAxisRequested, "axes");
    note(&CTrend::autoScaleRequested, "auto");
    note(&CTrend::stripChartRequested, "strip");
    note(&CTrend::selectionZoomChanged, "zoom");
    note(&CTrend::breakGapsChanged, "gaps");
    bench.key(Qt::Key_C, Qt::ControlModifier);
    bench.key(Qt::Key_I);
    bench.key(Qt::Key_X, Qt::ControlModifier | Qt::ShiftModifier);
    for (const int key : {Qt::Key_F5, Qt::Key_F6, Qt::Key_F7, Qt::Key_G})
        bench.key(static_cast<Qt::Key>(key));
    trend.SetYScEnabled(2, 0);
    bench.key(Qt::Key_F7); // one scale can't be stacked
    EXPECT_EQ(asked.join(u' ').toStdString(), "copy export axes auto zoom strip gaps");
    bench.key(Qt::Key_C);
    EXPECT_FALSE(trend.commands().crosshairFollows());
    bench.key(Qt::Key_A);
    bench.key(Qt::Key_B);
    EXPECT_TRUE(bench.scene().marks.measuring());
    bench.key(Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_FALSE(bench.scene().marks.measuring());
}

} // namespace
} // namespace pellam
