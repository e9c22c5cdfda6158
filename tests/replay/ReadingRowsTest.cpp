#include "replay/load/ReadingRows.h"
#include "LoadHarness.h"
#include "replay/load/LabelPass.h"
#include "replay/load/ReplayLoader.h"

namespace pellam {
namespace {

using test::LoadTest;

// Schedule A has a number, a date and a time; B two numbers and a text; nothing is known of C.
const std::vector<std::string> kLabels = {"A.T(degC)", "A.Day.Date()", "A.At.Time()",
                                          "B.F(l/s)",  "B.P(hPa)",     "B.Note(a/b/c)"};

class ReadingRowsTest : public LoadTest {
  protected:
    void feed(const std::string& lines, ReadingRows::Mode mode = ReadingRows::Mode::WholeFile) {
        grid->reset();
        const ColumnMap columns = chosen.empty() ? LabelPass(*grid).DisplayLabels(kLabels)
                                                 : LabelPass(*grid).DisplayChosenLabels(chosen);
        const LoadContext context{*grid, international, messages, progress, chooser, grey};
        passedOver = {};
        ReadingRows rows(context, columns, mode, passedOver);
        std::istringstream stream(lines);
        std::string line;
        for (std::int64_t number = 1; std::getline(stream, line); ++number) {
            // Lines come from a reader whose buffer goes on behind them.
            const std::string padded = line + std::string(64, ',');
            const bool ok = !line.ends_with("!");
            const std::string_view content =
                ReplayLoader::withoutPrefix(std::string_view(padded).substr(0, line.size() - !ok));
            if (rows.isReading(content)) rows.DisplayDetails(content, number, ok);
        }
        grid->setRowCount(rows.rows());
        damaged = rows.damagedLines();
    }

    // The rows, and behind them what was passed over.
    std::string shown() const {
        std::string text = gridRows(*grid);
        for (const std::string& cause : passedOver.texts())
            text += " / " + cause;
        return text;
    }

    std::vector<std::string> chosen; ///< of a large file; none for all labels
    PassedOver passedOver;
    std::int64_t damaged = 0;
};

TEST_F(ReadingRowsTest, PlacesValues) {
    const std::string d = "D,1,2008/02/25,11:00:00,0.25,1:A,0,";
    const std::string b = "D,1,2008/02/25,11:00:00,0.25,1:B,0,";
    const std::string t = "2008/02/25 11:00:00.25";
    const Table<const char*, std::string, std::string> cases = {
        {"without statuses", d + "12.500,3.000", t + "|12.5|1989/01/04||||"},
        {"with statuses", b + "1.5,$0,2.50,$0l,\"on\",$4", t + "||||1.5|2.5|on"},
        {"schedules of one time share a row", d + "1\n" + b + "2", t + "|1|||2||"},
        {"identical lines count once", d + "1\n" + d + "1",
         t + "|1||||| / 1 repeated line (in line 2)"},
        {"a second reading of one time keeps both", d + "1\n" + d + "2",
         t + "|1|||||\n" + t + "|2|||||"},
        {"any cell that a line would fill twice starts a row",
         "D,1,2008/02/25,11:00:00,0.25,1:B,1,22\n" + b + "11,33",
         t + "|||||22|\n" + t + "||||11|33|"},
        {"also behind a line that fills none",
         d + "1\nD,1,2008/02/25,11:00:00,0.25,1:C,0\n" + d + "2", t + "|1|||||\n" + t + "|2|||||"},
        {"a cell that stays free does not",
         d + "1\n" + b +
             "2\nD,1,2008/02/25,11:00:00,0.25,"
             "1:B,1,3\n" +
             d + "$4,bad\nD,1,2008/02/25,11:00:00,0.25,1:A,2,5",
         t + "|1||00:00:05|2|3| / 1 value that is neither number nor text (in line 4)"},
        {"an empty text is a value", b + "1,2,\"\"\nD,1,2008/02/25,11:00:00,0.25,1:B,2,\"x\"",
         t + "||||1|2|\n" + t + "||||||x"},
        {"an empty text fills", b + "1,2,\"x\"\nD,1,2008/02/25,11:00:00,0.25,1:B,2,\"\"",
         t + "||||1|2|x\n" + t + "||||||"},
        {"offset within the schedule", "D,1,2008/02/25,11:00:00,0.25,1:B,1,7", t + "|||||7|"},
        {"offset past the schedule", "D,1,2008/02/25,11:00:00,0.25,1:A,3,7",
         t + "|||||| / 1 value without a channel (in line 1)"},
        {"blank before the offset, checksum behind it", "D,1,2008/02/25,11:00:00,0.25,1:A, 0;1A2B",
         t + "||||||"},
        {"offset before the first channel", "D,1,2008/02/25,11:00:00,0.25,1:A,-1,7",
         t + "|||||| / 1 value without a channel (in line 1)"},
        {"no offset", "D,1,2008/02/25,11:00:00,0.25,1:A,,7", t + "|7|||||"},
        {"blanks around values", b + " 5 , $0 ,  ,1.50 , \"a, b\" ,\n" + b + "1,2.50 ;1A2B",
         t + "||||5|1.5|a, b\n" + t + "||||1|2.5|"},
        {"quotes in a text", b + "1,2,\"5\"\" pipe\"", t + "||||1|2|5\" pipe"},
        {"values that are no finite numbers", b + "NaN,-INF", t + "||||NaN|-INF|"},
        {"offset past all numbers", "D,1,2008/02/25,11:00:00,0.25,1:A,99999999999999999999,7",
         t + "|||||| / 1 value without a channel (in line 1)"},
        {"a value in the offset's place", "D,1,2008/02/25,11:00:00,0.25,1:A,12.5,7",
         t + "|||||| / 1 value without a channel (in line 1)"
             " / 1 value that is neither number nor text (in line 1)"},
        {"more values than channels stay out of the next schedule", d + "1,2,3,4,5",
         t + "|1|1989/01/03|00:00:03||| / 2 values without a channel (first in line 1)"},
        {"a schedule without channels makes its row",
         d + "1\nD,1,2008/02/25,11:00:00,0.25,1:C,0,9,$1,\"x\",,bad",
         t + "|1||||| / 2 values without a channel (first in line 2)"
             " / 1 value that is neither number nor text (in line 2)"},
        {"value ends at ';'", b + "1.5;0042,2;77;1A2B",
         t + "||||1.5|2| / 2 values that are neither number nor text (first in line 1)"},
        {"checksums are no values", b + "1.5;1A2B\n" + b + "1.5,;1A2B\n" + b + "1.5,$4;1A2B",
         t + "||||1.5||\n" + t + "||||1.5||\n" + t + "||||1.5||"},
        {"';' between quotes",
         b + "1,2,\"a;b\"\n" + b + "1,2,\"a;b\";1A2B\n" + b + "1,2,\"a\";77,3",
         t + "||||1|2|a;b\n" + t + "||||1|2|a;b\n" + t +
             "||||1|2|a / 1 value without a channel "
             "(in line 3) / 1 value that is neither number nor text (in line 3)"},
        {"a quote that is never closed", b + "1,2,\"a;1A2B", t + "||||1|2|a"},
        {"words are passed over", b + "bad,1.5",
         t + "||||1.5|| / 1 value that is neither number nor text (in line 1)"},
        {"empty fields are passed over", b + ",,1.5,,2", t + "||||1.5|2|"},
        {"whole numbers of the database", b + "23.,$0l,0.,$4l", t + "||||23|0|"},
        {"exponents stay", b + "1.50E+10,-2.0e-3", t + "||||1.50E+10|-2.0e-3|"},
        {"a value before ':'",
         b + "1.5:x,2:", t + "||||1.5|2| / 1 value that is neither number nor text (in line 1)"},
        {"time of day is one value everywhere", b + "10:00:00,12:30", t + "||||10:00:00|12:30|"},
        {"dates and times as they stand", d + "1,2008/02/24,10:15:00",
         t + "|1|2008/02/24|10:15:00|||"},
        {"text channel keeps its zeros", b + "1,2,1.500", t + "||||1|2|1.500"},
        {"quoted text with a comma", b + "1,2,\"a, b\"", t + "||||1|2|a, b"},
        {"statuses 3 and 4 skip the line",
         "D,1,2008/02/25,11:00:00,0.25,3:A,0,1\n"
         "D,1,2008/02/25,11:00:00,0.25,4:A,0,1",
         " / 2 lines of status 3 or 4 (first in line 1)"},
        {"job name before the time", "D,1,\"JOB,1\",2008/02/25,11:00:00,0.25,0;A,0,1",
         t + "|1|||||"},
        {"tag in angle brackets", "<D>1,2008/02/25,11:00:00,0.25,1:A,0,1", t + "|1|||||"},
        {"prefix", "[12]" + d + "1", t + "|1|||||"},
        {"fraction without leading zero stays as it is", "D,1,2008/02/25,11:00:00,0,1:A,0,1",
         "2008/02/25 11:00:00|1|||||"},
        {"a fraction without a point is told", "D,1,2008/02/25,11:00:00,488,1:A,0,1",
         "2008/02/25 11:00:00|1||||| / 1 value that is neither number nor text (in line 1)"},
        {"cut lines make no rows",
         "D\nD,1\nD,1,2008/02/25\nD,1,2008/02/25,11:00:00,0.25\nD,1,2008/02/25,11:00:00,0,,0,1",
         " / 5 lines without time or status (first in line 1)"},
        {"a line that ends at its status makes its row", "D,1,2008/02/25,11:00:00,0.25,1:A",
         t + "||||||"},
        {"letters outside the alphabet",
         "D,1,2008/02/25,11:00:00,0.25,1:\xFF,0,1\n"
         "D,1,2008/02/25,11:00:00,0.25,1:a,0,1",
         t + "|||||| / 2 values without a channel (first in line 1)"},
        {"a bare tag holds nothing", "</ALL_DATA>\n<END>text",
         " / 1 line without time or status (in line 2)"},
        {"damage colours the whole line", d + "1!\n" + b + "2", "!" + t + "|!1|||2||"},
        {"the colour of a damaged text goes to the cell behind", b + "1,\"x\"!",
         "!" + t + "||||!1|x|!"},
    };
    for (const auto& [name, lines, expected] : cases) {
        feed(lines);
        EXPECT_EQ(shown(), expected) << name;
    }
    EXPECT_EQ(damaged, 1);
    EXPECT_EQ(grid->damagedRows().size(), 1U);
}

TEST_F(ReadingRowsTest, ACommaGridShowsCommas) {
    useSeparators(',', ';');
    feed("D,1,2008/02/25,12:30:15,0.25,1:B,0,1234.50,-0.10\n"
         "D,1,2008/02/25,12:30:16,0.25,1:B,0,-9.00000E9,+1e-3\n"
         "D,1,2008/02/25,12:30:17,0.25,1:B,0,0.123,233.062");
    EXPECT_EQ(gridRows(*grid), "2008/02/25 12:30:15,25||||1234,5|-0,1|\n"
                               "2008/02/25 12:30:16,25||||-9,00000E9|+1e-3|\n"
                               "2008/02/25 12:30:17,25||||0,123|233,062|");
}

TEST_F(ReadingRowsTest, OnlySchedulesWithChosenChannelsMakeRows) {
    feed("<D>1,2008/02/25,11:00:00,0.0,1:A,0,1\n"
         "D,1,2008/02/25,11:00:01,0.0,1:C,0,1\n"
         "D,1,2008/02/25,11:00:02,0.0,1:A,0,5",
         ReadingRows::Mode::ChosenChannels);
    EXPECT_EQ(shown(), "2008/02/25 11:00:02.0|5||||| / 1 value without a channel (in line 2)");
}

TEST_F(ReadingRowsTest, ASecondReadingKeepsBothWhereTheFirstChannelIsNotChosen) {
    chosen = {"B.P(hPa){1}"};
    const std::string line = "D,1,2008/02/25,11:00:00,0.0,1:B,0,";
    feed(line + "1,2\n" + line + "3,4", ReadingRows::Mode::ChosenChannels);
    EXPECT_EQ(gridRows(*grid), "2008/02/25 11:00:00.0|2\n2008/02/25 11:00:00.0|4");
}

TEST_F(ReadingRowsTest, NumericTimesShowTheLoggersClockInEveryZone) {
    // A summer noon, an hour that New York skips, and what is no time of 0 to 9999.
    const Table<const char*, const char*> rows = {
        {"615038400,1:A,0,1,7118,43200", "2008/06/28 12:00:00|1|2008/06/28|12:00:00"},
        {"605413800,1:A,0,1,7007,9000", "2008/03/09 02:30:00|1|2008/03/09|02:30:00"},
        {"605516795.25,1:A,0", "2008/03/10 07:06:35.250000|||"},
        {"6.048864e8,1:A,0", "2008/03/03 00:00:00|||"},
        {" +6048864002.5E-1,1:A,0", "2008/03/03 00:00:00.250000|||"},
        {"-1.25,1:A,0,1,-1,-1", "1988/12/31 23:59:58.750000|1|1988/12/31|23:59:59"},
        {"9000000000,1:A,0", "2274/03/14 16:00:00|||"},
        {"1e99,1:A,0,1,1e9,1e99", "1e99|1|1e9|1e99"},
        {"99999999999999999999,1:A,0,1,-800000", "99999999999999999999|1|-800000|"},
        {"noon,1:A,0,5", "noon|5||"},
        {"2008-02-25T12:00:00,1:A,0,5", "2008-02-25T12:00:00|5||"},
        {"0x10,1:A,0,5", "0x10|5||"},
        {",1:A,0,5", "|5||"},
    };
    for (const char* name : {"UTC", "Europe/London", "Europe/Istanbul", "America/New_York"}) {
        const ZoneScope zone(name);
        for (const auto& [line, expected] : rows) {
            feed(std::string("D,1,") + line);
            EXPECT_EQ(gridRows(*grid), std::string(expected) + "|||") << name << ": " << line;
        }
    }
}

} // namespace
} // namespace pellam
