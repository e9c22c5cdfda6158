#include "GridText.h"
#include "ZoneScope.h"

#include "RecordingSinks.h"
#include "base/InternationalSettings.h"
#include "settings/SettingsStore.h"
#include "trend/control/CTrend.h"
#include "trend/control/TrendScene.h"
#include "ui/commands/CommandSet.h"
#include "views/chart/CTrendView.h"
#include "views/chart/ChartAxisSheet.h"
#include "views/chart/ClockMemory.h"

#include <QPrinter>

using namespace Qt::StringLiterals;

namespace pellam {

namespace {

class CTrendViewTest : public testing::Test {
  protected:
    CTrendViewTest() {
        fillGrid(m_grid, "Time|Temp(C)|Wind(m/s)|Rain(mm)\n"
                         "2024/01/01 00:10:00|-2|10|1\n"
                         "2024/01/01 00:20:00|3|30|2\n"
                         "2024/01/01 00:30:00|8|20|3\n");
        for (int i = 1; i <= 3; ++i) {
            m_grid.column(i).setCharted(true);
            m_grid.column(i).setAxis(i);
        }
        m_grid.setChanged(true);
        m_view.resize(900, 600);
    }

    void activate() { m_view.OnActivateView(true, &m_view, &m_other); }

    CTrend& trend() { return m_view.trend(); }

    std::string shown(int axis) {
        return u"%1..%2"_s.arg(trend().GetYScActualRangeMin(axis))
            .arg(trend().GetYScActualRangeMax(axis))
            .toStdString();
    }

    ZoneScope m_zone{"UTC"};
    GridData m_grid;
    InternationalSettings m_international;
    test::RecordedMessages m_messages;
    test::RecordedProgress m_progress;
    QWidget m_other;
    CTrendView m_view{{.grid = m_grid,
                       .international = m_international,
                       .clearMark = [this] { m_grid.setChanged(false); },
                       .messages = m_messages,
                       .progress = [this]() -> ProgressSink& { return m_progress; }}};
};

} // namespace

TEST_F(CTrendViewTest, StartsWithTheControlSetUpAndAMessage) {
    EXPECT_EQ(trend().objectName(), u"Trend1"_s);
    EXPECT_EQ(trend().property("controlId").toInt(), 1001);
    EXPECT_EQ(trend().GetLassoZoom(), 1);
    EXPECT_EQ(trend().GetFontScaleFactor(), 0.5);
    EXPECT_EQ(trend().chart().curves[11].style().colour, QColor(0, 0, 0));
    EXPECT_EQ(trend().chart().state.fontName, u"Verdana"_s);
    EXPECT_FALSE(m_view.hasChart());
    EXPECT_EQ(shown(1), "-100..100");
    m_grid.setRowCount(0);
    activate();
    EXPECT_EQ(m_view.message().toStdString(),
              "No data is loaded. Open a file to see its channels here.");
}

TEST_F(CTrendViewTest, BuildsOnceWhenItComesToTheFrontAndScales) {
    m_view.OnActivateView(false, &m_other, &m_view);
    m_view.OnActivateView(true, &m_view, &m_view);
    EXPECT_TRUE(m_grid.changed());
    EXPECT_EQ(m_progress.log, "");
    activate();
    EXPECT_EQ(m_progress.log,
              "Loading Trend Chart|Loading...|1..3\nLoading Pellam\nLoaded 0 Lines\n"
              "Auto scaling, please wait...\n");
    EXPECT_EQ(m_progress.open, 0);
    EXPECT_FALSE(m_grid.changed());
    EXPECT_TRUE(m_view.hasChart());
    EXPECT_FALSE(trend().locked());
    EXPECT_EQ(shown(1), "-2.2..8.8");
    EXPECT_EQ(shown(2), "9..33");
    EXPECT_EQ(trend().GetXScActualRangeMin(), 1704067800);
    EXPECT_EQ(trend().GetXScActualRangeMax(), 1704069000);

    m_grid.setText(1, 0, "50");
    trend().SetYScActualRangeMax(1, 77);
    activate();
    EXPECT_EQ(shown(1), "-2.2..77") << "axis edits stay while the grid has no mark";
    EXPECT_EQ(trend().GetDataRange(0)->yTo, 8);
    m_grid.setChanged(true);
    activate();
    EXPECT_EQ(trend().GetDataRange(0)->yTo, 50);
}

TEST_F(CTrendViewTest, ACurveThatWasHiddenWhileScalingIsScaledWhenItComesBack) {
    activate();
    trend().SetCurveVisible(0, 0);
    m_view.OnTrendSanity();
    EXPECT_EQ(shown(1), "900000..-900000");
    trend().SetCurveVisible(0, 1);
    EXPECT_EQ(shown(1), "-2.2..8.8");
    trend().SetYScActualRangeMax(1, 77);
    trend().SetCurveVisible(0, 0);
    trend().SetCurveVisible(0, 1);
    EXPECT_EQ(shown(1), "-2.2..77");
}

TEST_F(CTrendViewTest, ThePrintJobHasTheNameOfTheFile) {
    activate();
    m_view.setFileName(u"mast.week 3.dlr"_s);
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    QTimer::singleShot(0, &m_view, [] {
        if (auto* dialog = QApplication::activeModalWidget()) dialog->close();
    });
    m_view.OnFilePrint(printer);
    EXPECT_EQ(printer.docName(), u"mast.week 3.dlr");
}

TEST_F(CTrendViewTest, EverythingComesBackWhateverWasEdited) {
    activate();
    const auto edit = [this](const std::function<void(ChartAxisSheet&)>& type) {
        ChartAxisSheet sheet(trend(), '.');
        type(sheet);
        sheet.accept();
    };
    trend().setGeometry(0, 0, 900, 600);
    QTest::keyClick(&trend(), Qt::Key_Plus, Qt::AltModifier);
    const std::string zoomed = shown(1);
    EXPECT_NE(zoomed, "-2.2..8.8");
    edit([](ChartAxisSheet&) {});
    EXPECT_EQ(shown(1), zoomed);
    trend().zoomAll();
    EXPECT_EQ(shown(1), "-2.2..8.8") << "after OK with nothing edited";
    edit([](ChartAxisSheet& sheet) {
        sheet.findChild<QLineEdit*>(u"Maximum1"_s)->setText(u"2.5"_s);
        sheet.findChild<QCheckBox*>(u"Logarithmic2"_s)->setChecked(true);
    });
    EXPECT_EQ(shown(1), "-2.2..2.5");
    EXPECT_EQ(shown(2), "1..33");
    trend().zoomAll();
    EXPECT_EQ(shown(1), "-2.2..8.8");
    EXPECT_EQ(shown(2), "9..33");
    EXPECT_EQ(trend().GetYScLogarithmic(2), 1);
}

TEST_F(CTrendViewTest, ASingleMomentStandsInAMinute) {
    m_grid.setRowCount(1);
    activate();
    EXPECT_TRUE(m_view.hasChart());
    EXPECT_EQ(trend().GetXScActualRangeMin(), 1704067800 - 30);
    EXPECT_EQ(trend().GetXScActualRangeMax(), 1704067800 + 30);
}

TEST_F(CTrendViewTest, ChannelsTakenOutLeaveNoCurveBehind) {
    activate();
    m_grid.column(1).setCharted(false);
    m_grid.setChanged(true);
    activate();
    EXPECT_EQ(trend().GetCurveText(0), u"Wind"_s);
    EXPECT_EQ(trend().GetCurveText(2), QString());
    EXPECT_FALSE(trend().GetDataRange(2));
    EXPECT_EQ(trend().GetYScEnabled(1), 0);
    for (int i = 2; i <= 3; ++i)
        m_grid.column(i).setCharted(false);
    m_grid.setChanged(true);
    activate();
    EXPECT_FALSE(m_view.hasChart());
    EXPECT_TRUE(m_view.message().startsWith(u"No channel is selected"_s));
}

TEST_F(CTrendViewTest, TellsWhyThereIsNothingToDraw) {
    for (Row row = 0; row < 3; ++row)
        m_grid.setText(0, row, "soon");
    activate();
    EXPECT_TRUE(
        m_view.message().startsWith(u"Attention: The times in the first column can't be read"_s));
    for (Row row = 0; row < 3; ++row)
        m_grid.setText(0, row, "");
    m_grid.setChanged(true);
    activate();
    EXPECT_EQ(m_view.message(),
              u"Attention: The first column holds no times, so there is nothing to draw."_s);
    for (Row row = 0; row < 3; ++row) {
        m_grid.setText(0, row, "2024/01/01 00:0" + std::to_string(row) + ":00");
        for (int i = 1; i <= 3; ++i)
            m_grid.setText(i, row, i == 2 ? "99999.9" : "");
    }
    m_grid.setChanged(true);
    activate();
    EXPECT_EQ(m_view.message().toStdString(),
              "Attention: The selected channels hold no values, so there is nothing to draw.\n"
              "Left out, sentinel values: Wind 3");
}

TEST_F(CTrendViewTest, AChosenClockIsRememberedForFilesWithTheSameHeadings) {
    const ZoneScope zone("America/New_York");
    QTemporaryDir folder;
    SettingsStore settings(folder.filePath(u"p.ini"_s));
    ClockMemory clocks(settings);
    CTrendView view({.grid = m_grid,
                     .international = m_international,
                     .clearMark = [this] { m_grid.setChanged(false); },
                     .messages = m_messages,
                     .progress = [this]() -> ProgressSink& { return m_progress; },
                     .clocks = &clocks});
    const auto rebuilt = [&] {
        m_grid.setChanged(true);
        view.OnActivateView(true, &view, &m_other);
        return view.clock();
    };
    EXPECT_EQ(rebuilt(), ClockChoice::Computer);
    EXPECT_EQ(view.trend().GetXScActualRangeMin(), 1704067800 + 18000);
    view.commands().action(Command::ClockUtc)->trigger();
    EXPECT_EQ(view.findChild<QComboBox*>()->currentText(), u"UTC"_s);
    EXPECT_TRUE(view.commands().action(Command::ClockUtc)->isChecked());
    EXPECT_EQ(view.trend().GetXScActualRangeMin(), 1704067800);
    EXPECT_EQ(view.trend().scene().reading().timeText(1704067800).toStdString(),
              "2024-01-01 00:10:00");
    EXPECT_EQ(rebuilt(), ClockChoice::Utc);
    m_grid.column(2).setLabel("Other(m)");
    EXPECT_EQ(rebuilt(), ClockChoice::Computer);
    EXPECT_EQ(view.trend().scene().reading().timeText(1704067800).toStdString(),
              "2023-12-31 19:10:00");
    for (int i = 0; i < 2 * ClockMemory::kMaximum; ++i) {
        m_grid.column(1).setLabel("T" + std::to_string(i));
        clocks.remember(m_grid, ClockChoice::NoDaylightSaving);
    }
    EXPECT_EQ(settings.GetProfileString("Chart", "Clocks").split(u' ').size(),
              ClockMemory::kMaximum);
    EXPECT_EQ(clocks.recall(m_grid), ClockChoice::NoDaylightSaving);
}

TEST_F(CTrendViewTest, FontSizesStopAtTheirEnds) {
    trend().SetFontScaleFactor(0.95);
    m_view.OnViewIncreasefontsize();
    EXPECT_DOUBLE_EQ(trend().GetFontScaleFactor(), 1.0);
    EXPECT_FALSE(m_view.canIncreaseFont());
    trend().SetFontScaleFactor(0.15);
    m_view.OnViewDecreasefontsize();
    EXPECT_DOUBLE_EQ(trend().GetFontScaleFactor(), 0.1);
    EXPECT_FALSE(m_view.canDecreaseFont());
    m_view.OnViewIncreasefontsize();
    EXPECT_DOUBLE_EQ(trend().GetFontScaleFactor(), 0.2);
}

TEST_F(CTrendViewTest, StripsComeAndGoAndLastThroughARebuild) {
    EXPECT_FALSE(m_view.canStack());
    activate();
    EXPECT_TRUE(m_view.canStack());
    trend().SetYScActualRangeMax(1, 77);
    m_view.OnViewStripchart();
    EXPECT_EQ(trend().chart().scale(3)->position.position, 2);
    EXPECT_EQ(trend().chart().scale(3)->position.heightPercent, 33);
    EXPECT_EQ(shown(1), "-2.2..8.8");
    m_grid.column(1).setCharted(false);
    m_grid.setChanged(true);
    activate();
    EXPECT_EQ(trend().chart().scale(3)->position.heightPercent, 50);
    m_view.toggleStripChart();
    EXPECT_EQ(trend().chart().scale(3)->position.heightPercent, 100);
}

TEST_F(CTrendViewTest, RowsAndMomentsAreLinked) {
    activate();
    QSignalSpy chosen(&m_view, &CTrendView::rowChosen);
    Q_EMIT trend().timeClicked(1704068390); // ten seconds before the second row
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen.first().first().toLongLong(), 1);
}

} // namespace pellam
