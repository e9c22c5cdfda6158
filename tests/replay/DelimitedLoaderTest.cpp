#include "LoadHarness.h"
#include "delimited/layout/LayoutText.h"

namespace pellam {
namespace {

using test::LoadTest;

class DelimitedLoaderTest : public LoadTest {};

TEST_F(DelimitedLoaderTest, ReadsEveryFormOfDelimitedText) {
    const std::string time = "2008/02/25 11:00:00";
    const Table<const char*, const char*, char, char, std::string, std::string> cases = {
        {"plain", "a.csv", '.', ',', "Time,T(degC),F(l/s)\n" + time + ",12.500,3.000\n",
         "Time|T(degC)|F(l/s)\n" + time + "|12.5|3"},
        {"tabs in .TXT", "a.TXT", '.', ',', "Time\tT,x\r\n" + time + "\t1.5\r\n",
         "Time|T,x\n" + time + "|1.5"},
        {"decimal commas", "a.csv", ',', ';', "Time;A;B;C\n" + time + ";1234,50;1.234,50;-0,10\n",
         "Time|A|B|C\n" + time + "|1234,5|1234,5|-0,1"},
        {"points that group nothing are decimal ones", "a.csv", ',', ';',
         "Time;A;B\nx;12.34;1.2345\n", "Time|A|B\nx|12,34|1,2345"},
        {"values stay what they are", "a.csv", '.', ',',
         "Time,A,B,C,D,E,F\nx,1.50E+10,10.0.0.10,100,12:30:00.50,+1.50,007.10\n",
         "Time|A|B|C|D|E|F\nx|1.50E+10|10.0.0.10|100|12:30:00.50|+1.5|007.1"},
        {"empty fields keep their place", "a.csv", '.', ',', "Time,A,B,C\nx,,2,\ny,,,3\n",
         "Time|A|B|C\nx||2|\ny|||3"},
        {"quoted fields", "a.csv", '.', ',', "Time,\"A, raw\",B\nx,\"1,5\",\"on\"\n",
         "Time|A, raw|B\nx|1.5|on"},
        {"duplicates, gaps and blank lines make no rows", "a.csv", '.', ',',
         "Time,A\nx,1\nx,1\n\ny,Discontinuity\nx,1\n", "Time|A\nx|1"},
        {"a word of its own is no gap", "a.csv", '.', ',', "Time,A\nx,Disc\n", "Time|A\nx|Disc"},
        {"separator after the last heading", "a.csv", '.', ',', "Time,A,\nx,1,\ny,2,\n",
         "Time|A\nx|1\ny|2"},
        {"fields behind the headings", "a.csv", '.', ',', "Time,A,\nx,1,2,3\n",
         "Time|A|Column 3|Column 4\nx|1|2|3"},
        {"short rows", "a.csv", '.', ',',
         "Time,A,B\n" + time + "\n" + time + ".5,1\n" + time + ".6,1,2\n",
         "Time|A|B\n" + time + "||\n" + time + ".5|1|\n" + time + ".6|1|2"},
        {"headings alone", "a.csv", '.', ',', "Time,A\n", "Time|A"},
        {"no headings", "a.csv", '.', ',', time + ",1\n" + time + ".5,2\n",
         "Time|Channel 1\n" + time + "|1\n" + time + ".5|2"},
        {"returns as line ends", "a.csv", '.', ',', "Time,A\rx,1\ry,2\r", "Time|A\nx|1\ny|2"},
        {"time text as it stands", "a.csv", '.', ',', "Time,A\n25.02.2008 11:00:00.500,1\n",
         "Time|A\n25.02.2008 11:00:00.500|1"},
        {"another country's file shows this user's numbers", "a.csv", '.', ',',
         "Time;A;B\n" + time + ",5;1.234,50;x\n", "Time|A|B\n" + time + ",5|1234.5|x"},
        {"and the other way round", "a.csv", ',', ';', "Time,A\n" + time + ",1.50\n",
         "Time|A\n" + time + "|1,5"},
        {"tabs in a .csv", "a.csv", '.', ',', "Time\tA\n" + time + "\t1.5\n",
         "Time|A\n" + time + "|1.5"},
        {"blanks and tabs in texts", "a.csv", '.', ',',
         "Time,A,B,C\n" + time + ",-12.65,\"\t ,\t\"\";\",x\n" + time + ".1,x,x,\"\t\ta\"\"b\"\n" +
             time + ".2,68.67,-44.6,\",;,\"\n" + time + ".3,b\ta,,\"  ,\t\"\n",
         "Time|A|B|C\n" + time + "|-12.65|\t ,\t\";|x\n" + time + ".1|x|x|\t\ta\"b\n" + time +
             ".2|68.67|-44.6|,;,\n" + time + ".3|b\ta||  ,\t"},
        {"one column", "a.csv", '.', ',', "Time\n" + time + "\n", "Time\n" + time},
        {"blank lines before the headings", "a.csv", '.', ',',
         "\r\n;;;\r\nTime;A\r\n" + time + ";1,5\r\n", "Time|A\n" + time + "|1.5"},
    };
    for (const auto& [name, file, decimal, list, bytes, expected] : cases) {
        useSeparators(decimal, list);
        const LoadOutcome outcome = load(file, bytes);
        EXPECT_TRUE(outcome.loaded) << name;
        EXPECT_EQ(gridText(*grid), expected) << name;
        EXPECT_EQ(messages.texts, "") << name;
    }
}

TEST_F(DelimitedLoaderTest, FollowsLayoutsThatAreNotPlain) {
    const Table<const char*, std::string, std::string> cases = {
        {"preamble, date and time apart, units",
         "Site;7\n\nNr;Date;Time;T;F\n;;;degC;m/s\n1;25.02.2008;11:00:00;1,50;x\n"
         "2;25.02.2008;11:10:00;-2,25;\n",
         "Date Time|Nr|T (degC)|F (m/s)\n25.02.2008 11:00:00|1|1.5|x\n25.02.2008 "
         "11:10:00|2|-2.25|"},
        {"parts of a time stay, last and unchecked",
         "Year,Month,Day,Hour,A\n2008,2,25,9,1\n"
         "2008,2,25,10,2\n",
         "Year Month Day Hour|A|Year|Month|Day|Hour\n2008/02/25 09:00:00|1|2008|2|25|9\n"
         "2008/02/25 10:00:00|2|2008|2|25|10"},
        {"an epoch", "V,ts\n1.5,1576333020\n1.6,1576334820\n",
         "ts|V|ts\n2019/12/14 14:17:00|1.5|1576333020\n2019/12/14 14:47:00|1.6|1576334820"},
        {"no time", "A,B\n1.5,2\n1.6,3\n", "Row|A|B\n1|1.5|2\n2|1.6|3"},
        {"a longer row and a late value in an empty column",
         "A,,Time\n1,,2008/02/25 11:00:00\n3,,2008/02/25 11:00:01\n2,5,2008/02/25 11:00:02,9\n",
         "Time|A|Column 2|Column 4\n2008/02/25 11:00:00|1||\n2008/02/25 11:00:01|3||\n"
         "2008/02/25 11:00:02|2|5|9"},
        {"lines in a field, stray marks",
         "N,Time\n\"a\n\"\"b\"\"\",2008/02/25 11:00:00\n5\" pipe,2008/02/25 11:00:01\n",
         "Time|N\n2008/02/25 11:00:00|a \"b\"\n2008/02/25 11:00:01|5\" pipe"},
        {"headings again, comments, blank and equal lines, a footer",
         "# x\nN,Time\n1,2008/02/25 11:00:00\n1,2008/02/25 11:00:00\n\n# y\nN,Time\n"
         "2,2008/02/25 11:00:01\n3,2008/02/25 11:00:02\nN is a number\n",
         "Time|N\n2008/02/25 11:00:00|1\n2008/02/25 11:00:01|2\n2008/02/25 11:00:02|3"},
    };
    for (const auto& [name, bytes, expected] : cases) {
        const LoadOutcome outcome = load("a.txt", bytes);
        EXPECT_TRUE(outcome.loaded) << name << messages.texts;
        EXPECT_EQ(gridText(*grid), expected) << name;
        EXPECT_FALSE(outcome.layout.plain) << name;
        std::string passed;
        for (const std::string& cause : outcome.passedOver.texts())
            passed += cause + '\n';
        const bool counted = std::string_view(name).starts_with("headings again");
        EXPECT_EQ(passed, counted ? "1 repeated line (in line 4)\n"
                                    "1 repeated line of headings (in line 7)\n"
                                    "1 comment line (in line 6)\n"
                                    "1 footer line (in line 10)\n"
                                    "1 blank line (in line 5)\n"
                                  : "")
            << name;
    }
    load("parts.csv", "Year,Month,Day,A\n2008,2,25,1\n2008,2,26,2\n");
    EXPECT_TRUE(grid->column(1).charted());
    EXPECT_FALSE(grid->column(2).charted());
}

TEST_F(DelimitedLoaderTest, TellsDecimalPointsFromThoseThatGroupThousands) {
    useSeparators(',', ';');
    const std::string time = "2008/02/25 11:00:00;";
    std::string far; // of more than both ends of the file
    for (int i = 0; i < 9000; ++i)
        far += "2008/02/25 11:00:00," + std::to_string(100000 + i) + ";1.234\n";
    const Table<const char*, std::string, std::string, std::string> cases = {
        {"user's own", time + "1.234,50\n" + time + "2.345\n", "1234,5 2345", ""},
        {"all group", time + "1.234\n" + time + "12.750\n" + time + "950\n", "1234 12750 950",
         "points group thousands"},
        {"quoted", time + "\"1.234\"\n" + time + "\"12.750\"\n", "1234 12750",
         "points group thousands"},
        {"twice", time + "1.234.567\n" + time + "12.750\n", "1234567 12750", ""},
        {"one begins with 0", time + "0.123\n" + time + "233.062\n", "0,123 233,062",
         "decimal point"},
        {"one has two decimals", time + "236.04\n" + time + "233.062\n", "236,04 233,062",
         "decimal point"},
        {"one has an exponent", time + "-9.00000E9\n" + time + "233.062\n", "-9,00000E9 233,062",
         "decimal point"},
        {"quoted decimals", time + "\"236.04\"\n" + time + "\"233.062\"\n", "236,04 233,062",
         "decimal point"},
        {"one long number has none", time + "1500\n" + time + "1.250\n", "1500 1,25",
         "decimal point"},
        {"both marks", time + "12,5\n" + time + "13,5\n" + time + "233.062\n" + time + "236.04\n",
         "12,5 13,5 233,062 236,04", "decimal comma, points and commas as decimal marks"},
        {"told by the end of the file", far + time + "236.04\n", "1,234", "decimal point"},
    };
    for (const auto& [name, rows, expected, note] : cases) {
        for (const char separator : {';', '\t'}) {
            std::string bytes = "Time;A\n" + rows;
            std::replace(bytes.begin(), bytes.end(), ';', separator);
            const LoadOutcome outcome = load(separator == ';' ? "a.csv" : "a.txt", bytes);
            std::string shown = cell(1, 0);
            for (Row row = 1; row < grid->rowCount() && row < 5; ++row)
                shown += ' ' + cell(1, row);
            EXPECT_EQ(shown.substr(0, expected.size()), expected) << name;
            const std::string by = separator == ';' ? "semicolon, " : "tab, ";
            EXPECT_EQ(layoutSummary(outcome.layout),
                      note.empty() ? note : "Separated by " + by + note)
                << name;
        }
    }
    load("a.csv", "Time,A\n2008/02/25 11:00:00,1.234\n2008/02/25 11:00:01,12.750\n");
    EXPECT_EQ(cell(1, 0) + ' ' + cell(1, 1), "1,234 12,75");
    useSeparators('.', ',');
    load("a.csv", "Time,A,B\n2008/02/25 11:00:00,\"1,234\",1.5\n");
    EXPECT_EQ(cell(1, 0) + ' ' + cell(2, 0), "1,234 1.5");
}

TEST_F(DelimitedLoaderTest, SaysWhatIsNoTable) {
    EXPECT_FALSE(load("a.csv", "<html><body>404</body></html>\n").loaded);
    EXPECT_NE(messages.texts.find("looks like a web page"), std::string::npos) << messages.texts;
    EXPECT_EQ(grid->rowCount(), 0);
}

TEST_F(DelimitedLoaderTest, TellsOfHeadingsBehindWhatWasLookedAt) {
    std::string rows;
    for (int i = 0; i < 6000; ++i)
        rows += "2021-03-01 " + std::to_string(10 + i / 3600) + ':' +
                std::to_string(10 + i / 60 % 50) + ':' + std::to_string(10 + i % 50) + ",1." +
                std::to_string(i) + '\n';
    for (const std::string top : {"Time,A\n", "Mast\nTime,A\n"}) {
        const LoadOutcome outcome = load("a.csv", top + rows + "Stamp,P\n" + rows);
        const auto line = static_cast<std::int64_t>(top.size() > 7 ? 6003 : 6002);
        EXPECT_EQ(outcome.layout.furtherTables, std::vector{line});
        EXPECT_EQ(outcome.rows, 12001) << "nothing is left out";
    }
}

TEST_F(DelimitedLoaderTest, TellsFirstAndLastTimeOfEveryForm) {
    const Table<const char*, const char*, const char*> rows = {
        {"2008/02/25 11:00:00.500\n2008/02/25 11:00:01\n", "2008/02/25 11:00:00.500",
         "2008/02/25 11:00:01"},
        {"2008-02-25T11:00:00+02:00\n2008-02-25T11:00:01.25+02:00\n", "2008/02/25 11:00:00",
         "2008/02/25 11:00:01.250"},
        {"25/02/2008 12:03\n26/02/2008 12:03\n", "2008/02/25 12:03:00", "2008/02/26 12:03:00"},
        {"02/25/2008\n02/26/2008\n", "2008/02/25 00:00:00", "2008/02/26 00:00:00"},
        {"1576333020\n1576334820\n", "2019/12/14 14:17:00", "2019/12/14 14:47:00"},
        {"10:17:22.207\n10:17:23\n", "10:17:22.207", "10:17:23"},
        {"0:00:00\n0:00:10\n", "0", "10"},
        {"north\nsouth\n", "", ""},
        {"1\n2\n", "1", "2"},
    };
    for (const auto& [times, first, last] : rows) {
        const LoadOutcome outcome = load("a.csv", std::string("Time\n") + times);
        EXPECT_EQ(outcome.firstTime, first) << times;
        EXPECT_EQ(outcome.lastTime, last) << times;
    }
}

TEST_F(DelimitedLoaderTest, GreyRowsAndAxesAndTheCornerMark) {
    grey = true;
    load("a.csv", "Time,T(C),F(l/s),U(C),L,S(m/s)\nx,1,2,3,4,5\n");
    EXPECT_EQ(gridText(*grid), "Time|T(C)|F(l/s)|U(C)|L|S(m/s)\n~x|~1|~2|~3|~4|~5");
    std::string axes;
    for (int c = 1; c <= 5; ++c)
        axes += std::to_string(grid->column(c).axis());
    EXPECT_EQ(axes, "12131");
    EXPECT_TRUE(grid->changed());
    EXPECT_EQ(grid->columnCount(), GridData::kMinimumColumns);

    load("b.csv", "Time,a(l/s),F (in) (l/s),P(),a (b,N,Z\nx,1,2,3,4,5,6\n");
    axes.clear();
    for (int c = 1; c <= 5; ++c)
        axes += std::to_string(grid->column(c).axis());
    EXPECT_EQ(axes, "11212");
}

TEST_F(DelimitedLoaderTest, UnitsInEveryFormGroupTheAxes) {
    load("a.csv", "Time,A (m/s),B [m/s],\"C, m/s\",\"D, m/s (S/N: 1)\",\"E, raw\",F,G (x) [m/s],H\n"
                  "2008/02/25 11:00:00,1,2,3,4,5,6,7,8\n");
    std::string axes;
    for (int c = 1; c <= 7; ++c)
        axes += std::to_string(grid->column(c).axis());
    EXPECT_EQ(axes, "1111221");
}

TEST_F(DelimitedLoaderTest, AnAbortedLoadKeepsWhatCameBefore) {
    std::string bytes = "Time,A\n";
    for (int i = 0; i < 5000; ++i)
        bytes += std::to_string(i) + "," + std::to_string(i) + "\n";
    progress.abortAfter = 2;
    const LoadOutcome outcome = load("a.csv", bytes);
    EXPECT_TRUE(outcome.loaded);
    EXPECT_TRUE(outcome.aborted);
    EXPECT_GT(outcome.rows, 0);
    EXPECT_LT(outcome.rows, 5000);
    EXPECT_EQ(cell(1, outcome.rows - 1), std::to_string(outcome.rows - 1));
}

TEST_F(DelimitedLoaderTest, RefusalsAreShownAndLeaveAnEmptyGrid) {
    load("before.csv", "Time,A\nx,1\n");
    load("empty.csv", "");
    load("blank.txt", "\n\t\n");
    std::filesystem::create_directory(folder.path("folder.csv"));
    for (const char* name : {"missing.csv", "folder.csv", "empty.csv", "blank.txt"}) {
        const LoadOutcome outcome = loadFile(folder.path(name));
        EXPECT_FALSE(outcome.loaded);
        EXPECT_NE(messages.texts.find(name), std::string::npos) << messages.texts;
        EXPECT_EQ(grid->rowCount(), 0);
        EXPECT_EQ(grid->channelCount(), 0);
    }
}

TEST_F(DelimitedLoaderTest, FiveThousandColumnsAndLongLines) {
    std::string head = "Time";
    std::string row = "x";
    for (int i = 1; i <= 5000; ++i) {
        head += ",Channel with a longish name " + std::to_string(i);
        row += "," + std::to_string(i);
    }
    load("wide.csv", head + "\n" + row + "\n");
    EXPECT_EQ(grid->channelCount(), 5000);
    EXPECT_EQ(cell(5000, 0), "5000");

    const std::string time = "2008/02/25 11:00:00,";
    const std::string text(std::size_t{20} << 20, 'x');
    const std::string most(LineReader::kMaximumLine, 'y');
    LoadOutcome outcome =
        load("a.csv", "Time,A,B\n" + time + text + ",1\n" + time + most + "\n" + time + "2,3\n");
    EXPECT_EQ(grid->rowCount(), 3);
    EXPECT_TRUE(cell(1, 0) == text && cell(2, 0) == "1" && cell(2, 2) == "3");
    EXPECT_EQ(cell(1, 1).size(), most.size() - time.size());
    EXPECT_EQ(outcome.passedOver.texts(),
              std::vector<std::string>{"1 line cut because it is too long (in line 3)"});

    outcome = load("b.csv", "Time,A\n" + time + "1\n" + time + std::string(200'000, ',') + "7,8\n");
    EXPECT_LE(grid->columnCount(), GridData::kMaximumColumns);
    EXPECT_EQ(outcome.passedOver.texts(),
              std::vector<std::string>{"2 values without a channel (first in line 3)"});
}

} // namespace
} // namespace pellam
