#include "views/AutoScale.h"
#include "trend/TrendOperations.h"
#include "views/ChartAxisSheet.h"
#include "views/StripLayout.h"

namespace pellam {

namespace {

void addCurve(TrendOperations& trend, int curve, int axis, const std::vector<double>& values) {
    trend.SetCurveRelatedScale(curve, axis);
    trend.SetCurveVisible(curve, 1);
    trend.SetYScEnabled(axis, 1);
    for (std::size_t i = 0; i < values.size(); ++i) {
        trend.SetCurveYValue(curve, values[i]);
        trend.SetCurveXValue(curve, 1000.0 + 100.0 * curve + static_cast<double>(i));
    }
}

/// "range min..max shown min..max" of an axis.
std::string ranges(const TrendOperations& trend, int axis) {
    const auto number = [](double value) { return QString::number(value, 'g', 12).toStdString(); };
    return "range " + number(trend.GetYScRangeMin(axis)) + ".." +
           number(trend.GetYScRangeMax(axis)) + " shown " +
           number(trend.GetYScActualRangeMin(axis)) + ".." +
           number(trend.GetYScActualRangeMax(axis));
}

std::string place(const TrendOperations& trend, int axis) {
    const ScalePosition& at = trend.chart().scale(axis)->position;
    return std::to_string(at.side) + '/' + std::to_string(at.column) + '/' +
           std::to_string(at.position) + ' ' + std::to_string(at.heightPercent) + '%';
}

} // namespace

TEST(AutoScale, RangesFollowTheValues) {
    const struct {
        const char* name;
        std::vector<double> values;
        const char* ranges;
    } rows[] = {
        {"all 5", {5, 5, 5}, "range 5..5 shown 4.5..5.5"},
        {"all 0", {0, 0}, "range 0..0 shown 0..0"},
        {"span 10", {-2, 8, 3}, "range -102..108 shown -2.2..8.8"},
        {"span below 1", {1, 1.5}, "range 0.5..2 shown 0.9..1.65"},
        {"span 1", {1, 2}, "range -9..12 shown 0.9..2.2"},
        {"below zero", {-8, -2}, "range -68..58 shown -8.8..-1.8"},
        {"above the start value",
         {2e6, 3e6},
         "range -19000001.1..23000001 shown 899999.91..3300000"},
    };

    for (const auto& row : rows) {
        TrendOperations trend;
        addCurve(trend, 0, 2, row.values);
        autoScale(trend, 5000);
        EXPECT_EQ(ranges(trend, 2), row.ranges) << row.name;
        EXPECT_EQ(trend.GetYScRangeRes(2), 0.00001);
    }
}

TEST(AutoScale, AnAxisWithoutDataIsWrittenReversed) {
    TrendOperations trend;
    addCurve(trend, 0, 1, {1, 2});
    autoScale(trend, 5000);
    EXPECT_EQ(ranges(trend, 4), "range -18999998.1..18999998.1 shown 899999.91..-899999.91");
}

TEST(AutoScale, TakesVisibleCurvesOfAllAxesForTheTime) {
    TrendOperations trend;
    addCurve(trend, 0, 1, {1, 2});
    addCurve(trend, 1, 2, {3, 5});
    addCurve(trend, 2, 1, {-50, 900});
    trend.SetCurveVisible(2, 0);
    autoScale(trend, 5000);
    EXPECT_EQ(ranges(trend, 1), "range -9..12 shown 0.9..2.2");
    EXPECT_EQ(trend.GetXScActualRangeMin(), 1000);
    EXPECT_EQ(trend.GetXScActualRangeMax(), 1101);
    EXPECT_FALSE(trend.locked());
    autoScale(trend, 900); // the axis never starts after now
    EXPECT_EQ(trend.GetXScActualRangeMin(), 900);
}

TEST(AutoScale, WithoutDataTheTimeAxisIsLeftAlone) {
    TrendOperations trend;
    trend.SetXScActualRangeMin(3);
    trend.SetXScActualRangeMax(7);
    autoScale(trend, 5000);
    EXPECT_EQ(trend.GetXScActualRangeMin(), 3);
    EXPECT_EQ(trend.GetXScActualRangeMax(), 7);
}

TEST(StripLayout, StacksFourScalesToAColumn) {
    TrendOperations trend;
    for (const int axis : {1, 2, 4, 5, 6})
        trend.SetYScEnabled(axis, 1);
    stackScales(trend);
    EXPECT_EQ(place(trend, 1), "0/0/0 20%");
    EXPECT_EQ(place(trend, 2), "0/0/1 20%");
    EXPECT_EQ(place(trend, 4), "0/0/2 20%");
    EXPECT_EQ(place(trend, 5), "0/0/3 20%");
    EXPECT_EQ(place(trend, 6), "0/1/0 20%");
    overlayScales(trend);
    EXPECT_EQ(place(trend, 4), "0/1/0 100%");
    EXPECT_EQ(place(trend, 5), "1/1/0 100%");
}

TEST(StripLayout, ThreeScalesAreAThirdEachAndNoneChangeNothing) {
    TrendOperations trend;
    const std::string before = place(trend, 1);
    stackScales(trend);
    EXPECT_EQ(place(trend, 1), before);
    for (const int axis : {2, 3, 5})
        trend.SetYScEnabled(axis, 1);
    stackScales(trend);
    EXPECT_EQ(place(trend, 5), "0/0/2 33%");
}

TEST(ChartAxis, OkSetsRangesAndLogarithmicAxesStartAtOne) {
    const struct {
        const char* name;
        CChartAxis::Axis axis;
        const char* ranges;
    } rows[] = {
        {"linear", {QStringLiteral("m"), 0, 0, 100}, "range -1000..1100 shown 0..100"},
        {"logarithmic", {QStringLiteral("m"), 1, 0, 100}, "range 1..1100 shown 1..100"},
        {"below zero", {QStringLiteral("m"), 1, -90, -40}, "range 1..460 shown 1..40"},
    };

    for (const auto& row : rows) {
        TrendOperations trend;
        trend.SetYScDataRangeMin(3, -7);
        trend.SetYScDataRangeMax(3, -8);
        applyAxis(trend, 3, row.axis);
        EXPECT_EQ(ranges(trend, 3), row.ranges) << row.name;
        EXPECT_EQ(trend.GetYScLogarithmic(3), row.axis.logarithmic) << row.name;
        EXPECT_EQ(trend.GetYScDataRangeMin(3), row.axis.logarithmic ? 1 : -7) << row.name;
        EXPECT_EQ(trend.GetYScDataRangeMax(3), row.axis.logarithmic ? 8 : -8) << row.name;
        EXPECT_EQ(trend.GetYScText(3), QStringLiteral("m"));
    }
}

class AxisSheet : public testing::Test {
  protected:
    AxisSheet() {
        for (int axis = 1; axis <= 6; ++axis) {
            m_trend.SetYScText(axis, QStringLiteral("title %1").arg(axis));
            m_trend.SetYScActualRangeMin(axis, axis + 0.1);
            m_trend.SetYScActualRangeMax(axis, axis * 100.5);
        }
        m_trend.SetYScActualRangeMin(6, 899999.91);
        m_trend.SetYScActualRangeMax(6, -899999.91);
    }

    static QLineEdit* field(ChartAxisSheet& sheet, const char* name) {
        return sheet.findChild<QLineEdit*>(QString::fromLatin1(name));
    }

    TrendOperations m_trend;
};

TEST_F(AxisSheet, ShowsAndTakesNumbersInTheUsersForm) {
    ChartAxisSheet sheet(m_trend, ',');
    EXPECT_EQ(sheet.windowTitle(), QStringLiteral("Chart Axis"));
    EXPECT_EQ(field(sheet, "Minimum2")->text(), QStringLiteral("2,1"));
    EXPECT_EQ(field(sheet, "Maximum5")->text(), QStringLiteral("502,5"));
    EXPECT_EQ(field(sheet, "Title4")->text(), QStringLiteral("title 4"));
    field(sheet, "Minimum2")->setText(QStringLiteral("-1,5"));
    field(sheet, "Maximum2")->setText(QStringLiteral("8.5"));
    field(sheet, "Minimum3")->setText(QStringLiteral("of no account"));
    sheet.findChild<QCheckBox*>(QStringLiteral("Logarithmic3"))->setChecked(true);
    sheet.accept();
    EXPECT_EQ(sheet.result(), QDialog::Accepted);
    EXPECT_EQ(ranges(m_trend, 2), "range -101.5..108.5 shown -1.5..8.5");
    EXPECT_EQ(m_trend.GetYScLogarithmic(3), 1);
    EXPECT_EQ(m_trend.GetYScActualRangeMin(6), 899999.91);
}

TEST_F(AxisSheet, TellsWhatIsWrongAndChangesNothing) {
    const struct {
        const char* field;
        const char* text;
        const char* error;
    } rows[] = {
        {"Minimum1", "low",
         "Attention: The minimum of axis 1 is not a number. Type a number such "
         "as 12.5."},
        {"Maximum5", "",
         "Attention: The maximum of axis 5 is not a number. Type a number such as "
         "12.5."},
        {"Maximum4", "inf",
         "Attention: The maximum of axis 4 is not a number. Type a number such "
         "as 12.5."},
        {"Maximum3", "-3", "Attention: The maximum of axis 3 must be above its minimum."},
    };

    for (const auto& row : rows) {
        ChartAxisSheet sheet(m_trend, '.');
        field(sheet, "Title2")->setText(QStringLiteral("changed"));
        field(sheet, row.field)->setText(QString::fromLatin1(row.text));
        sheet.accept();
        EXPECT_EQ(sheet.page().error().toStdString(), row.error);
        EXPECT_EQ(sheet.result(), 0) << row.field;
        EXPECT_EQ(m_trend.GetYScText(2), QStringLiteral("title 2"));
    }
}

} // namespace pellam
