#include "BatchFixture.h"
#include "database/SessionRows.h"

namespace pellam {
namespace {

class BatchSessionTest : public BatchFixture {
  protected:
    BatchSessionTest() {
        test::SessionRows rows;
        rows.channels("Run1", "A|0|60|Temp|degC|1|North|Dip\n"
                              "A|1|60|Wind Ü|m/s|1|South|Dip\n"
                              "B|-1|300|Rain|mm|1|North|Flow\n");
        rows.readings("Run1", "0|2024-03-01 10:00:00|0|A|0|Temp|12.6|0|North|Dip\n"
                              "0|2024-03-01 10:00:00|0|A|1|Wind Ü|3|0|South|Dip\n"
                              "0|2024-03-01 10:05:00|0|B|-1|Rain|7|0|North|Flow\n"
                              "0|2024-03-01 10:06:00|0|A|0|Temp|14|2|North|Dip\n");
        rows.channels("Run 100%", "A|0|60|Load|kN|1|Yard|Crane\n");
        rows.readings("Run 100%", "0|2024-04-01 08:00:00|25|A|0|Load|5|0|Yard|Crane\n");
        m_odbc.addSqlite("Site", rows.sql() + "INSERT INTO data_header(session_id) VALUES "
                                              "('Run1'), ('Ünder ''5'''), ('Run1');");
        m_odbc.addSqlite("Empty", "CREATE TABLE other(x);");
        m_odbc.addSqlite("Half", test::SessionRows().channels("Run1", "A|0|1|T|C|1|N|J").sql() +
                                     "DROP TABLE data_data;");
        m_odbc.addSqlite("Bare", test::SessionRows().channels("Run1", "A|0|1|T|C|1|N|J").sql());
        // Its third reading can not be computed.
        test::SessionRows three;
        three.channels("Run1", "A|0|1|T|C|1|N|J\n");
        three.readings("Run1", "0|2024-03-01 10:00:00|0|A|0|T|1|0|N|J\n"
                               "0|2024-03-01 10:00:01|0|A|9|T|2|0|N|J\n"
                               "0|2024-03-01 10:00:02|0|A|0|T|3|0|N|J\n");
        m_odbc.addSqlite("Torn", three.sql() + test::SessionRows::failingAt(3));
        m_odbc.addSource("Gone", "Missing", "");
    }

    test::OdbcSetup m_odbc;
};

TEST_F(BatchSessionTest, EveryOutputComesFromOneLoad) {
    EXPECT_EQ(run("--dsn Site --session Run1 --info --export out.csv --dump-replay out.dlr "
                  "--chart out.svg --print out.pdf"),
              0)
        << m_err;
    EXPECT_EQ(m_err, "");
    EXPECT_EQ(m_folder.read("out.csv"), "Time,A.Temp(degC),A.Wind Ü(m/s),B.Rain(mm),\r\n"
                                        "2024/03/01 10:00:00.000000,13,3,,\r\n"
                                        "2024/03/01 10:05:00.000000,,,7,\r\n"
                                        "2024/03/01 10:06:00.000000,14,3,,\r\n");
    EXPECT_TRUE(m_out.starts_with("data source: Site\nsession: Run1\nsize: ")) << m_out;
    EXPECT_NE(m_out.find("\nchannel: B.Rain(mm)\n"), std::string::npos) << m_out;
    EXPECT_NE(m_folder.read("out.dlr").find("\nD,0,2024/03/01,10:06:00,0.000000,1:A,0,14.,$2l,"),
              std::string::npos)
        << m_folder.read("out.dlr");
    EXPECT_NE(m_folder.read("out.svg").find("Run1"), std::string::npos) << "its title";
    EXPECT_TRUE(m_folder.read("out.pdf").starts_with("%PDF-"));

    EXPECT_EQ(run("--export again.csv out.dlr"), 0) << m_err;
    EXPECT_EQ(m_folder.read("again.csv"), m_folder.read("out.csv"));
}

TEST_F(BatchSessionTest, OptionsNarrowTheReadings) {
    // times: minutes past ten of the rows, and the channels
    const Table<const char*, const char*> rows = {
        {"--site North", "00 05 06 A.Temp(degC) B.Rain(mm)"},
        {"--site S*", "00 A.Wind Ü(m/s)"},
        {"--job F?ow", "05 B.Rain(mm)"},
        {"--schedule A", "00 06 A.Temp(degC) A.Wind Ü(m/s)"},
        {"--label 'Wind Ü'", "00 A.Wind Ü(m/s)"},
        {"--label '*' --site '*'", "00 05 06 A.Temp(degC) A.Wind Ü(m/s) B.Rain(mm)"},
        {"--from 2024/03/01,10:05:00", "05 06 A.Temp(degC) A.Wind Ü(m/s) B.Rain(mm)"},
        {"--to 2024/03/01,10:05:00", "00 05 A.Temp(degC) A.Wind Ü(m/s) B.Rain(mm)"},
        {"--channels '*Rain*' --from 2024/03/01,10:05:00 --to 2024/03/01,10:05:00",
         "05 B.Rain(mm)"},
    };
    for (const auto& [options, times] : rows) {
        EXPECT_EQ(
            run(std::string("--dsn Site --session 'Run?' --export out.csv --info ") + options), 0)
            << options << '\n'
            << m_err;
        std::string found;
        const std::string text = m_folder.read("out.csv");
        for (auto at = text.find(" 10:"); at != std::string::npos; at = text.find(" 10:", at + 1))
            found += text.substr(at + 4, 2) + ' ';
        for (auto at = m_out.find("channel: "); at != std::string::npos;
             at = m_out.find("channel: ", at + 1))
            found += m_out.substr(at + 9, m_out.find('\n', at) - at - 9) + ' ';
        EXPECT_EQ(found, std::string(times) + ' ') << options;
    }
}

TEST_F(BatchSessionTest, SessionsAreListedAsTheyStand) {
    EXPECT_EQ(run("--list-sessions --dsn Site"), 0) << m_err;
    EXPECT_EQ(m_out, "Run1\nÜnder '5'\nRun1\n");
    EXPECT_EQ(run("--dsn=Site --session='Run 100%' --dump-replay out.dlr"), 0) << m_err;
    EXPECT_NE(m_folder.read("out.dlr").find(",08:00:00,0.25,1:A,0,5.,$0l:"), std::string::npos);
    EXPECT_EQ(run("--dsn Site --session Run1 --dump-replay no/such.dlr"), 1);
    EXPECT_EQ(m_err, "no/such.dlr can not be written: No such file or directory.\n");
}

TEST_F(BatchSessionTest, WhatIsMissingIsTold) {
    EXPECT_EQ(run("--dsn Torn --session Run1 --info --export out.csv"), 1);
    EXPECT_TRUE(m_err.starts_with("Warning: Database exception. Load aborted.\n[SQLite]")) << m_err;
    EXPECT_EQ(m_folder.read("out.csv"), "Time,A.T(C),\r\n2024/03/01 10:00:00.000000,1,\r\n");
    EXPECT_NE(m_out.find("\nincomplete: the database failed while it was read\n"
                         "passed over: 1 reading without a channel (in row 2)\n"),
              std::string::npos)
        << m_out;
}

TEST_F(BatchSessionTest, FailuresAreToldInTheDriversWords) {
    // error: part of what is told
    const Table<const char*, const char*> rows = {
        {"--dsn Unknown --session Run1", "[unixODBC][Driver Manager]Data source name not found"},
        {"--dsn Gone --session Run1", "libmissing.so"},
        {"--dsn Empty --session Run1", "data_details"},
        {"--dsn Half --session Run1", "Warning: Database exception. Load aborted.\n["},
        {"--dsn Site --session None",
         "Warning: No records were found matching the supplied criteria\n"},
        {"--dsn Site --session \"O'Hara\"",
         "Warning: No records were found matching the supplied criteria\n"},
        {"--dsn Bare --session Run1", "Attention: There are no readings in the session\n"},
        {"--dsn 'Site;PWD=secret' --session Run1", "can not hold ';'"},
        {"--dsn Empty --list-sessions", "data_header"},
    };
    for (const auto& [arguments, error] : rows) {
        const bool list = std::string_view(arguments).ends_with("sessions");
        EXPECT_EQ(run(std::string(arguments) + (list ? "" : " --export out.csv")), 1) << arguments;
        EXPECT_NE(m_err.find(error), std::string::npos) << arguments << '\n' << m_err;
        EXPECT_EQ(m_out, "") << arguments;
    }
}

} // namespace
} // namespace pellam
