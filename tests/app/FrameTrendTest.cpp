#include "FrameFixture.h"

#include "app/print/PreviewPane.h"
#include "trend/control/CTrend.h"
#include "ui/dialogs/NoticeBar.h"
#include "ui/dialogs/TabPages.h"
#include "views/chart/CTrendView.h"
#include "views/chart/ChartAxisSheet.h"
#include "views/grid/MyCug.h"

using namespace Qt::StringLiterals;

namespace pellam {

namespace {

class FrameTrendTest : public FrameFixture {
  protected:
    /// Starts with the two channels of csv(), both charted, and the chart in front.
    CTrendView& startOnChart() {
        start(csv());
        EXPECT_TRUE(QTest::qWaitFor([this] { return frame().data().rowCount() == 2; }, 5000));
        give(Command::SelectAllChannels);
        frame().data().column(2).setCharted(true);
        frame().data().column(2).setAxis(2);
        give(Command::TrendChart);
        return view();
    }

    CTrendView& view() { return *frame().findChild<CTrendView*>(); }

    bool enabled(Command command) {
        frame().OnIdleUpdateCmdUI();
        return frame().actions().action(command)->isEnabled();
    }

    bool checked(Command command) {
        frame().OnIdleUpdateCmdUI();
        return frame().actions().action(command)->isChecked();
    }
};

} // namespace

TEST_F(FrameTrendTest, TheChartIsBuiltWhenItsPageComesToTheFront) {
    CTrendView& chart = startOnChart();
    EXPECT_TRUE(chart.hasChart());
    EXPECT_EQ(chart.trend().GetCurveText(1), u"Flow "_s);
    EXPECT_FALSE(frame().data().changed());
    EXPECT_EQ(chart.fileName(), u"store.csv"_s);

    give(Command::DataGrid);
    frame().Grid()->toggleCharted(1);
    give(Command::TrendChart);
    EXPECT_FALSE(frame().data().changed());
    EXPECT_EQ(chart.trend().GetCurveText(0), u"Flow "_s);
}

TEST_F(FrameTrendTest, ChannelsSelectedWhileTheChartIsInFrontShowAtOnce) {
    CTrendView& chart = startOnChart();
    give(Command::DeselectAllChannels);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !chart.hasChart(); }, 2000));
    give(Command::SelectAllChannels);
    EXPECT_TRUE(QTest::qWaitFor([&] { return chart.hasChart(); }, 2000));
}

TEST_F(FrameTrendTest, MissingValuesAreDrawnAndLeftOutAgainByNoteAndCommand) {
    start(write("gaps.csv", "Time,Level (m)\r\n2024/03/01 10:00:00,4.25\r\n"
                            "2024/03/01 10:15:00,-9999\r\n2024/03/01 10:30:00,4.5\r\n"));
    ASSERT_TRUE(QTest::qWaitFor([this] { return frame().data().rowCount() == 3; }, 5000));
    give(Command::TrendChart);
    auto* note = view().findChild<NoticeBar*>();
    EXPECT_TRUE(note->isVisible());
    EXPECT_EQ(note->text(), u"-9999 left out once in 1 channel"_s);
    const auto least = [this] { return view().trend().GetDataRange(0)->yFrom; };
    EXPECT_EQ(least(), 4.25);
    const double later = view().trend().GetXScActualRangeMin() + 60;
    view().trend().showTimes(later, view().trend().GetXScActualRangeMax());

    QTest::keyClick(note->button(), Qt::Key_Space);
    ASSERT_TRUE(QTest::qWaitFor([&] { return least() == -9999; }, 5000));
    EXPECT_TRUE(checked(Command::MissingAsNumbers));
    EXPECT_EQ(note->text(), u"-9999 drawn as a value once in 1 channel"_s);
    EXPECT_EQ(view().trend().GetXScActualRangeMin(), later) << "what is shown stays";

    give(Command::DataGrid);
    frame().Grid()->selectAll();
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return status().find("Min: -9999") != std::string::npos; }, 5000))
        << status();
    give(Command::MissingAsNumbers);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return status().find("1 missing value left out") != std::string::npos; }, 5000))
        << status();
    give(Command::TrendChart);
    EXPECT_EQ(least(), 4.25);
}

TEST_F(FrameTrendTest, CommandsDoTheirWork) {
    CTrendView& chart = startOnChart();
    EXPECT_TRUE(enabled(Command::StripChart));
    give(Command::StripChart);
    EXPECT_TRUE(checked(Command::StripChart));
    EXPECT_EQ(chart.trend().chart().scale(2)->position.heightPercent, 50);

    EXPECT_TRUE(checked(Command::SelectionZoom));
    const qint64 icon = frame().actions().action(Command::SelectionZoom)->icon().cacheKey();
    give(Command::SelectionZoom);
    EXPECT_FALSE(checked(Command::SelectionZoom));
    EXPECT_EQ(chart.trend().GetLassoZoom(), 0);
    EXPECT_NE(frame().actions().action(Command::SelectionZoom)->icon().cacheKey(), icon);

    for (int i = 0; i < 5; ++i)
        give(Command::IncreaseFont);
    EXPECT_DOUBLE_EQ(chart.trend().GetFontScaleFactor(), 1.0);
    EXPECT_FALSE(enabled(Command::IncreaseFont));

    QGuiApplication::clipboard()->clear();
    give(Command::Copy);
    EXPECT_TRUE(QGuiApplication::clipboard()->mimeData()->hasImage());
}

TEST_F(FrameTrendTest, TheAxisDialogIsTakenOverWithOkAndForgottenWithCancel) {
    CTrendView& chart = startOnChart();
    const auto type = [](ChartAxisSheet& sheet, const char* text) {
        sheet.findChild<QLineEdit*>(u"Maximum1"_s)->setText(QString::fromLatin1(text));
    };
    DialogScript script;
    script.then<ChartAxisSheet>([&](ChartAxisSheet& sheet) {
        type(sheet, "123.5");
        QTest::keyClick(&sheet, Qt::Key_Return);
    });
    give(Command::EditAxis);
    EXPECT_EQ(chart.trend().GetYScActualRangeMax(1), 123.5);
    script.then<ChartAxisSheet>([&](ChartAxisSheet& sheet) {
        type(sheet, "999");
        QTest::keyClick(&sheet, Qt::Key_Escape);
    });
    chart.trend().zoomBack();
    give(Command::EditAxis);
    EXPECT_NE(chart.trend().GetYScActualRangeMax(1), 999);
    EXPECT_TRUE(chart.trend().canZoomForward());
    EXPECT_FALSE(chart.trend().canZoomBack());
}

TEST_F(FrameTrendTest, ThePreviewIsOneSheetInLandscapeAndBringsTheChartBack) {
    startOnChart();
    give(Command::PrintPreview);
    ASSERT_NE(frame().preview(), nullptr);
    EXPECT_EQ(frame().preview()->pageCount(), 1);
    const QSizeF paper = frame().preview()->findChild<PreviewSheet*>()->paperSize();
    EXPECT_GT(paper.width(), paper.height());
    EXPECT_FALSE(enabled(Command::AutoScale));
    frame().OnSetPreviewMode(false);
    EXPECT_EQ(frame().pages().activePage(), CMainFrame::kTrendPage);
    EXPECT_FALSE(view().trend().locked());
    // The grid's own preview keeps the printer's orientation.
    give(Command::DataGrid);
    give(Command::PrintPreview);
    const QSizeF gridPaper = frame().preview()->findChild<PreviewSheet*>()->paperSize();
    EXPECT_LT(gridPaper.width(), gridPaper.height());
}

TEST_F(FrameTrendTest, RowsAreLinkedBothWays) {
    CTrendView& chart = startOnChart();
    Q_EMIT chart.rowChosen(1);
    EXPECT_EQ(frame().Grid()->currentIndex().row(), 2);
}

} // namespace pellam
