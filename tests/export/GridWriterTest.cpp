#include "export/GridWriter.h"

#include "ScratchFolder.h"

#include <gtest/gtest.h>

#include <random>

namespace pellam {
namespace {

/// Records what a progress display would show, and asks to stop at a chosen call.
class RecordedProgress : public ProgressSink {
  public:
    std::string log;
    std::int64_t abortAt = -1;

    void start(std::string_view title, std::string_view firstLine, std::int64_t first,
               std::int64_t last) override {
        log += std::string(title) + '|' + std::string(firstLine) + '|' + std::to_string(first) +
               ".." + std::to_string(last) + '\n';
    }

    void addString(std::string_view text) override { log += std::string(text) + '\n'; }

    void setPosition(std::int64_t position) override {
        log += std::to_string(position) + '\n';
        if (position == abortAt) m_aborted = true;
    }

    bool aborted() override { return m_aborted; }

    void finish() override { log += "finish\n"; }

  private:
    bool m_aborted = false;
};

class GridWriterTest : public testing::Test {
  protected:
    /// Fills the grid from lines of fields separated by '|', the first line being the headings; a
    /// heading that begins with '-' is not checked.
    void given(std::string_view text) {
        for (Row row = -1; !text.empty(); ++row) {
            std::string_view line = text.substr(0, text.find('\n'));
            text.remove_prefix(std::min(line.size() + 1, text.size()));
            for (int column = 0;; ++column) {
                const auto bar = std::min(line.find('|'), line.size());
                put(column, row, line.substr(0, bar));
                if (bar == line.size()) break;
                line.remove_prefix(bar + 1);
            }
            m_grid.setRowCount(row + 1);
        }
    }

    void put(int column, Row row, std::string_view field) {
        if (row >= 0) return m_grid.setText(column, row, field);
        m_grid.column(column).setCharted(!field.starts_with('-'));
        m_grid.column(column).setLabel(field.starts_with('-') ? field.substr(1) : field);
    }

    std::string csv(char separator = ',') {
        const Failure failure =
            GridWriter(m_grid).writeCsv(m_folder.path("out.csv"), separator, m_progress);
        return failure ? failure.text() : m_folder.read("out.csv");
    }

    std::string txt() {
        const Failure failure = GridWriter(m_grid).writeTxt(m_folder.path("out.txt"), m_progress);
        return failure ? failure.text() : m_folder.read("out.txt");
    }

    ScratchFolder m_folder;
    GridData m_grid;
    RecordedProgress m_progress;
};

TEST_F(GridWriterTest, ColumnsBeforeTheGridsLastAreFollowedByASeparator) {
    m_grid.setColumnCount(16);
    given("Time|A.Temp(degC)|-B.Level(m)|C.Note\n"
          "2008/02/25 11:53:15|12.50|7|say \"hi\", you\n"
          "2008/02/25 11:54:15.25||8|\n");
    EXPECT_EQ(csv(), "Time,A.Temp(degC),C.Note,\r\n"
                     "2008/02/25 11:53:15,12.50,say \"hi\", you,\r\n"
                     "2008/02/25 11:54:15.25,,,\r\n");
    EXPECT_EQ(txt(), "Time\tA.Temp(degC)\tC.Note\t\r\n"
                     "2008/02/25 11:53:15\t12.50\tsay \"hi\", you\t\r\n"
                     "2008/02/25 11:54:15.25\t\t\t\r\n");
}

TEST_F(GridWriterTest, LastColumnOfTheGridHasNoSeparatorExceptInTabRows) {
    m_grid.setColumnCount(16);
    given("Time|-|-|-|-|-|-|-|-|-|-|-|-|-|-|Last\nt0|||||||||||||||-0.5\nt1\n");
    EXPECT_EQ(csv(';'), "Time;Last\r\nt0;-0.5\r\nt1;\r\n");
    EXPECT_EQ(txt(), "Time\tLast\r\nt0\t-0.5\t\r\nt1\t\t\r\n");
}

TEST_F(GridWriterTest, NothingCheckedGivesEmptyLines) {
    given("-Time|-A\nt0|1\nt1|2\n");
    EXPECT_EQ(csv(), "\r\n\r\n\r\n");
    EXPECT_EQ(txt(), "\r\n\r\n\r\n");
}

TEST_F(GridWriterTest, NothingLoadedGivesAnEmptyHeadingLine) {
    EXPECT_EQ(csv(), "\r\n");
}

TEST_F(GridWriterTest, QuickFormsEqualThePlainTexts) {
    std::mt19937 random(7);
    const auto digits = [&random](std::size_t count) {
        std::string text;
        for (unsigned i = 0; i < count; ++i)
            text += static_cast<char>('0' + random() % 10);
        return text;
    };
    const std::vector<std::string> special = {"0",
                                              "-0",
                                              "0.0",
                                              "-0.00000001",
                                              "0.0000001",
                                              "0.00000000",
                                              "99999999",
                                              "9999999.9",
                                              "100000000",
                                              "1.0000000",
                                              "12345678.9",
                                              "9007199254740991",
                                              "+1",
                                              "1e5",
                                              "007",
                                              "abcdefg",
                                              "\"a,b\"",
                                              "1,5",
                                              "0.1234567",
                                              "-1.5",
                                              "a longer text than eight",
                                              "2008/02/25 11:53:15",
                                              "2008/02/25 11:53:16",
                                              "2008/02/25 11:54:16",
                                              "2008-02-25 11:54:16",
                                              "2008-02-25T11:54:16.000488",
                                              "2008-02-25T11:54:17"};
    std::string expected = "V,\r\n";
    put(0, -1, "V");
    const Row rows = Column::kChunkRows + 5000;
    for (Row row = 0; row < rows; ++row) {
        const auto at = static_cast<std::size_t>(row);
        const std::string text = at < special.size() ? special[at]
                                 : row % 7 == 0
                                     ? ""
                                     : digits(random() % 9 + 1) + '.' + digits(random() % 8 + 1);
        m_grid.setText(0, row, text);
        expected += text + ",\r\n";
    }
    m_grid.setRowCount(rows);
    EXPECT_EQ(csv(), expected);
}

TEST_F(GridWriterTest, ChunksThatWereNeverWrittenAreEmpty) {
    put(0, -1, "A");
    put(1, -1, "B");
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
    given("A|B\n");
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
                              "Loaded 0 Lines\n0\nLoaded 4096 Lines\n4096\nfinish\n");
}

TEST_F(GridWriterTest, AbortKeepsTheEarlierFile) {
    m_folder.write("out.csv", "earlier");
    given("A\n");
    m_grid.setRowCount(10000);
    m_progress.abortAt = 8192;
    const Failure failure = GridWriter(m_grid).writeCsv(m_folder.path("out.csv"), ',', m_progress);
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
