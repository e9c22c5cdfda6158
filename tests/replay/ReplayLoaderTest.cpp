#include "LoadHarness.h"
#include "replay/checks/CCrc.h"
#include "replay/checks/LineCheck.h"

#include <cstdio>

namespace pellam {
namespace {

using test::LoadTest;

std::string withSuffix(std::string line) {
    line += ';';
    char crc[8];
    std::snprintf(crc, sizeof crc, "%04X",
                  static_cast<unsigned>(CCrc16().CalculateBlock(line.data(), line.size(), 0)));
    return line + crc;
}

const std::string kGenerated =
    "Descriptor\nName \"Hembric\"\nLock N\nDesc \"Mast 7\"\nEndDescriptor\n\n<IDATA_MAP>\n"
    "S,0,0,10:0,1989,1,0,\"\",<A,\"60lS\",G,<\"Temp\",\"C\",1,0,8,4,1>,<\"Wind\",\"m/"
    "s\",1,0,8,4,1>>"
    "<B,\"60lS\",G,<\"Rain\",\"mm\",1,0,8,4,1>><C><D><E><F><G><H><I><J><K><X><V>>:\n\n<ALL_DATA>\n";

class ReplayLoaderTest : public LoadTest {
  protected:
    static std::string passedOver(const LoadOutcome& outcome) {
        std::string text;
        for (const std::string& cause : outcome.passedOver.texts())
            text += " / " + cause;
        return text;
    }
};

TEST_F(ReplayLoaderTest, LoadsWhatTheDatabaseLoaderWrites) {
    const LoadOutcome outcome =
        load("a.dlr", kGenerated + "D,0,2008/02/25,10:00:00,0.000000,1:A,0,23.,$0l,4.,$0l:\n"
                                   "D,0,2008/02/25,10:00:00,0.5,1:B,0,0.,$4l:\n");
    EXPECT_EQ(gridText(*grid), "Time|A.Temp.Time(C)|A.Wind.Time(m/s)|B.Rain.Time(mm)\n"
                               "2008/02/25 10:00:00.000000|00:00:23|00:00:04|\n"
                               "2008/02/25 10:00:00.5|||00:00:00");
    EXPECT_EQ(outcome.description, "Mast 7");
    EXPECT_EQ(outcome.originatorType, "");
    EXPECT_EQ(outcome.firstTime, "2008/02/25 10:00:00.000000");
    EXPECT_EQ(outcome.lastTime, "2008/02/25 10:00:00.5");
    EXPECT_EQ(messages.texts, "");
}

TEST_F(ReplayLoaderTest, ChecksEveryLineThatCarriesASuffix) {
    const std::string good = withSuffix("D,1,2008/02/25,12:00:00,0.0,1:A,0,1.5");
    std::string lower = good;
    for (char& c : lower)
        c = c >= 'A' && c <= 'F' && &c > &lower[lower.rfind(';')] ? static_cast<char>(c + 32) : c;
    const Table<const char*, std::string, bool> cases = {
        {"right", good, true},
        {"lower case", lower, true},
        {"leading zeros and blanks",
         good.substr(0, good.size() - 4) + " 00" + good.substr(good.size() - 4), true},
        {"blanks behind it", good + "  ", true},
        {"prefix counts", withSuffix("[12]D,1,2008/02/25,12:00:00,0.0,1:A,0,1.5"), true},
        {"prefix added later", "[12]" + good, false},
        {"one character changed", "D,2" + good.substr(3), false},
        {"no hexadecimal number", good + "Z", false},
        {"blank in the number",
         good.substr(0, good.size() - 2) + " " + good.substr(good.size() - 2), false},
        {"nothing behind ';'", "D,1;", true},
        {"status with ';'", "D,1,2008/02/25,12:00:00,0.0,0;A,0,1.5", true},
        {"no ';'", "D,1", true},
        {"';' in a quoted text", "D,1,2008/02/25,12:00:00,0.0,1:A,0,\"a;b\"", true},
        {"quoted text and suffix", withSuffix("D,1,2008/02/25,12:00:00,0.0,1:A,0,\"a;b\""), true},
        {"suffix behind a lone quote", "D,1,\"a;1A2B", false},
    };
    for (const auto& [name, line, isGood] : cases)
        EXPECT_EQ(LineCheck().isGood(line), isGood) << name;

    const LoadOutcome outcome =
        load("a.dlr", kGenerated + good + ":\r\n" +
                          withSuffix("D,1,2008/02/25,12:00:01,0.0,1:A,0,2.5") + "0\n");
    EXPECT_EQ(outcome.damagedLines, 1);
    ASSERT_EQ(grid->damagedRows().size(), 1U);
    EXPECT_EQ(grid->damagedRows()[0], 1);
    EXPECT_EQ(grid->colour(0, 0), CellColour::Black);
    EXPECT_EQ(grid->colour(0, 1), CellColour::DarkRed);
}

TEST_F(ReplayLoaderTest, Refusals) {
    const Table<const char*, const char*, std::string, const char*> cases = {
        {"empty", "a.dlr", "", "Attention: No STATUS found in the replay file\n"},
        {"no data map", "a.dlr", "<ALL_DATA>\nD,1\n",
         "Attention: No STATUS found in the replay file\n"},
        {"enciphered", "a.dlx", kGenerated, "Warning: Can not open replay file\n"},
        {"header without data", "a.dlr", kGenerated,
         "Attention: There are no readings in the replay file\n"},
        {"nothing to read", "a.dbr", kGenerated, ""},
        {"short signature", "a.sig", "1\n2\n3\n",
         "Warning: Signature file integrity check FAILED\n"},
    };
    for (const auto& [name, file, bytes, message] : cases) {
        const LoadOutcome outcome = load(file, bytes);
        EXPECT_FALSE(outcome.loaded) << name;
        EXPECT_EQ(messages.texts, message) << name;
        EXPECT_EQ(grid->columnCount(), GridData::kInitialColumns) << name;
        EXPECT_EQ(grid->rowCount(), 0) << name;
    }
}

TEST_F(ReplayLoaderTest, ValuesWithoutAHomeAreCounted) {
    const std::string a = "<A,\"1S\",G,<\"a\",\"u\",0,0,8,4,1>>";
    const std::string b = "<B,\"1S\",G,<\"b\",\"u\",0,0,8,4,1>>";
    const Table<const char*, std::string, const char*> cases = {
        {"unknown format number", "99:0,1989,1,0,\"\"," + a + b,
         "Time\n2008/02/25 12:00:00.0 / 3 values without a channel (first in line 2)"},
        {"no first schedule", "10:0,1989,1,0,\"\"," + b,
         "Time\n2008/02/25 12:00:00.0 / 3 values without a channel (first in line 2)"},
        {"more values than channels", "10:0,1989,1,0,\"\"," + b + a,
         "Time|A.a(u)|B.b(u)\n2008/02/25 12:00:00.0|1.5|3"
         " / 1 value without a channel (in line 2)"},
    };
    for (const auto& [name, map, expected] : cases) {
        const LoadOutcome outcome = load("a.dlr", "S,0,0," + map +
                                                      ":\nD,1,2008/02/25,12:00:00,0.0,1:A,0,1.5,2\n"
                                                      "D,1,2008/02/25,12:00:00,0.0,1:B,0,3\n");
        EXPECT_EQ(gridText(*grid) + passedOver(outcome), expected) << name;
    }
}

TEST_F(ReplayLoaderTest, CountsTheLinesThatMakeNoRows) {
    const std::string d = "D,1,2008/02/25,12:00:00,0.0,1:A,0,1";
    const LoadOutcome outcome =
        load("a.dlr", kGenerated + "\n</ALL_DATA>\nA,1,2008/02/25,12:00:00,0.0,1:A,1,1,\"x\"\n" +
                          d + "\n" + d + "\nnotes\nA\n[7]\n[7]D,1\n" + d + ",2\n");
    EXPECT_EQ(passedOver(outcome),
              " / 1 repeated line (in line 15) / 1 alarm among readings (in line 13)"
              " / 2 lines of unknown kind (first in line 16)"
              " / 1 line without time or status (in line 19)");
    EXPECT_EQ(passedOver(load("a.dlr", d + "\n" + kGenerated + d + ",2\n")),
              " / 1 line of values above the data (in line 1)");
    chooser.take = {0, 1, 2};
    const LoadOutcome cut =
        load("a.dlr", kGenerated + "\n" + d + std::string(2 << 20, ' ') + ",2\n" + d +
                          std::string(LineReader::kMaximumLine, ',') + "5\n");
    EXPECT_EQ(cut.rows, 2);
    EXPECT_EQ(cell(1, 0) + ' ' + cell(2, 0), "00:00:01 00:00:02");
    EXPECT_EQ(passedOver(cut), " / 1 line cut because it is too long (in line 13)");
}

TEST_F(ReplayLoaderTest, ALargeFileLoadsTheChosenChannelsInFileOrder) {
    std::string map = "S,0,0,10:0,1989,1,0,\"\",<A,\"1S\",G,<\"a\",\"u\",0,0,8,4,1>,"
                      "<\"hidden\",\"u\",0,0,8,4,2>,<\"b\",\"u\",0,0,8,4,1>>"
                      "<B,\"1S\",G,<\"c\",\"u\",0,0,8,4,1>,<\"d{1}\",\"u\",0,0,8,4,1>>:\n";
    std::string bytes = "<IDATA_MAP type=\"ql5xx\">\n" + map + "<ALL_DATA>\n";
    char line[128];
    for (int i = 0; bytes.size() <= 16'384'000; ++i) {
        std::snprintf(line, sizeof line,
                      "D,1,2008/02/%02d,%02d:%02d:%02d,0.000000,1:%c,0,%d.5,$0,7\n", i / 86400 + 1,
                      i / 3600 % 24, i / 60 % 60, i % 60, i % 2 ? 'B' : 'A', i);
        bytes += line;
    }
    load("large.dlr", bytes);
    EXPECT_EQ(messages.texts, "Attention: No channels selected\n");
    EXPECT_EQ(chooser.offered,
              (std::vector<std::string>{"A.a(u){0}", "A.b(u){1}", "B.c(u){0}", "B.d{1}(u){1}"}));

    chooser.take = {1, 3};
    LoadOutcome outcome = load("large.dlr", bytes);
    EXPECT_TRUE(outcome.largeFile);
    EXPECT_EQ(outcome.lineCount, 999999);
    EXPECT_EQ(grid->column(2).label(), "B.d{1}(u)");
    EXPECT_EQ(cell(1, 0) + cell(2, 0) + "," + cell(1, 1) + cell(2, 1), "7,7");

    chooser.take = {0};
    outcome = load("large.dlr", bytes);
    EXPECT_EQ(cell(0, 1), "2008/02/01 00:00:02.000000");
    EXPECT_EQ(cell(1, 1), "2.5");
}

TEST_F(ReplayLoaderTest, AlarmsKeepARowEach) {
    const LoadOutcome outcome =
        load("a.dlr", "<Type>Alarm</Type>\nS,0,0,10:0,1989,1,0,\"\",<A>:\n"
                      "A,1,\"JOB1\",2008/02/25,11:00:00,0.250000,0:A,12,2,\"Level, high\";1A2B\r\n"
                      "A,1,\"JOB1\",2008/02/25,11:00:00,0.250000,0:A,12,2,\"Level, high\";1A2B\r\n"
                      "A,1,2008/02/25,11:00:00,0.250000,1:B,20,10,Door open;FF\n"
                      "A,1,2008/02/25,11:00:00,0.250000,1:B,20,10,\"Door; open\"\n"
                      "A,1,604886400,1:B,7;1A2B\n"
                      "A,1,2008/02/25,11:00:01,0.0,1:B,2,1,Door;open,twice\n"
                      "A,1,\"J\",2008/02/25,11:00:01,0.0,3:A,1,1,skipped\n"
                      "D,1,2008/02/25,11:00:01,0.0,1:A,1,1,other\n"
                      "[7]A,1,\"J\",2008/02/25,11:00:02,0.0,1:K,1\n");
    EXPECT_EQ(gridText(*grid), "Time|Job|Schedule|Real Time|Alarm Number|Alarm Type|Alarm Message\n"
                               "2008/02/25 11:00:00.250000|JOB1|A|0|12|2|Level, high\n"
                               "2008/02/25 11:00:00.250000||B|1|20|10|Door open\n"
                               "2008/02/25 11:00:00.250000||B|1|20|10|Door; open\n"
                               "2008/03/03 00:00:00||B|1|7||\n"
                               "2008/02/25 11:00:01.0||B|1|2|1|Door\n"
                               "2008/02/25 11:00:02.0|J|K|1|1||");
    EXPECT_EQ(progress.log, "Loading Pellam|Loading...|1..9\nLoaded 1 Lines\n");
    EXPECT_EQ(passedOver(outcome),
              " / 1 repeated line (in line 4) / 1 line of status 3 or 4 (in line 9)"
              " / 1 reading among alarms (in line 10)"
              " / 1 value without a channel (in line 8)"
              " / 1 value that is neither number nor text (in line 8)");
}

} // namespace
} // namespace pellam
