#include "GridText.h"
#include "OdbcSetup.h"
#include "SessionLoad.h"
#include "SessionRows.h"
#include "ZoneScope.h"
#include "replay/load/ChannelChooser.h"
#include "replay/load/FileLoader.h"

#include <csignal>
#include <filesystem>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pellam {
namespace {

using test::OdbcSetup;
using test::SessionRows;

class SessionTest : public testing::Test, protected test::SessionLoad {
  protected:
    SessionTest() : SessionLoad(m_inline) {}

    void fill(const SessionRows& rows) { odbc.addSqlite("Site", rows.sql()); }

    OdbcSetup odbc;

  private:
    InlineCall m_inline;
};

const SessionRequest kRun{"", "Run"};

TEST_F(SessionTest, WritesReplayText) {
    fill(SessionRows()
             .channels("Run", "A|0|60|Temp|C|2|S|J\n")
             .readings("Run", "0|2008-02-25 10:00:00|0|A|0|Temp|23.4|0|S|J\n"));
    const std::string text = run(kRun);
    EXPECT_TRUE(text.starts_with("Descriptor\nName \"Hembric\"\nLock N\nDesc \"Run\"\n")) << text;
    EXPECT_TRUE(text.ends_with("D,0,2008/02/25,10:00:00,0.000000,1:A,0,23.,$0l:\n")) << text;
    EXPECT_EQ(messages.texts + error, "");
    EXPECT_TRUE(progress.log.starts_with("Loading Session - Run|")) << progress.log;
    EXPECT_TRUE(progress.log.ends_with("\nStarting data retrieval...\n")) << progress.log;
    EXPECT_EQ(progress.open, 0);
}

TEST_F(SessionTest, StatusLine) {
    // schedules: what differs from a line without channels
    const Table<const char*, const char*, const char*> cases = {
        {"value types",
         "A|0|5|a|u|2|S|J\nA|1|5|b|u|4|S|J\nA|2|5|c|u|8|S|J\nA|3|5|d|u|16|S|J\nA|4|5|e|u|3|S|J\n",
         "<A,\"5lS\",G,<\"a\",\"u\",1,0,8,4,1>,<\"b\",\"u\",2,0,8,4,1>,<\"c\",\"u\",3,0,8,4,1>,<"
         "\"d\","
         "\"u\",4,0,8,4,1>,<\"e\",\"u\",0,0,8,4,1>><B>"},
        {"the first of two with one index", "A|7|5|first|u|2|S|J\nA|7|9|second|v|2|S|J\n",
         "<A,\"9lS\",G,<\"first\",\"u\",1,0,8,4,1>><B>"},
        {"by label", "A|-1|5|a|u|2|S|J\nA|-1|5|b|v|2|S|J\n",
         "<A,\"5lS\",G,<\"a\",\"u\",1,0,8,4,1>,<\"b\",\"v\",1,0,8,4,1>><B>"},
        {"what would end a channel", "A|0|5|a<b>|<u>,v|2|S|J\n",
         "<A,\"5lS\",G,<\"a[b]\",\"[u],v\",1,0,8,4,1>><B>"},
        {"a longer name has no entry", "AB|0|5|a|u|2|S|J\n", "<A><B,\"5lS\",G>"},
        {"rates", "B|0|4294967295|a|u|2|S|J\n",
         "<A><B,\"4294967295lS\",G,<\"a\",\"u\",1,0,8,4,1>>"},
    };
    for (const auto& [name, channels, schedules] : cases) {
        odbc.addSqlite(name, SessionRows().channels("Run", channels).sql());
        EXPECT_EQ(status({name, "Run"}), "S,0,0,10:0,1989,1,0,\"\"," + std::string(schedules) +
                                             "<C><D><E><F><G><H><I><J><K><X><V>>:")
            << name;
    }
    fill(SessionRows().channels("Run", "X|0|900|x|u|2|S|J\nV|0|60|v|w|2|S|J\nK|0|7|k|u|2|S|J\n"));
    EXPECT_EQ(status(kRun),
              "S,0,0,10:0,1989,1,0,\"\",<A><B><C><D><E><F><G><H><I><J>"
              "<K,\"7lS\",G,<\"k\",\"u\",1,0,8,4,1>><X,\"900lS\",G,<\"x\",\"u\",1,0,8,4,1>>"
              "<V,\"1S\",G,<\"v\",\"w\",1,0,8,4,1>>>:");
}

TEST_F(SessionTest, DataLines) {
    // data: without "2008/02/25," and the line's ends
    const Table<const char*, const char*, const char*> cases = {
        {"values stay until the next", "1|10:00:00|0|A|0|a|1|0\n1|10:00:01|0|A|1|b|2|7\n",
         "D,1,10:00:00,0.000000,1:A,0,1.,$0l,0.,$4l D,1,10:00:01,0.000000,1:A,0,1.,$0l,2.,$7l"},
        {"parts of a second",
         "1|10:00:00|250|A|0|a|1|0\n1|10:00:00|5|A|0|a|2|0\n1|10:00:00|-1|A|0|a|3|0\n",
         "D,1,10:00:00,0.000000,1:A,0,3.,$0l,0.,$4l D,1,10:00:00,0.5,1:A,0,2.,$0l,0.,$4l "
         "D,1,10:00:00,0.250,1:A,0,1.,$0l,0.,$4l"},
        {"an unknown channel", "1|10:00:00|0|A|9|z|1|0\n1|10:00:01|0|A|1|b|2|0\n",
         "D,1,10:00:00,0.000000,1:A,0,0.,$4l,0.,$4l D,1,10:00:01,0.000000,1:A,0,0.,$4l,2.,$0l"},
        {"a schedule without channels", "1|10:00:00|0|C|0|a|1|0\n", "D,1,10:00:00,0.000000,1:C,0"},
        {"a longer schedule", "1|10:00:00|0|AB|1|b|5|0\n",
         "D,1,10:00:00,0.000000,1:AB,0,0.,$4l,5.,$0l"},
        {"the first address", "4|10:00:00|0|A|0|a|1|0\n5|10:00:00|0|A|1|b|2|0\n",
         "D,4,10:00:00,0.000000,1:A,0,1.,$0l,2.,$0l"},
        {"what would end a field", "4,5|10:00:00|0|A|0|a|1|0\n",
         "D,4.5,10:00:00,0.000000,1:A,0,1.,$0l,0.,$4l"},
        {"no address", "\xC3\xBE|10:00:00|0|A|0|a|1|0\n\xFE|10:00:01|0|A|0|a|1|0\n",
         "D,0,10:00:00,0.000000,1:A,0,1.,$0l,0.,$4l D,0,10:00:01,0.000000,1:A,0,1.,$0l,0.,$4l"},
        {"by label",
         "1|10:00:00|0|B|-1|Lone|3|0\n1|10:00:01|0|B|5|Lone|4|0\n1|10:00:02|0|B|-1|other|5|0\n",
         "D,1,10:00:00,0.000000,1:B,0,3.,$0l,00:00:00,$4l,1899/12/30,$4l "
         "D,1,10:00:01,0.000000,1:B,0,4.,$0l,00:00:00,$4l,1899/12/30,$4l "
         "D,1,10:00:02,0.000000,1:B,0,4.,$0l,00:00:00,$4l,1899/12/30,$4l"},
        {"dates and times of day",
         "1|10:00:00|0|B|8|-|39503.75|0\n1|10:00:00|0|B|9|-|39503.75|-1\n",
         "D,1,10:00:00,0.000000,1:B,0,0.,$4l,18:00:00,$0l,2008/02/25,$4294967295l"},
        {"nulls", "NULL|10:00:00|NULL|A|0|a|NULL|NULL\n",
         "D,,10:00:00,0.000000,1:A,0,0.,$0l,0.,$4l"},
    };
    for (const auto& [name, rows, data] : cases) {
        std::string readings;
        std::istringstream input(rows);
        for (std::string line; std::getline(input, line);)
            readings += line.insert(line.find('|') + 1, "2008-02-25 ") + "|S|J\n";
        odbc.addSqlite(name, SessionRows()
                                 .channels("Run", "A|0|60|a|u|2|S|J\nA|1|60|b|u|2|S|J\n"
                                                  "B|-1|60|Lone|u|2|S|J\nB|8|60|aTime|u|2|S|J\n"
                                                  "B|9|60|DateTime|u|2|S|J\n")
                                 .readings("Run", readings)
                                 .sql());
        std::string expected;
        std::istringstream shown(data);
        for (std::string line; std::getline(shown, line, ' ');)
            expected += line.insert(line.find(',', 2) + 1, "2008/02/25,") + ":\n";
        EXPECT_EQ(lines({name, "Run"}), expected) << name;
        const bool nulls = name == std::string("nulls");
        EXPECT_EQ(passedOver.find("1 reading without a value, shown as 0") == 0, nulls) << name;
    }
}

// As they stand in the database, also where the zone's clocks skip or repeat the hour.
TEST_F(SessionTest, TimesAreThoseOfTheDatabaseInEveryZone) {
    fill(SessionRows()
             .channels("Run", "A|0|60|a|u|2|S|J\n")
             .readings("Run", "1|2008-03-09 02:30:00|0|A|0|a|1|0|S|J\n"
                              "1|2008-07-04T12:00:00.750|0|A|0|a|2|0|S|J\n"
                              "1|2008-10-05 02:30:00|0|A|0|a|3|0|S|J\n"
                              "1|2008-11-02 01:30:00|0|A|0|a|4|0|S|J\n"
                              "1|NULL|0|A|0|a|5|0|S|J\n1|soon|0|A|0|a|5|0|S|J\n"));
    for (const char* zone : {"UTC", "America/New_York", "Australia/Adelaide", "Europe/Dublin"}) {
        const ZoneScope scope(zone);
        EXPECT_EQ(lines(kRun), "D,1,2008/03/09,02:30:00,0.000000,1:A,0,1.,$0l:\n"
                               "D,1,2008/07/04,12:00:00,0.000000,1:A,0,2.,$0l:\n"
                               "D,1,2008/10/05,02:30:00,0.000000,1:A,0,3.,$0l:\n"
                               "D,1,2008/11/02,01:30:00,0.000000,1:A,0,4.,$0l:\n")
            << zone;
        SessionRequest range = kRun;
        range.start = {2008, 10, 5, 2, 30, 0};
        range.end = {2008, 11, 2, 1, 30, 0};
        EXPECT_EQ(lines(range).size(), 2 * 47U) << zone;
    }
    lines(kRun);
    EXPECT_EQ(passedOver, "2 readings without a time (first in row 1)\n");
}

TEST_F(SessionTest, BadInput) {
    odbc.addSource("missing driver", "Missing", "");
    odbc.addSource("gone", "SQLite3", "Database=" + odbc.folder().path("gone.db"));
    odbc.addSqlite("no tables", "CREATE TABLE other(a);");
    odbc.addSqlite("no column",
                   SessionRows().sql() + "ALTER TABLE data_details DROP COLUMN units;");
    const SessionRows rows = SessionRows().channels("Run", "A|0|60|a|u|2|S|J\n");
    odbc.addSqlite("no data column", rows.sql() + "ALTER TABLE data_data DROP COLUMN job;");
    odbc.addSqlite("nothing logged", rows.sql());
    const std::string none = "Warning: No records were found matching the supplied criteria\n";
    const std::string aborted = "Warning: Database exception. Load aborted.\n";
    // message: "=": the driver's own text
    const Table<const char*, const char*, bool, std::string, bool> cases = {
        {"nowhere", "Run", false, "=", true},
        {"missing driver", "Run", false, "=", true},
        {"no tables", "Run", false, "=", true},
        {"no column", "Run", false, "=", true},
        {"nothing logged;UID=me;PWD=secret", "Run", false, "=", true},
        {"gone", "Run", false, "=", true},
        {"no data column", "Run", false, aborted, true},
        {"nothing logged", "Run", true, "", false},
        {"nothing logged", "Ran", false, none, false},
        {"nothing logged", "100%", false, none, false},
        {"nothing logged", "O'Brien", false, none, false},
        {"nothing logged", "\"; DROP TABLE data_data; --", false, none, false},
        {"nothing logged", "x'; DROP TABLE data_data; --", false, none, false},
        {"nothing logged", "Grün\xFF", false, none, false},
    };
    for (const auto& [source, session, good, message, failed] : cases) {
        const std::string text = run({source, session});
        EXPECT_EQ(!text.starts_with("(false)"), good) << source << ' ' << session;
        EXPECT_EQ(messages.texts, message == "=" ? error + "\n" : message) << source;
        EXPECT_EQ(!error.empty(), failed) << source << ' ' << session << ' ' << error;
        EXPECT_EQ(progress.open, 0);
    }
    EXPECT_TRUE(run({"nothing logged", "Run"}).ends_with("<ALL_DATA>\n")) << "nothing was dropped";
    EXPECT_FALSE(std::filesystem::exists(odbc.folder().path("gone.db"))) << "nothing was created";
}

// Values stay in their channels, and what has none is counted.
TEST_F(SessionTest, AChannelWithoutAnEntryTakesNoValue) {
    fill(SessionRows()
             .channels("Run", "AB|0|60|lost|u|2|S|J\nB|1|60|kept|u|2|S|J\n*|0|60|star|u|2|S|J\n"
                              "BA|1|60|else|u|2|S|J\n")
             .readings("Run", "1|2008-02-25 10:00:00|0|B|0|lost|1|0|S|J\n"
                              "1|2008-02-25 10:00:00|0|B|1|kept|2|0|S|J\n"
                              "1|2008-02-25 10:00:00|0|BA|1|else|8|0|S|J\n"
                              "1|2008-02-25 10:00:01|0|B|7|none|3|0|S|J\n"
                              "1|2008-02-25 10:00:02|0|*|0|star|4|0|S|J\n"
                              "1|2008-02-25 10:00:03|0|B|1|kept|5|5000000000|S|J\n"
                              "1|2008-02-25 10:00:04|0|B|1|kept|6|4294967295|S|J\n"
                              "1|2008-02-25 10:00:04|0|B|1|kept|7|4294967295|S|J\n"));
    EXPECT_EQ(lines(kRun), "D,1,2008/02/25,10:00:00,0.000000,1:B,0,2.,$0l:\n"
                           "D,1,2008/02/25,10:00:01,0.000000,1:B,0,2.,$0l:\n"
                           "D,1,2008/02/25,10:00:02,0.000000,1:*,0:\n"
                           "D,1,2008/02/25,10:00:04,0.000000,1:B,0,7.,$4294967295l:\n");
    EXPECT_EQ(passedOver, "1 reading with unreadable numbers (in row 6)\n"
                          "4 readings without a channel (first in row 1)\n"
                          "1 reading replaced by another of its time (in row 7)\n"
                          "1 cell without a reading, shown as the one before (in row 4)\n");
    EXPECT_EQ(messages.texts, "");
}

// As on a full disk: a session that can not be kept whole is not shown in part.
TEST_F(SessionTest, ATemporaryFileThatCanNotBeWrittenIsToldOf) {
    std::string readings;
    for (int i = 0; i < 6000; ++i)
        readings += "1|2008-02-25 10:00:00|" + std::to_string(i) + "|A|0|a|1|0|S|J\n";
    fill(SessionRows().channels("Run", "A|0|60|a|u|2|S|J\n").readings("Run", readings));
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{64 * 1024, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    const std::string text = run(kRun);
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(text.substr(0, 7), "(false)");
    EXPECT_TRUE(messages.texts.starts_with("Warning: /")) << messages.texts;
    EXPECT_NE(messages.texts.find("can not be written"), std::string::npos) << messages.texts;
}

TEST_F(SessionTest, StopsWhenThePersonAsks) {
    fill(SessionRows()
             .channels("Run", "A|0|60|a|u|2|S|J\n")
             .readings("Run", "1|2008-02-25 10:00:00|0|A|0|a|1|0|S|J\n"
                              "1|2008-02-25 10:00:01|0|A|0|a|2|0|S|J\n"));
    progress.abortAfter = 1;
    EXPECT_EQ(run(kRun).substr(0, 7), "(false)");
    progress.asked = 0;
    EXPECT_EQ(lines(kRun), "D,1,2008/02/25,10:00:00,0.000000,1:A,0,1.,$0l:\n")
        << "the line that was begun is written";
}

// The text goes into the grid like any file.
TEST_F(SessionTest, TheReaderTakesAllThatIsWritten) {
    std::string channels;
    std::string readings;
    std::string heading = "Time";
    std::string first = "\n2008/02/25 10:00:00.000000";
    std::string second = "\n2008/02/25 10:00:01.250";
    for (const char letter : std::string("ABCDEFGHIJKXV")) {
        const std::string l(1, letter);
        int number = 0;
        for (const std::string label : {" flow", "Time", "Date"}) {
            const std::string channel = l + "|" + std::to_string(number) + "|";
            channels.append(channel + "60|" + l + label + "|u³|" + std::to_string(2 * number++) +
                            "|S|J\n");
            readings.append("1|2008-02-25 10:00:00|0|" + channel + l + label);
            readings.append(label == " flow" ? "|-12.6|2|S|J\n" : "|39503.75|0|S|J\n");
        }
        heading += "|" + l + "." + l + " flow(u³)|" + l + "." + l + "Time.Time(u³)|" + l + "." + l +
                   "Date.Date(u³)";
        first += "|-13|18:00:00|2008/02/25";
        // The second line repeats what it has no reading for.
        second += letter == 'A' ? "|inf|18:00:00|2008/02/25" : "|||";
    }
    fill(SessionRows()
             .channels("Run", channels)
             .readings("Run", readings + "1|2008-02-25 10:00:01|250|A|0|A flow|9e999|0|S|J\n"));
    CSessionFromDatabase session({messages, progress, m_call, login});
    SessionRequest request = kRun;
    request.dataSource = "Site";
    ASSERT_TRUE(session.CreateFileFromDatabaseSession(request));
    GridData grid('.');
    InternationalSettings international;
    AllChannels all;
    FileLoader loader({grid, international, messages, progress, all});
    ASSERT_TRUE(loader.load(session.TempFileName()).loaded) << messages.texts;
    EXPECT_EQ(gridText(grid), heading + first + second);
}

TEST_F(SessionTest, TheFileIsForTheUserAloneAndLeavesNothing) {
    fill(SessionRows().channels("Run", "A|0|60|a|u|2|S|J\n"));
    const ScratchFolder folder;
    const std::string before = std::getenv("TMPDIR");
    ::setenv("TMPDIR", folder.path().c_str(), 1);
    {
        CSessionFromDatabase session({messages, progress, m_call, login});
        ASSERT_TRUE(session.CreateFileFromDatabaseSession({"Site", "Run"}));

        struct stat facts = {};

        ASSERT_EQ(::stat(session.TempFileName().c_str(), &facts), 0);
        EXPECT_EQ(facts.st_mode & 07777, 0600U);
        EXPECT_GT(facts.st_size, 0);
        session.RemoveTempFile();
        EXPECT_EQ(session.TempFileName(), "");
    }

    // A program that is killed in the middle of a load.
    struct Killed : SilentProgress {
        void addString(std::string_view) override { ::raise(SIGKILL); }
    };

    const pid_t child = ::fork();
    if (child == 0) {
        Killed killed;
        CSessionFromDatabase({messages, killed, m_call, login})
            .CreateFileFromDatabaseSession({"Site", "Run"});
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(folder.list(), "");
    ::setenv("TMPDIR", before.c_str(), 1);
    EXPECT_EQ(messages.texts, "");
}

} // namespace
} // namespace pellam
