#include "views/print/GridPrinter.h"
#include "GridText.h"
#include "RecordingSinks.h"
#include "views/text/HeadingText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace pellam {
namespace {

const QSizeF kA4(595, 842);

TEST(GridPageLayout, PutsEveryCellOnExactlyOnePage) {
    GridData grid;
    fillGrid(grid, "Time|A|B\n2024/01/02 10:00:00|1|2\n");
    grid.setColumnCount(40);
    grid.setChannelCount(30);
    grid.setRowCount(400);
    GridPageLayout layout(grid);
    layout.setPageSize(kA4);
    std::vector<int> seen(31 * 401, 0);
    for (int i = 0; i < layout.pageCount(); ++i) {
        const GridPageLayout::Page page = layout.page(i);
        double width = layout.rowNumberWidth();
        for (int column = page.firstColumn; column <= page.lastColumn; ++column) {
            width += layout.columnWidth(column);
            for (GridRow row = page.firstRow; row <= page.lastRow; ++row) {
                ++seen[static_cast<std::size_t>(row * 31 + column)];
            }
        }
        EXPECT_LE(width, layout.size().width());
        EXPECT_LE(layout.headingHeight() + layout.footerHeight() +
                      static_cast<double>(page.lastRow - page.firstRow + 1) * layout.rowHeight(),
                  layout.size().height());
    }
    EXPECT_EQ(std::count(seen.begin(), seen.end(), 1), 31 * 401);
    // All rows of the first columns come before the next columns.
    EXPECT_EQ(layout.page(1).firstColumn, 0);
    EXPECT_EQ(layout.page(1).firstRow, layout.page(0).lastRow + 1);

    GridData empty;
    GridPageLayout pages(empty);
    pages.setPageSize(kA4);
    EXPECT_EQ(pages.pageCount(), 0);
    empty.setRowCount(1);
    pages.setPageSize(QSizeF(10, 10));
    EXPECT_EQ(pages.pageCount(), 2);
}

// Whatever row holds it, and beside room that the page has left.
TEST(GridPageLayout, ColumnsAreAsWideAsTheirWidestCell) {
    const QString number = u"-12345678.901"_s;
    const QString text(120, u'w');
    for (const Row wide : {0, 1, 37, 4999}) {
        GridData grid;
        fillGrid(grid, "Time|A|B\n1|2|x\n");
        grid.setRowCount(5000);
        for (Row row = 0; row < 5000; ++row)
            grid.setText(1, row, "1");
        grid.setText(1, wide, number.toStdString());
        grid.setText(2, wide, text.toStdString());
        GridPageLayout layout(grid);
        layout.setPageSize(kA4);
        const QFontMetricsF metrics(layout.font());
        EXPECT_GT(layout.columnWidth(1), metrics.horizontalAdvance(number)) << wide;
        const double used = layout.rowNumberWidth() + layout.columnWidth(0) +
                            layout.columnWidth(1) + layout.columnWidth(2);
        EXPECT_NEAR(used, layout.size().width(), 1) << "the text has the rest of the page";
    }
}

TEST(GridPrinter, PrintsTheAskedPagesAndStopsWhenAborted) {
    GridData grid;
    fillGrid(grid, "Time|A\n2024/01/02 10:00:00|1\n");
    grid.setRowCount(2000);
    const auto print = [&grid](GridPrinter::PageRange range, test::RecordedProgress& sink,
                               bool expected) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        writer.setPageSize(QPageSize(QPageSize::A4));
        GridPrinter printer(grid, u"mast.dlr"_s);
        EXPECT_EQ(printer.print(writer, range, sink), expected);
        return buffer.data().count("/Type /Page\n");
    };
    test::RecordedProgress patient;
    const auto all = print({}, patient, true);
    EXPECT_GT(all, 20);
    EXPECT_EQ(print({2, 4}, patient, true), 3);
    EXPECT_EQ(print({1000, 0}, patient, false), 0);
    test::RecordedProgress hasty;
    hasty.abortAfter = 1;
    EXPECT_LT(print({}, hasty, false), all);
}

TEST(GridPrinter, PaintsOnlyInsideItsTarget) {
    GridData grid;
    fillGrid(grid, "Time|A\n2024/01/02 10:00:00|1\n");
    GridPrinter printer(grid, u"mast.dlr"_s);
    printer.setPageSize(kA4);
    QImage image(700, 900, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    printer.paintPage(painter, 0, QRectF(50, 25, 595, 842));
    painter.end();
    const auto inked = [&image](const QRect& part) {
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x) {
                if (image.pixelColor(x, y) != Qt::white) return true;
            }
        }
        return false;
    };
    EXPECT_TRUE(inked({50, 25, 200, 60})) << "headings";
    EXPECT_TRUE(inked({580, 845, 65, 22})) << "page number";
    EXPECT_FALSE(inked({0, 0, 48, 900}));
    EXPECT_FALSE(inked({648, 0, 52, 900}));
    EXPECT_FALSE(inked({0, 869, 700, 31}));
}

TEST(HeadingText, PutsTheUnitsBelowTheName) {
    const QFontMetricsF metrics{QFont()};
    const auto lines = [&metrics](const char* label, double width) {
        return HeadingText(label).lines(width, metrics).join(u'/').toStdString();
    };
    EXPECT_EQ(lines("A.Temp.Ave(degC)", 500), "A.Temp.Ave/(degC)");
    EXPECT_EQ(lines("A.Gust()", 500), "A.Gust");
    EXPECT_EQ(lines("Alarm Message", 500), "Alarm Message");
    EXPECT_EQ(lines("(m)", 500), "(m)");
    EXPECT_EQ(lines("Flow (in) (l/s)", 500), "Flow (in)/(l/s)");
    EXPECT_EQ(HeadingText("A.Temp(degC)").inOneLine(), u"A.Temp (degC)"_s);
    EXPECT_EQ(lines("", 500), "");
    const double half = metrics.horizontalAdvance(u"Alarm Messag"_s);
    EXPECT_EQ(lines("Alarm Message", half), "Alarm/Message");
    EXPECT_NE(lines("A.Temperature.Ave(degC)", 40).find("\xE2\x80\xA6/"), std::string::npos);
}

} // namespace
} // namespace pellam
