#include "ScratchFolder.h"

#include "RecordingSinks.h"
#include "base/InternationalSettings.h"
#include "trend/control/CTrend.h"
#include "views/chart/AutoScale.h"
#include "views/chart/CTrendView.h"
#include "views/chart/ChartFile.h"

#include <QPrinter>
#include <QSvgRenderer>
#include <cmath>

using namespace Qt::StringLiterals;

namespace pellam {

namespace {

constexpr double kStart = 1'700'000'000;

class ChartPaper : public testing::Test {
  protected:
    ChartPaper() {
        m_trend.SetCurveText(0, u"Level"_s);
        m_trend.SetCurveRelatedScale(0, 1);
        m_trend.SetYScEnabled(1, 1);
        m_trend.SetYScText(1, u"m"_s);
        m_trend.SetCurveColor(0, QColor(255, 0, 0));
        m_trend.SetBackColor(QColor(30, 30, 30));
        for (int i = 0; i < 5000; ++i) {
            m_trend.SetCurveYValue(0, std::sin(i / 300.0));
            m_trend.SetCurveXValue(0, kStart + i);
        }
        autoScale(m_trend, 2 * kStart);
    }

    QString inFolder(const char* name) { return QString::fromStdString(m_folder.path(name)); }

    /// The printed page at 50 dots to the inch, as another program draws the PDF.
    QImage rendered(const QString& pdf) {
        const QString target = inFolder("page");
        QProcess::execute(u"pdftoppm"_s,
                          {u"-r"_s, u"50"_s, u"-png"_s, u"-singlefile"_s, pdf, target});
        return QImage(target + u".png"_s);
    }

    /// The drawing as it stands in a file, a pixel a unit.
    static QImage drawn(const QString& svg) {
        QSvgRenderer renderer(svg);
        QImage image(renderer.defaultSize(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        renderer.render(&painter);
        return image;
    }

    GridData m_grid;
    InternationalSettings m_international;
    test::RecordedMessages m_messages;
    SilentProgress m_progress;
    CTrendView m_view{{.grid = m_grid,
                       .international = m_international,
                       .clearMark = [this] { m_grid.setChanged(false); },
                       .messages = m_messages,
                       .progress = [this]() -> ProgressSink& { return m_progress; }}};
    CTrend& m_trend = m_view.trend();
    ScratchFolder m_folder;
};

int pixels(const QImage& image, const QRect& area, const std::function<bool(QColor)>& wanted) {
    int count = 0;
    const QRect inside = area.intersected(image.rect());
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        for (int x = inside.left(); x <= inside.right(); ++x)
            count += wanted(image.pixelColor(x, y)) ? 1 : 0;
    return count;
}

bool isInk(QColor colour) {
    return colour.lightness() < 128;
}

bool isRed(QColor colour) {
    return colour.red() > 180 && colour.green() < 140 && colour.blue() < 140;
}

bool isWhite(QColor colour) {
    return colour.rgb() == QColor(Qt::white).rgb();
}

/// In how many of the columns of an area any pixel is wanted.
int columnsWith(const QImage& image, const QRect& area, const std::function<bool(QColor)>& wanted) {
    int count = 0;
    for (int x = area.left(); x <= area.right(); ++x)
        count += pixels(image, QRect(x, area.top(), 1, area.height()), wanted) > 0 ? 1 : 0;
    return count;
}

} // namespace

TEST_F(ChartPaper, PrintsTheTitleAboveTheChartOnWhite) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    const QString pdf = inFolder("page.pdf");
    printer.setOutputFileName(pdf);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setPageOrientation(QPageLayout::Landscape);
    m_view.setFileName(u"mast.week 3.dlr"_s);
    m_view.print(printer);
    EXPECT_LT(QFileInfo(pdf).size(), 2'000'000);
    const QImage page = rendered(pdf);
    ASSERT_FALSE(page.isNull());
    EXPECT_GT(page.width(), page.height());
    EXPECT_EQ(page.pixelColor(2, 2), QColor(Qt::white));
    EXPECT_GT(pixels(page, page.rect(), isWhite), page.width() * page.height() * 8 / 10);

    // A title of a quarter of an inch in the middle of the upper edge, nothing beside it.
    const QRect head(0, 0, page.width(), page.height() / 17);
    const QRect middle = head.adjusted(page.width() / 3, 0, -page.width() / 3, 0);
    EXPECT_GT(pixels(page, middle, isInk), 60);
    EXPECT_EQ(pixels(page, head, isInk), pixels(page, middle, isInk));
    // The curve across most of the page.
    EXPECT_GT(columnsWith(page, page.rect(), isRed), page.width() * 7 / 10);
    // And the screen's settings are back.
    EXPECT_EQ(m_trend.chart().state.backColor, QColor(30, 30, 30));
    EXPECT_EQ(m_trend.chart().state.curveButtons, 2);
    EXPECT_FALSE(m_trend.locked());
}

TEST_F(ChartPaper, APreviewIsThePrintedPageInSmall) {
    const auto page = [this](double unitsPerInch) {
        QImage image((QSizeF(10, 7) * unitsPerInch).toSize(), QImage::Format_RGB32);
        image.fill(Qt::gray);
        QPainter painter(&image);
        m_view.OnPrint(painter, image.rect(), unitsPerInch);
        painter.end();
        return image.scaled(500, 350, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    const QImage small = page(50);
    const QImage large = page(300);
    const auto grey = [](QColor colour) { return colour.rgb() == QColor(Qt::gray).rgb(); };
    EXPECT_EQ(pixels(small, small.rect(), grey), 0);
    for (const QRect& part :
         {QRect(0, 0, 500, 60), QRect(0, 60, 60, 290), QRect(60, 60, 440, 250)}) {
        const int ink = pixels(large, part, [](QColor c) { return c.lightness() < 200; });
        const int here = pixels(small, part, [](QColor c) { return c.lightness() < 200; });
        EXPECT_GT(here, ink / 3) << part.top() << ' ' << part.left();
        EXPECT_LT(here, ink * 3 + 50) << part.top() << ' ' << part.left();
    }
}

TEST_F(ChartPaper, FilesOfEveryKindShowTheCurveOnWhite) {
    for (const char* const name : {"chart.png", "chart.svg", "chart.pdf", "CHART.PDF"}) {
        const std::string path = m_folder.path(name);
        const Failure failure = writeChartFile(m_trend, path, QSize(640, 400));
        ASSERT_FALSE(failure) << failure.text();
        EXPECT_LT(QFileInfo(inFolder(name)).size(), 2'000'000) << name;
        const bool pdf = QString::fromLatin1(name).endsWith(u".pdf", Qt::CaseInsensitive);
        const QImage image = pdf                                       ? rendered(inFolder(name))
                             : std::string_view(name).ends_with("svg") ? drawn(inFolder(name))
                                                                       : QImage(inFolder(name));
        ASSERT_FALSE(image.isNull()) << name;
        // Readers of SVG and PDF have a resolution of their own.
        if (std::string_view(name).ends_with("png")) {
            EXPECT_EQ(image.size(), QSize(640, 400));
        }
        EXPECT_NEAR(image.width() * 400.0 / 640, image.height(), 2) << name;
        EXPECT_EQ(image.pixelColor(1, 1), QColor(Qt::white)) << name;
        EXPECT_GT(columnsWith(image, image.rect(), isRed), image.width() * 7 / 10) << name;
    }
    const Failure failure = writeChartFile(m_trend, m_folder.path("no/such/chart.png"), {640, 400});
    EXPECT_TRUE(failure);
}

} // namespace pellam
