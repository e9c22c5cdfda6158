#include "export/GridWriter.h"

#include "GridText.h"
#include "RecordingSinks.h"
#include "ScratchFolder.h"

#include <random>

namespace pellam {
namespace {

class GridWriterTest : public testing::Test {
  protected:
    /// A grid of so many columns; a heading that begins with '-' is not checked.
    void given(const std::string& text, int columns = 0) {
        fillGrid(m_grid, text);
        for (int c = 0; c <= m_grid.channelCount(); ++c) {
            const std::string label = m_grid.column(c).label();
            m_grid.column(c).setCharted(!label.starts_with('-'));
            m_grid.column(c).setLabel(label.substr(label.starts_with('-') ? 1 : 0));
        }
        if (columns > 0) m_grid.setColumnCount(columns);
    }

    std::string csv(char separator = ',') {
        const Failure failure =
            GridWriter(m_grid).write(m_folder.path("out.csv"), kCsv, separator, m_progress);
        return failure ? failure.text() : m_folder.read("out.csv");
    }

    std::string txt() {
        const Failure failure =
            GridWriter(m_grid).write(m_folder.path("out.txt"), kTxt, ',', m_progress);
        return failure ? failure.text() : m_folder.read("out.txt");
    }

    static constexpr auto kCsv = GridWriter::Form::Csv;
    static constexpr auto kTxt = GridWriter::Form::Txt;
    ScratchFolder m_folder;
    GridData m_grid;
    test::RecordedProgress m_progress;
};

TEST_F(GridWriterTest, ColumnsBeforeTheGridsLastAreFollowedByASeparator) {
    given("Time|A.Temp(degC)|-B.Level(m)|C.Note\n"
          "2008/02/25 11:53:15|12.50|7|say \"hi\", you\n"
          "2008/02/25 11:54:15.25||8|\n",
          16);
    EXPECT_EQ(csv(), "Time,A.Temp(degC),C.Note,\r\n"
                     "2008/02/25 11:53:15,12.50,\"say \"\"hi\"\", you\",\r\n"
                     "2008/02/25 11:54:15.25,,,\r\n");
    EXPECT_EQ(txt(), "Time\tA.Temp(degC)\tC.Note\t\r\n"
                     "2008/02/25 11:53:15\t12.50\t\"say \"\"hi\"\", you\"\t\r\n"
                     "2008/02/25 11:54:15.25\t\t\t\r\n");
}

TEST_F(GridWriterTest, LastColumnOfTheGridHasNoSeparatorExceptInTabRows) {
    given("Time|-|-|-|-|-|-|-|-|-|-|-|-|-|-|Last\nt0|||||||||||||||-0.5\nt1\n");
    EXPECT_EQ(csv(';'), "Time;Last\r\nt0;-0.5\r\nt1;\r\n");
    EXPECT_EQ(txt(), "Time\tLast\r\nt0\t-0.5\t\r\nt1\t\t\r\n");
}

TEST_F(GridWriterTest, NothingCheckedOrLoadedGivesEmptyLines) {
    EXPECT_EQ(csv(), "\r\n");
    given("-Time|-A\nt0|1\nt1|2\n");
    EXPECT_EQ(csv(), "\r\n\r\n\r\n");
    EXPECT_EQ(txt(), "\r\n\r\n\r\n");
}

TEST_F(GridWriterTest, QuickFormsEqualThePlainTexts) {
    std::mt19937 random(7);
    const auto digits = [&random](std::size_t count) {
        std::string text;
        for (unsigned i = 0; i < count; ++i)
            text += static_cast<char>('0' + random() % 10);
        return text;
    };
    std::vector<std::string> special;
    std::istringstream list(
        "0|-0|0.0|-0.00000001|0.0000001|0.00000000|99999999|9999999.9|100000000|"
        "1.0000000|12345678.9|9007199254740991|+1|1e5|007|abcdefg|\"a,b\"|1,5|"
        "0.1234567|-1.5|a longer text than eight|2008/02/25 11:53:15|"
        "2008/02/25 11:53:16|2008/02/25 11:54:16|2008-02-25 11:54:16|"
        "2008-02-25T11:54:16.000488|2008-02-25T11:54:17");
    for (std::string text; std::getline(list, text, '|');)
        special.push_back(text);
    given("V|-\n");
    std::string expected = "V,\r\n";
    const Row rows = Column::kChunkRows + 5000;
    for (Row row = 0; row < rows; ++row) {
        const auto at = static_cast<std::size_t>(row);
        const std::string text = at < special.size() ? special[at]
                                 : row % 7 == 0
                                     ? ""
                                     : digits(random() % 9 + 1) + '.' + digits(random() % 8 + 1);
        m_grid.setText(0, row, text);
        const std::string shown = text == "\"a,b\"" ? "\"\"\"a,b\"\"\""
                                  : text == "1,5"   ? "\"1,5\""
                                                    : text;
        expected += shown + ",\r\n";
    }
    m_grid.setRowCount(rows);
    EXPECT_EQ(csv(), expected);
}

TEST_F(GridWriterTest, FieldsStandInQuotesWhereTheSeparatorWouldTearThem) {
    const Table<const char*, char, const char*, const char*> cases = {
        {"a short text", ',', "a,b", "\"a,b\""},
        {"another separator", ';', "a,b", "a,b"},
        {"a quote alone", ',', "5\"", "\"5\"\"\""},
        {"a line end", ',', "two\nlines", "\"two\nlines\""},
        {"a carriage return in a long text", ',', "a longer text\r", "\"a longer text\r\""},
        {"a time with a comma", ',', "2008-02-25T11:54:16,25", "\"2008-02-25T11:54:16,25\""},
        {"a number in it", '5', "1.5", "\"1.5\""},
        {"a time in it", '/', "2008/02/25 11:54:16", "\"2008/02/25 11:54:16\""},
        {"blanks stay bare", ',', " a b ", " a b "},
    };
    for (const auto& [name, separator, text, field] : cases) {
        SCOPED_TRACE(name);
        given("V|-\n");
        m_grid.column(0).setLabel(text);
        m_grid.setText(0, 0, text);
        m_grid.setRowCount(1);
        const std::string line = field + std::string(1, separator) + "\r\n";
        EXPECT_EQ(csv(separator), line + line);
    }
    m_grid.column(0).setLabel("V");
    m_grid.setText(0, 0, "a\tb");
    EXPECT_EQ(txt(), "V\t\r\n\"a\tb\"\t\r\n");
}

TEST_F(GridWriterTest, ChunksThatWereNeverWrittenAreEmpty) {
    given("A|B|-\n");
    m_grid.setText(0, Column::kChunkRows, "1");
    m_grid.setRowCount(Column::kChunkRows + 1);
    std::string expected = "A,B,\r\n";
    for (Row row = 0; row < Column::kChunkRows; ++row)
        expected += ",,\r\n";
    EXPECT_EQ(csv(), expected + "1,,\r\n");
}

TEST_F(GridWriterTest, TextsLargerThanTheBufferComeWhole) {
    const std::string large(600'000, 'x');
    const std::string half(200'000, 'y');
    given("A|B|-\n");
    for (Row row = 0; row < 3; ++row) {
        m_grid.setText(0, row, row == 1 ? large : half);
        m_grid.setText(1, row, half);
    }
    m_grid.setRowCount(3);
    const std::string line = half + ',' + half + ",\r\n";
    EXPECT_TRUE(csv() == "A,B,\r\n" + line + large + ',' + half + ",\r\n" + line);
}

TEST_F(GridWriterTest, ProgressTellsTheRows) {
    given("A\n");
    m_grid.setRowCount(5000);
    (void)csv();
    EXPECT_EQ(m_progress.log, "Exporting Data as CSV|Exporting...|1..5000\n"
                              "Loaded 0 Lines\nLoaded 4096 Lines\n");
    EXPECT_EQ(m_progress.position, 4096);
    EXPECT_EQ(m_progress.open, 0);
}

TEST_F(GridWriterTest, AbortKeepsTheEarlierFile) {
    m_folder.write("out.csv", "earlier");
    given("A\n");
    m_grid.setRowCount(10000);
    m_progress.abortAfter = 2;
    const Failure failure =
        GridWriter(m_grid).write(m_folder.path("out.csv"), kCsv, ',', m_progress);
    EXPECT_EQ(failure.kind, Failure::Kind::Aborted);
    EXPECT_EQ(m_folder.read("out.csv"), "earlier");
    EXPECT_EQ(m_folder.list(), "out.csv");
}

TEST_F(GridWriterTest, FullDiskIsToldFromTheFirstBlockAndFromTheLast) {
    std::filesystem::create_symlink("/dev/full", m_folder.path("out.csv"));
    given("A\n");
    for (const Row rows : {Row{1}, Row{1'000'000}}) {
        m_grid.setRowCount(rows);
        EXPECT_EQ(csv(), m_folder.path("out.csv") +
                             " can not be written, the disk is full: No space left on device.");
    }
}

} // namespace
} // namespace pellam
