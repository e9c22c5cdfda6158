// The same sessions from SQLite, PostgreSQL and MariaDB, and what happens when a server goes away.

#include "DatabaseServer.h"
#include "OdbcSetup.h"
#include "SessionLoad.h"
#include "SessionRows.h"
#include "database/odbc/BackgroundCall.h"
#include "database/odbc/OdbcConnection.h"
#include "database/sessions/SessionLists.h"
#include "database/sessions/SessionTables.h"

#include <algorithm>

namespace pellam {
namespace {

using test::DatabaseServer;
using test::OdbcSetup;
using test::SessionLoad;
using test::SessionRows;
using Engine = DatabaseServer::Engine;

// Every kind of text, null, schedule and match by index or label.
std::string oddSession() {
    return SessionRows()
               .channels("Grün 100% \"q\"", "A|0|60|Témp|°C|0|S|J\nA|-1|60|La'b|µg/m³|0|S|J\n"
                                            "A|-1|60|units|x|0|S|J\nB|3|3600|Wind \"N\"|m/s|0|S|J\n"
                                            "AB|4|60|two|u|0|S|J\nX|0|900|bTime|h|2|S|J\n")
               .readings("Grün 100% \"q\"",
                         "7|2008-02-25 10:00:00|250|A|0|Témp|23.4|0|S|J\n"
                         "7|2008-02-25 10:00:00|0|A|9|La'b|-0.5|7|S|J\n"
                         "7|2008-02-25 10:00:00|0|A|8|units|1e17|1|S|J\n"
                         "NULL|2008-07-04 23:59:59|NULL|X|0|NULL|39503.75|NULL|S|J\n"
                         "7|2008-03-09 02:30:00|0|B|3|Wind|2.5|0|S|J\n"
                         "7|NULL|0|B|3|Wind|9|0|S|J\n")
               .sql() +
           "ALTER TABLE data_data ADD padded CHAR(9);\nUPDATE data_data SET padded = 'A';\n";
}

constexpr const char* kOddText = R"(Descriptor
Name "Hembric"
Lock N
Desc "Grün 100% "q""
EndDescriptor

<IDATA_MAP>
S,0,0,10:0,1989,1,0,"",<A,"60lS",G,<"La'b","µg/m³",0,0,8,4,1>,<"units","x",0,0,8,4,1>,<"Témp","°C",0,0,8,4,1>><B,"3600lS",G,<"Wind "N"","m/s",0,0,8,4,1>><C><D><E><F><G><H><I><J><K><X,"900lS",G,<"bTime","h",1,0,8,4,1>><V>>:

<ALL_DATA>
D,7,2008/02/25,10:00:00,0.000000,1:A,0,-0.,$7l,100000000000000000.,$1l,0.,$4l:
D,7,2008/02/25,10:00:00,0.250,1:A,0,-0.,$7l,100000000000000000.,$1l,23.,$0l:
D,7,2008/03/09,02:30:00,0.000000,1:B,0,2.,$0l:
D,,2008/07/04,23:59:59,0.000000,1:X,0,18:00:00,$0l:
)";

std::string longSession() {
    std::string readings;
    for (int i = 0; i < 2503; ++i) {
        const std::string second = std::to_string(100 + i % 60).substr(1);
        const std::string minute = std::to_string(100 + i / 60).substr(1);
        readings.append("1|2024-05-01 00:" + minute + ":" + second + "|0|A|0|a|" +
                        std::to_string(i) + "|" + std::to_string(i % 5) + "|S|J\n");
    }
    std::string sql =
        SessionRows().channels("Long", "A|0|1|a|u|0|S|J\n").readings("Long", readings).sql();
    return sql.substr(OdbcSetup::tables().size());
}

// What a record set reads row by row, in blocks of so many rows.
std::string valuesInBlocks(CDatabase& database, std::size_t block) {
    CDBDataData3 rows(database);
    rows.m_strFilter = "session_id = 'Long'";
    rows.m_strSort = "data_time ASC";
    rows.setBlockRows(block);
    if (const SqlFailure failure = rows.Open(CRecordset::forwardOnly)) return failure->text;
    std::string all;
    while (!rows.IsEOF()) {
        all += std::to_string(static_cast<int>(rows.m_data_value.value_or(-1))) + ":" +
               std::to_string(rows.m_data_status) + rows.m_label + " ";
        if (const SqlFailure failure = rows.MoveNext()) return all + failure->text;
    }
    return all;
}

template <class Rows>
std::string only(CDatabase& database, const std::string& filter) {
    Rows rows(database);
    rows.m_strFilter = filter;
    if (const SqlFailure failure = rows.Open(CRecordset::forwardOnly)) return failure->text;
    if (rows.IsBOF() || rows.IsEOF() || rows.m_data_time.isNull()) return "none";
    char text[48];
    return {text, rows.m_data_time.writeTime(rows.m_data_time.writeDate(text))};
}

// Texts that an engine could take for something else.
const std::vector<std::string>& typedNames() {
    static const std::vector<std::string> names = {
        "O'Brien",          "' OR '1'='1", "\\",   "C:\\new\\'x'",  "\\' OR 1=1 --",
        "{ts '2024'} ; $1", "say \"no\"",  "!\\!", "Zürich 5€ net", "tail\\\\"};
    return names;
}

std::string longName() {
    std::string name;
    for (int i = 0; i < 255; ++i)
        name += "é";
    return name;
}

// One reading each, its value the place of the name; every text of it is that name.
std::string typedSessions() {
    SessionRows rows;
    std::vector<std::string> names = typedNames();
    names.push_back(longName());
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::string& n = names[i];
        rows.channels(n, "A|-1|60|" + n + "|u|0|" + n + "|" + n + "\n");
        rows.readings(n, "1|2024-05-01 00:00:00|0|A|-1|" + n + "|" + std::to_string(i) + "|0|" + n +
                             "|" + n + "\n");
    }
    return rows.sql().substr(OdbcSetup::tables().size());
}

void expectTypedNames(SessionLoad& load, const std::string& source) {
    std::size_t i = 0;
    const auto expectOne = [&](const SessionRequest& request) {
        const std::string value = std::to_string(i);
        EXPECT_EQ(load.lines(request),
                  "D,1,2024/05/01,00:00:00,0.000000,1:A,0," + value + ".,$0l:\n")
            << request.session << load.messages.texts << load.error << load.passedOver;
    };
    for (; i < typedNames().size(); ++i) {
        const std::string& name = typedNames()[i];
        expectOne({source, name, name, name, "A", name});
        expectOne({source, name.substr(0, name.size() - 1) + "?", name + "*", "*", "?", name});
    }
    expectOne({source, longName(), longName(), "*", "A", longName()});
}

// All that is asked of an engine.
void expectTheSessions(const std::string& source) {
    SCOPED_TRACE(source);
    BackgroundCall call;
    SessionLoad load(call);
    EXPECT_EQ(load.run({source, "Gr?n 100*"}).substr(0, 40), std::string(kOddText).substr(0, 40))
        << load.error << load.messages.texts;
    SessionRequest exact{source, "Grün 100% \"q\"", "S", "J"};
    std::string text = load.run(exact);
    const std::size_t same = text.find("EndDescriptor");
    EXPECT_EQ(text.substr(same),
              std::string(kOddText).substr(std::string(kOddText).find("EndDescriptor")));
    EXPECT_EQ(load.messages.texts + load.error, "");
    exact.start = {2008, 3, 9, 2, 30, 0};
    exact.end = {2008, 7, 4, 23, 59, 58};
    EXPECT_EQ(load.lines(exact), "D,7,2008/03/09,02:30:00,0.000000,1:B,0,2.,$0l:\n");
    expectTypedNames(load, source);

    CDatabase database(call);
    const SqlFailure failure = database.OpenEx("DSN=" + source, CDatabase::noOdbcDialog);
    ASSERT_FALSE(failure) << failure->text;
    const std::string values = valuesInBlocks(database, CRecordset::kBlockRows);
    EXPECT_EQ(values.substr(0, 24) + values.substr(values.size() - 17),
              "0:0a 1:1a 2:2a 3:3a 4:4a 2501:1a 2502:2a ");
    EXPECT_EQ(valuesInBlocks(database, 7), values);
    EXPECT_EQ(valuesInBlocks(database, 1), values);
    EXPECT_EQ(only<CDBDataData1>(database, "session_id LIKE 'Lo%'"), "2024/05/0100:00:00");
    EXPECT_EQ(only<CDBDataData2>(database, "session_id LIKE 'Lo%'"), "2024/05/0100:41:42");
    EXPECT_EQ(only<CDBDataData2>(database, "session_id = 'Nothing'"), "none");
    CDBDataDetails writes(database);
    writes.m_strFilter = "1=1; DELETE FROM data_data";
    (void)writes.Open(CRecordset::snapshot);
    writes.Close();
    EXPECT_EQ(valuesInBlocks(database, CRecordset::kBlockRows), values) << "nothing was deleted";
}

TEST(Engines, SqliteGivesTheSessions) {
    OdbcSetup odbc;
    odbc.addSqlite("SQLite", oddSession() + longSession() + typedSessions());
    expectTheSessions("SQLite");
}

// What a server answers when it cannot give a session.
void expectRefusals(const DatabaseServer& server, const std::string& source) {
    BackgroundCall call;
    SessionLoad load(call);
    EXPECT_EQ(load.run({source + "Refused", "Run"}), "(false)");
    EXPECT_NE(load.error, "");
    EXPECT_EQ(load.messages.texts, load.error + "\n");

    server.run("DROP TABLE data_data;");
    EXPECT_TRUE(load.run({source, "Long"}).ends_with("<ALL_DATA>\n"));
    EXPECT_EQ(load.messages.texts, "Warning: Database exception. Load aborted.\n");
    EXPECT_NE(load.error.find("data_data"), std::string::npos) << load.error;
    server.run("CREATE TABLE data_data(address INTEGER, data_status VARCHAR(9), data_time DATE,"
               "data_value VARCHAR(9), schedule CHAR(9), schedule_index BIGINT, sub_time SMALLINT,"
               "label TEXT, job CHAR(9), session_id CHAR(9), site_id TEXT);\n"
               "INSERT INTO data_data VALUES(12,'3','2024-05-01','7.6','A',0,5,'a','J','Long','S'),"
               "(12,'3','2024-05-02','7.6','A',5000000000,5,'a','J','Long','S'),"
               "(12,'3','2024-05-03','9','A',0,5,'a','J','Long','S');");
    EXPECT_EQ(load.lines({source, "Long"}), "D,12,2024/05/01,00:00:00,0.5,1:A,0,8.,$3l:\n"
                                            "D,12,2024/05/03,00:00:00,0.5,1:A,0,9.,$3l:\n");
    EXPECT_EQ(load.passedOver, "1 reading with unreadable numbers (in row 2)\n");
    server.run("DROP TABLE data_details;");
    EXPECT_EQ(load.run({source, "Long"}), "(false)");
    EXPECT_EQ(load.messages.texts, load.error + "\n");
    EXPECT_NE(load.error.find("data_details"), std::string::npos) << load.error;
}

// The driver manager remembers a data source's settings, so every test has its own.
class Servers : public testing::TestWithParam<Engine> {
  protected:
    static std::string source() {
        const std::string test = testing::UnitTest::GetInstance()->current_test_info()->name();
        return test.substr(0, 8) + (GetParam() == Engine::PostgreSql ? "PostgreSQL" : "MariaDB");
    }
};

TEST_P(Servers, GiveTheSameSessionsAndSayWhatIsWrong) {
    const DatabaseServer server(GetParam());
    OdbcSetup odbc;
    server.addSource(odbc, source());
    server.addSource(odbc, source() + "Refused", "wrong");
    // The client would take the backslashes of the names for marks.
    const bool mariaDb = GetParam() == Engine::MariaDb;
    server.run((mariaDb ? "SET sql_mode = 'NO_BACKSLASH_ESCAPES';\n" : "") + oddSession() +
               longSession() + typedSessions());
    expectTheSessions(source());
    expectRefusals(server, source());
}

TEST_P(Servers, ThatStopAnsweringAreLeftAfterTheTimeOut) {
    const DatabaseServer server(GetParam());
    OdbcSetup odbc;
    server.addSource(odbc, source());
    server.run(oddSession());
    BackgroundCall call;
    CDatabase database(call);
    ASSERT_FALSE(database.OpenEx("DSN=" + source()));
    CDBDataDetails rows(database);
    ASSERT_FALSE(rows.Open(CRecordset::forwardOnly));
    server.pause();
    database.SetQueryTimeout(1);
    const SqlFailure failure = rows.Requery();
    EXPECT_EQ(failure ? failure->text : "", "The database did not answer within 1 seconds.");
    EXPECT_FALSE(database.IsOpen());
    server.resume();
    EXPECT_FALSE(database.OpenEx("DSN=" + source()));
}

// The other driver does not hold to the time; the program's own limit ends its call.
TEST(Engines, PostgreSqlThatDoesNotGreetIsLeftAfterTheLogInTime) {
    const DatabaseServer server(Engine::PostgreSql);
    OdbcSetup odbc;
    server.addSource(odbc, "Silent");
    const auto connection = std::make_shared<OdbcConnection>();
    const auto failure = std::make_shared<SqlFailure>();
    BackgroundCall call;
    server.pause();
    EXPECT_TRUE(
        call.run([=] { *failure = connection->open("DSN=Silent", 2); }, std::chrono::seconds(15)))
        << "the driver still waits";
    EXPECT_TRUE(*failure);
    server.resume();
}

// Kills the server once, when told to.
struct KillingProgress : SilentProgress {
    void addString(std::string_view text) override {
        if (text == at) server.kill();
    }

    explicit KillingProgress(DatabaseServer& victim) : server(victim) {}

    DatabaseServer& server;
    std::string at = "Retrieved 100 records";
};

// Kills the server in a call that takes long.
struct KillingCall : BackgroundCall {
    explicit KillingCall(DatabaseServer& victim) : server(victim) {}

    bool run(std::function<void()> work, Limit limit) override {
        start = std::chrono::steady_clock::now();
        return BackgroundCall::run(std::move(work), limit);
    }

    bool whileWaiting() override {
        if (std::chrono::steady_clock::now() - start > std::chrono::seconds(6)) server.kill();
        return true;
    }

    DatabaseServer& server;
    std::chrono::steady_clock::time_point start;
};

TEST_P(Servers, KilledInTheMiddleOfALoad) {
    DatabaseServer server(GetParam());
    OdbcSetup odbc;
    server.addSource(odbc, source());
    server.run(OdbcSetup::tables() + longSession());
    const bool postgres = GetParam() == Engine::PostgreSql;
    // MariaDB's driver has all rows before it gives the first: there the query itself takes long.
    if (!postgres)
        server.run("RENAME TABLE data_data TO readings;"
                   "CREATE VIEW data_data AS SELECT * FROM readings WHERE sleep(1) = 0;");
    KillingCall killing(server);
    BackgroundCall waiting;
    LongCall& call = postgres ? static_cast<LongCall&>(waiting) : killing;
    KillingProgress progress(server);
    test::RecordedMessages messages;
    DataSourceLogin login;
    CSessionFromDatabase session({messages, progress, call, login});
    EXPECT_EQ(session.CreateFileFromDatabaseSession({source(), "Long"}), postgres);
    EXPECT_EQ(messages.texts, "Warning: Database exception. Load aborted.\n");
    EXPECT_TRUE(session.LastError());
    const std::string text = ScratchFolder::contents(session.TempFileName());
    const auto lines = std::count(text.begin(), text.end(), '\n') - 10;
    // The lines of whole blocks stay, but for the one that the next block might have gone on with.
    EXPECT_EQ(lines, postgres ? 999 : 0);
}

// Stops the waiting a second after the load has begun.
struct StoppingCall : BackgroundCall {
    bool whileWaiting() override {
        return std::chrono::steady_clock::now() - start < std::chrono::seconds(1);
    }

    std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
};

TEST_P(Servers, AreToldToStopWhenThePersonStops) {
    const DatabaseServer server(GetParam());
    OdbcSetup odbc;
    server.addSource(odbc, source());
    const bool postgres = GetParam() == Engine::PostgreSql;
    server.run(OdbcSetup::tables() + longSession() +
               (postgres ? "ALTER TABLE data_data RENAME TO readings;"
                           "CREATE VIEW data_data AS SELECT * FROM readings "
                           "WHERE pg_sleep(1) IS NOT NULL;"
                         : "RENAME TABLE data_data TO readings;"
                           "CREATE VIEW data_data AS SELECT * FROM readings WHERE sleep(1) = 0;"));
    StoppingCall call;
    SessionLoad load(call);
    (void)load.run({source(), "Long"});
    EXPECT_EQ(load.error, "The query was stopped.");
    EXPECT_EQ(load.messages.texts, "");
    // Fails while a query of ours runs.
    const std::string idle =
        postgres ? "DO $$ BEGIN IF EXISTS(SELECT FROM pg_stat_activity WHERE usename = 'pellam' "
                   "AND state = 'active') THEN RAISE EXCEPTION 'busy'; END IF; END $$;"
                 : "SELECT IF(COUNT(*) = 0, 1, (SELECT 1 UNION SELECT 2)) FROM "
                   "information_schema.processlist WHERE user = 'pellam' AND command = 'Query';";
    bool stopped = false;
    for (int i = 0; i < 20 && !stopped; ++i) {
        try {
            server.run(idle);
            stopped = true;
        } catch (const std::runtime_error&) {
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
        }
    }
    EXPECT_TRUE(stopped);
}

TEST_P(Servers, AskForUserAndPassword) {
    const DatabaseServer server(GetParam());
    OdbcSetup odbc;
    server.run("CREATE TABLE data_header(session_id VARCHAR(9));"
               "INSERT INTO data_header VALUES('Run');");
    server.addSource(odbc, source(), "");
    server.addSource(odbc, source() + "Wrong", "wrong");
    BackgroundCall call;
    for (const std::string& name : {source(), source() + "Wrong"}) {
        std::string asked;
        DataSourceLogin login([&](const DataSourceLogin::Question& question) {
            asked += question.user + (question.again ? " again " : " ") + question.source + ' ';
            EXPECT_NE(question.reason, "");
            return std::optional<Login>({"pellam", question.again ? "open sesame" : "a;b}c=d"});
        });
        for (int i = 0; i < 2; ++i) {
            const SessionLists::List list = SessionLists(name, call, login).sessions();
            EXPECT_FALSE(list.failure) << list.failure->text;
            EXPECT_EQ(list.texts.size(), 1U);
        }
        EXPECT_EQ(asked, "pellam " + name + " pellam again " + name + ' ') << "remembered";
        DataSourceLogin nobody([](const auto&) { return std::nullopt; });
        EXPECT_TRUE(SessionLists(name, call, nobody).sessions().failure->stopped);
    }
}

INSTANTIATE_TEST_SUITE_P(, Servers, testing::Values(Engine::PostgreSql, Engine::MariaDb),
                         [](const auto& parameter) {
                             return parameter.param == Engine::PostgreSql ? "PostgreSQL"
                                                                          : "MariaDB";
                         });

} // namespace
} // namespace pellam
