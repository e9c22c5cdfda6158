#include "grid/GridData.h"
#include "grid/RowFiller.h"

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

namespace pellam {
namespace {

std::string textOf(const GridData& grid, int column, Row row) {
    CellBuffer buffer;
    return std::string(grid.text(column, row, buffer));
}

TEST(GridData, GivesEveryTextBackCharacterForCharacter) {
    std::vector<std::string> texts = {std::string("nul\0inside", 10), "Gr\xFC\xDFn",
                                      std::string(100'000, 'x'), "x\ty\"z", ""};
    std::istringstream list("12.50|-0.001|007|+5|1.5E+3|a|seven77|eight888|10:00:00|"
                            "2008/02/25 11:53:15|2008/02/30 25:61:61.000488|2008-02-25 11:53:15,5|"
                            "2008-02-25T11:53:15.123456|2008/02/25 11:53:15.1234567|"
                            "1899/12/31 00:00:00|2411/12/31 23:59:59|2412/01/01 00:00:00|"
                            "2008/02/25 11:53:15.|2008/2/5 1:03:15|2008/02-25 11:53:15|"
                            "2008/02/25T11:53:15|12345678901234567890");
    for (std::string text; std::getline(list, text, '|');)
        texts.push_back(text);
    GridData grid;
    for (std::size_t i = 0; i < texts.size(); ++i)
        grid.setText(2, static_cast<Row>(i), texts[i]);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        EXPECT_EQ(textOf(grid, 2, static_cast<Row>(i)), texts[i]);
    }
}

TEST(GridData, KeepsCommonFormsOutOfTheArena) {
    GridData grid;
    for (const char* text :
         {"12.5", "2008/02/25 11:53:15.000488", "2008-02-25T11:53:15", "fault"}) {
        EXPECT_NE(grid.column(1).pack(text).kind(), Cell::Kind::Arena) << text;
    }
    // A repeated word is kept once.
    const Cell first = grid.column(1).pack("Overrange");
    EXPECT_EQ(grid.column(1).pack("Overrange"), first);
}

TEST(GridData, ColoursBelongToCells) {
    GridData grid;
    grid.setText(1, 0, "1.5", CellColour::DarkRed);
    grid.setText(1, 1, "long text in the arena", CellColour::Grey);
    EXPECT_EQ(grid.colour(1, 0), CellColour::DarkRed);
    EXPECT_EQ(grid.colour(1, 1), CellColour::Grey);
    EXPECT_EQ(grid.colour(1, 2), CellColour::Black);
    EXPECT_EQ(textOf(grid, 1, 0), "1.5");
}

TEST(GridData, NumbersComeInBulkAcrossChunks) {
    GridData grid(',');
    const Row last = Column::kChunkRows;
    grid.setText(1, last - 1, "1,5");
    grid.setText(1, last, "2,5E1");
    grid.setText(1, last + 1, "word");
    std::vector<double> values(4);
    grid.column(1).numbers(last - 2, values);
    EXPECT_TRUE(std::isnan(values[0]));
    EXPECT_EQ(values[1], 1.5);
    EXPECT_EQ(values[2], 25.0);
    EXPECT_TRUE(std::isnan(values[3]));
}

TEST(GridData, MovingAColumnTakesItsHeadingAndCellsAlong) {
    GridData grid;
    grid.setColumnCount(16);
    grid.setChannelCount(4);
    for (int c = 0; c <= 4; ++c) {
        grid.column(c).setLabel(std::string(1, static_cast<char>('a' + c)));
        grid.setText(c, 0, std::to_string(10 + c));
    }
    const auto order = [&grid] {
        std::string labels;
        for (int c = 0; c <= 5; ++c)
            labels += grid.column(c).label() + textOf(grid, c, 0) + " ";
        return labels;
    };
    EXPECT_TRUE(grid.moveColumn(1, 3));
    EXPECT_EQ(order(), "a10 c12 d13 b11 e14  ");
    EXPECT_TRUE(grid.moveColumn(4, 1));
    EXPECT_EQ(order(), "a10 e14 c12 d13 b11  ");
    EXPECT_FALSE(grid.moveColumn(0, 2));
    EXPECT_FALSE(grid.moveColumn(2, 0));
    EXPECT_FALSE(grid.moveColumn(2, 5));
}

TEST(GridData, AResetGridIsEmptyAndReusedChunksAreToo) {
    GridData grid;
    grid.setColumnCount(20);
    RowFiller filler(grid);
    for (Row row = 0; row < 3 * Column::kChunkRows; ++row) {
        filler.startRow(row);
        filler.set(1, grid.column(1).pack("5"));
    }
    grid.setRowCount(3 * Column::kChunkRows);
    grid.addDamagedRow(7);
    grid.column(1).setAxis(3);
    grid.reset();
    EXPECT_EQ(grid.columnCount(), GridData::kInitialColumns);
    EXPECT_EQ(grid.rowCount(), 0);
    EXPECT_TRUE(grid.damagedRows().empty());
    EXPECT_EQ(grid.column(1).axis(), 1);
    grid.setText(1, 9, "x");
    EXPECT_EQ(textOf(grid, 1, 8), "");
    EXPECT_EQ(textOf(grid, 1, 9), "x");
    grid.trim();
    EXPECT_EQ(textOf(grid, 1, 9), "x");
}

} // namespace
} // namespace pellam
