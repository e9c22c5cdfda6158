#include "views/chart/AutoScale.h"
#include "trend/control/TrendOperations.h"
#include "views/chart/ChartAxisSheet.h"
#include "views/chart/StripLayout.h"

using namespace Qt::StringLiterals;

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

/// Side, column, position and height of the enabled scales.
std::string places(const TrendOperations& trend) {
    std::string text;
    for (int axis = 1; axis <= 6; ++axis) {
        const ScalePosition& at = trend.chart().scale(axis)->position;
        if (trend.GetYScEnabled(axis) == 0) continue;
        text += std::to_string(axis) + ':' + std::to_string(at.side) + '/' +
                std::to_string(at.column) + '/' + std::to_string(at.position) + ' ' +
                std::to_string(at.heightPercent) + "% ";
    }
    return text;
}

} // namespace

TEST(AutoScale, RangesFollowTheValues) {
    const Table<const char*, std::vector<double>, const char*> rows = {
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
    for (const auto& [name, values, expected] : rows) {
        TrendOperations trend;
        addCurve(trend, 0, 2, values);
        autoScale(trend, 5000);
        EXPECT_EQ(ranges(trend, 2), expected) << name;
        EXPECT_EQ(trend.GetYScRangeRes(2), 0.00001);
        EXPECT_EQ(ranges(trend, 4), "range -18999998.1..18999998.1 shown 899999.91..-899999.91")
            << "an axis without data is written reversed";
    }
}

TEST(AutoScale, ALogarithmicAxisStartsBelowTheSmallestPositiveValue) {
    const Table<const char*, std::vector<double>, const char*> rows = {
        {"above zero", {0.002, 700, 5}, "0.0018..770"},
        {"zero and below beside it", {-5, 0, 0.002, 700}, "0.0018..770"},
        {"nothing above zero", {-8, -2}, "-8.8..-1.8"},
    };
    for (const auto& [name, values, expected] : rows) {
        TrendOperations trend;
        addCurve(trend, 0, 2, values);
        trend.SetYScLogarithmic(2, 1);
        autoScale(trend, 5000);
        EXPECT_EQ(ranges(trend, 2).substr(ranges(trend, 2).find("shown") + 6), expected) << name;
    }
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
    for (const int curve : {0, 1})
        trend.SetCurveVisible(curve, 0);
    autoScale(trend, 5000);
    EXPECT_EQ(trend.GetXScActualRangeMin(), 900) << "left alone without data";
    EXPECT_EQ(trend.GetXScActualRangeMax(), 1101);
}

TEST(StripLayout, StacksFourScalesToAColumn) {
    TrendOperations trend;
    stackScales(trend);
    for (const int axis : {2, 4, 5})
        trend.SetYScEnabled(axis, 1);
    EXPECT_EQ(places(trend), "2:1/0/0 100% 4:1/1/0 100% 5:0/2/0 100% ") << "nothing was stacked";
    stackScales(trend);
    EXPECT_EQ(places(trend), "2:0/0/0 33% 4:0/0/1 33% 5:0/0/2 33% ");
    for (const int axis : {1, 6})
        trend.SetYScEnabled(axis, 1);
    stackScales(trend);
    EXPECT_EQ(places(trend), "1:0/0/0 20% 2:0/0/1 20% 4:0/0/2 20% 5:0/0/3 20% 6:0/1/0 20% ");
    overlayScales(trend);
    for (const int axis : {1, 6})
        trend.SetYScEnabled(axis, 0);
    EXPECT_EQ(places(trend), "2:1/0/0 100% 4:0/1/0 100% 5:1/1/0 100% ");
}

TEST(ChartAxis, OkSetsRangesAndLogarithmicAxesStartAtOne) {
    const Table<const char*, CChartAxis::Axis, const char*> rows = {
        {"linear", {u"m"_s, 0, 0, 100}, "range -1000..1100 shown 0..100"},
        {"logarithmic", {u"m"_s, 1, 0, 100}, "range 1..1100 shown 1..100"},
        {"below zero", {u"m"_s, 1, -90, -40}, "range 1..460 shown 1..40"},
    };
    for (const auto& [name, axis, expected] : rows) {
        TrendOperations trend;
        trend.SetYScDataRangeMin(3, -7);
        trend.SetYScDataRangeMax(3, -8);
        applyAxis(trend, 3, axis);
        EXPECT_EQ(ranges(trend, 3), expected) << name;
        EXPECT_EQ(trend.GetYScLogarithmic(3), axis.logarithmic) << name;
        EXPECT_EQ(trend.GetYScDataRangeMin(3), axis.logarithmic ? 1 : -7) << name;
        EXPECT_EQ(trend.GetYScDataRangeMax(3), axis.logarithmic ? 8 : -8) << name;
        EXPECT_EQ(trend.GetYScText(3), u"m"_s);
    }
}

class AxisSheet : public testing::Test {
  protected:
    AxisSheet() {
        for (int axis = 1; axis <= 6; ++axis) {
            m_trend.SetYScText(axis, u"title %1"_s.arg(axis));
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
    EXPECT_EQ(sheet.windowTitle(), u"Chart Axis"_s);
    EXPECT_EQ(field(sheet, "Minimum2")->text(), u"2,1"_s);
    EXPECT_EQ(field(sheet, "Maximum5")->text(), u"502,5"_s);
    EXPECT_EQ(field(sheet, "Title4")->text(), u"title 4"_s);
    field(sheet, "Minimum2")->setText(u"-1,5"_s);
    field(sheet, "Maximum2")->setText(u"8.5"_s);
    field(sheet, "Minimum3")->setText(u"of no account"_s);
    sheet.findChild<QCheckBox*>(u"Logarithmic3"_s)->setChecked(true);
    sheet.accept();
    EXPECT_EQ(sheet.result(), QDialog::Accepted);
    EXPECT_EQ(ranges(m_trend, 2), "range -101.5..108.5 shown -1.5..8.5");
    EXPECT_EQ(m_trend.GetYScLogarithmic(3), 1);
    EXPECT_EQ(m_trend.GetYScActualRangeMin(6), 899999.91);
}

TEST_F(AxisSheet, LeavesWhatWasNotEditedAndShowsWhatWillBeUsed) {
    m_trend.SetYScActualRangeMin(1, -2.87521008403);
    m_trend.SetYScActualRangeMax(1, 2.87521008403);
    m_trend.SetYScLogarithmic(2, 1);
    m_trend.SetYScActualRangeMin(2, 0.00123456789);
    const std::string second = ranges(m_trend, 2);
    {
        ChartAxisSheet sheet(m_trend, '.');
        EXPECT_EQ(field(sheet, "Maximum1")->text(), u"2.875"_s);
        EXPECT_EQ(field(sheet, "Minimum2")->text(), u"0.001235"_s);
        field(sheet, "Maximum1")->setText(u"5"_s);
        field(sheet, "Title2")->setText(u"renamed"_s);
        sheet.accept();
    }
    EXPECT_EQ(m_trend.GetYScActualRangeMin(1), -2.87521008403) << "with all its digits";
    EXPECT_EQ(m_trend.GetYScActualRangeMax(1), 5);
    EXPECT_EQ(ranges(m_trend, 2), second);
    EXPECT_EQ(m_trend.GetYScText(2), u"renamed"_s);
    ChartAxisSheet sheet(m_trend, '.');
    field(sheet, "Maximum2")->setText(u"50"_s);
    EXPECT_EQ(field(sheet, "Minimum2")->text(), u"1"_s);
    sheet.findChild<QCheckBox*>(u"Logarithmic1"_s)->setChecked(true);
    EXPECT_EQ(field(sheet, "Minimum1")->text(), u"1"_s);
    sheet.findChild<QCheckBox*>(u"Logarithmic1"_s)->setChecked(false);
    EXPECT_EQ(field(sheet, "Minimum1")->text(), u"-2.875"_s);
    sheet.accept();
    EXPECT_EQ(m_trend.GetYScActualRangeMin(2), 1);
}

TEST_F(AxisSheet, TellsWhatIsWrongAndChangesNothing) {
    const Table<const char*, const char*, const char*> rows = {
        {"Minimum1", "low", "minimum of axis 1 is not a number. Type a number such as 12.5."},
        {"Maximum5", "", "maximum of axis 5 is not a number. Type a number such as 12.5."},
        {"Maximum4", "inf", "maximum of axis 4 is not a number. Type a number such as 12.5."},
        {"Maximum3", "-3", "maximum of axis 3 must be above its minimum."},
    };
    for (const auto& [named, text, error] : rows) {
        ChartAxisSheet sheet(m_trend, '.');
        field(sheet, "Title2")->setText(u"changed"_s);
        field(sheet, named)->setText(QString::fromLatin1(text));
        sheet.accept();
        EXPECT_EQ(sheet.page().error().toStdString(), std::string("Attention: The ") + error);
        EXPECT_EQ(sheet.result(), 0) << named;
        EXPECT_EQ(m_trend.GetYScText(2), u"title 2"_s);
    }
}

} // namespace pellam
