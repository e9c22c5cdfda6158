#include "TrendBench.h"

using namespace Qt::StringLiterals;

namespace pellam {
namespace {

std::string line(QAccessibleInterface& part) {
    static const std::map<QAccessible::Role, QString> roles{{QAccessible::Chart, u"chart "_s},
                                                            {QAccessible::Grouping, u"group "_s},
                                                            {QAccessible::CheckBox, u"check "_s},
                                                            {QAccessible::Indicator, u"mark "_s}};
    QString text = roles.at(part.role()) + part.text(QAccessible::Name);
    const QString value = part.text(QAccessible::Value);
    if (!value.isEmpty()) text += u": "_s + QString(value).replace(u'\n', u" / "_s);
    if (part.state().checked) text += u" [x]";
    if (part.state().focused) text += u" [focus]";
    return text.toStdString() + '\n';
}

std::string tree(CTrend& trend) {
    QAccessibleInterface* chart = QAccessible::queryAccessibleInterface(&trend);
    std::string text = line(*chart);
    for (int i = 0; i < chart->childCount(); ++i) {
        QAccessibleInterface* part = chart->child(i);
        EXPECT_EQ(chart->indexOfChild(part), i);
        EXPECT_EQ(part->parent(), chart);
        EXPECT_FALSE(part->rect().isEmpty());
        text += "  " + line(*part);
    }
    return text;
}

TEST(CTrendAccessible, TellsScalesCurvesAndCursors) {
    TrendBench bench("0 1 11\n 25 2.5 12\n 50 3 13\n 75 - 14\n 100 5 15\n");
    bench.trend.SetYScActualRangeMin(2, 1);
    bench.trend.SetYScLogarithmic(2, 1);
    bench.trend.SetCurveVisible(1, 0);
    EXPECT_EQ(tree(bench.trend), "chart Trend chart\n"
                                 "  group Time axis: 1970-01-01 00:00:00 to 1970-01-01 00:01:40\n"
                                 "  group Y axis 1: u1: 0 to 10\n"
                                 "  group Y axis 2: u2: 1 to 20, logarithmic\n"
                                 "  check Curve1: 1 to 5 u1, 4 values [x]\n"
                                 "  check Curve2: 11 to 15 u2, 5 values\n");
    bench.trend.SetCurveVisible(1, 1);
    bench.hover(bench.at(0.3, 0.5));
    bench.key(Qt::Key_B);
    EXPECT_EQ(tree(bench.trend),
              "chart Trend chart: 1970-01-01 00:00:25 / B:  1970-01-01 00:00:25 / \tValue\tB / "
              "Curve1\t2.5\t2.5\tu1\t / Curve2\t12\t12\tu2\t\n"
              "  group Time axis: 1970-01-01 00:00:00 to 1970-01-01 00:01:40\n"
              "  group Y axis 1: u1: 0 to 10\n"
              "  group Y axis 2: u2: 1 to 20, logarithmic\n"
              "  check Curve1: 2.5 u1 [x]\n"
              "  check Curve2: 12 u2 [x]\n"
              "  mark Crosshair: 1970-01-01 00:00:30\n"
              "  mark Cursor B: 1970-01-01 00:00:25\n");
}

TEST(CTrendAccessible, TellsWhichLegendEntryHasTheFocus) {
    TrendBench bench("0 1 11 7\n 50 3 13 8\n");
    bench.trend.show();
    bench.trend.setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&bench.trend));
    const auto focused = [&] {
        std::string names;
        QAccessibleInterface* chart = QAccessible::queryAccessibleInterface(&bench.trend);
        for (int i = 0; i < chart->childCount(); ++i)
            if (chart->child(i)->state().focused)
                names += chart->child(i)->text(QAccessible::Name).toStdString() + ' ';
        return names;
    };
    std::string told = focused();
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Right, Qt::Key_Right, Qt::Key_Left}) {
        bench.key(key);
        told += focused();
    }
    EXPECT_EQ(told, "Curve1 Curve2 Curve3 Curve2 ");
    bench.key(Qt::Key_Escape);
    EXPECT_EQ(focused(), "");
}

TEST(CTrendAccessible, SwitchesCurvesAndOutlivesWhatGoesAway) {
    TrendBench bench("0 1 11\n 50 3 13\n");
    bench.hover(bench.at(0.5, 0.5));
    QAccessibleInterface* chart = QAccessible::queryAccessibleInterface(&bench.trend);
    QAccessibleInterface* curve = chart->child(3);
    curve->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(bench.trend.GetCurveVisible(0), 0);
    QAccessibleInterface* crosshair = chart->child(chart->childCount() - 1);
    EXPECT_TRUE(crosshair->isValid());
    bench.hover({1, 1});
    EXPECT_FALSE(crosshair->isValid());
    EXPECT_TRUE(crosshair->text(QAccessible::Value).isEmpty());
    EXPECT_TRUE(crosshair->rect().isEmpty());
}

} // namespace
} // namespace pellam
