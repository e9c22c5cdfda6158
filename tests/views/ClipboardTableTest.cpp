#include "views/scan/ClipboardTable.h"
#include "GridText.h"

namespace pellam {
namespace {

std::string shown(const std::vector<std::vector<std::string>>& table) {
    std::string text;
    for (const auto& row : table) {
        for (const auto& field : row)
            text += "[" + field + "]";
        text += ";";
    }
    return text;
}

TEST(ClipboardTable, ParsesWhatSpreadsheetsWrite) {
    const Table<const char*, std::string_view, const char*> rows = {
        {"one text", "12.5", "[12.5];"},
        {"line end at the end", "a\tb\r\nc\td\r\n", "[a][b];[c][d];"},
        {"no line end at the end", "a\nb", "[a];[b];"},
        {"old line ends", "a\rb\r", "[a];[b];"},
        {"empty fields", "\ta\t\n\n\tb", "[][a][];[];[][b];"},
        {"quoted tab and line end", "\"a\tb\nc\"\td", "[a\tb\nc][d];"},
        {"doubled quotes", "\"say \"\"no\"\"\"", "[say \"no\"];"},
        {"quote inside", "5\" pipe\t3\"", "[5\" pipe][3\"];"},
        {"quote that is never closed", "\"a\tb", "[\"a][b];"},
        {"text after the closing quote", "\"a\"b\tc", "[\"a\"b][c];"},
        {"byte-order mark", "\357\273\277a", "[a];"},
        {"nothing", "", ""},
    };
    for (const auto& [name, text, expected] : rows) {
        EXPECT_EQ(shown(ClipboardTable::parse(text)), expected) << name;
    }
}

TEST(ClipboardTable, ReadsBackWhatItWrote) {
    const std::vector<std::string> fields{"plain",      "",         "a\tb", "\"",
                                          "two\nlines", "5\" pipe", "\r"};
    std::string text;
    for (const std::string& field : fields) {
        if (!text.empty()) text += '\t';
        ClipboardTable::appendField(field, text);
    }
    ASSERT_EQ(ClipboardTable::parse(text).size(), 1U);
    EXPECT_EQ(ClipboardTable::parse(text).front(), fields);
}

TEST(ClipboardTable, JoinsAreasThatMakeUpABlock) {
    const auto shape = [](std::vector<CellArea> areas) {
        const auto block = ClipboardTable::block(std::move(areas));
        std::string text;
        for (const int column : block.columns)
            text += std::to_string(column) + " ";
        for (const CellArea& band : block.bands) {
            text += std::to_string(band.firstRow) + "-" + std::to_string(band.lastRow) + " ";
        }
        return text;
    };
    EXPECT_EQ(shape({{1, 2, 5, 6}}), "1 2 5-6 ");
    EXPECT_EQ(shape({{3, 3, 5, 6}, {1, 1, 5, 6}}), "1 3 5-6 ");
    EXPECT_EQ(shape({{1, 2, 9, 9}, {1, 2, 5, 6}}), "1 2 5-6 9-9 ");
    EXPECT_EQ(shape({{1, 1, 5, 6}, {1, 1, 7, 8}}), "1 5-8 ");
    EXPECT_EQ(shape({{1, 1, 5, 5}, {2, 2, 6, 6}}), "");
    EXPECT_EQ(shape({}), "");
}

TEST(ClipboardTable, WritesHeadingsAxisNumbersAndCells) {
    GridData grid;
    fillGrid(grid, "Time|Temp(\260C)|B\n2024/01/02 10:00:00|12.50|a\"b\n2024/01/02 10:01:00||2\n");
    grid.column(2).setAxis(4);
    const auto block = ClipboardTable::block({{0, 2, 0, 2}});
    std::string text;
    ClipboardTable::appendHeadings(grid, block, text);
    for (GridRow row = 0; row <= 2; ++row)
        ClipboardTable::appendRow(grid, block, row, text += '\n');
    EXPECT_EQ(text, "Time\tTemp(°C)\tB\n"
                    "\t1\t4\n"
                    "2024/01/02 10:00:00\t12.50\t\"a\"\"b\"\n"
                    "2024/01/02 10:01:00\t\t2");
    const std::int64_t estimate = ClipboardTable::estimateBytes(grid, block);
    EXPECT_EQ(estimate, static_cast<std::int64_t>(text.size() - text.find('\n')));
}

} // namespace
} // namespace pellam
