// A session of 1,000,000 readings from each database through ODBC: the raw block fetch of its
// columns, the whole way into the grid, and the same rows through Qt's driver, in turns.
//   bench_Database [ROWS [TURNS [ENGINE]]]
// Starts the servers itself, in the temporary folder, and ends them.

#include "DatabaseServer.h"
#include "OdbcSetup.h"

#include "base/SilentSinks.h"
#include "database/odbc/BackgroundCall.h"
#include "database/sessions/CSessionFromDatabase.h"
#include "replay/load/ChannelChooser.h"
#include "replay/load/FileLoader.h"

#ifdef PELLAM_HAS_QTSQL
#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>
#endif

#include <sql.h>
#include <sqlext.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <functional>
#include <optional>

namespace {

using namespace pellam;
using test::DatabaseServer;
using test::OdbcSetup;

constexpr const char* kSelect =
    "SELECT address,data_status,data_time,data_value,schedule,schedule_index,sub_time,label,job "
    "FROM data_data WHERE session_id = 'Bench' "
    "ORDER BY data_time ASC,sub_time ASC,schedule ASC,schedule_index ASC";

struct Result {
    double rows = 0;
    double seconds = 0;
    double cpuSeconds = 0;  ///< of this process: what the server takes is beside it
    long peakKilobytes = 0; ///< of the whole process that did it
};

class Clock {
  public:
    [[nodiscard]] double seconds() const {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - m_start).count();
    }

  private:
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

void takeUsage(Result& result) {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    result.cpuSeconds = seconds(usage.ru_utime) + seconds(usage.ru_stime);
    result.peakKilobytes = usage.ru_maxrss;
}

// Each measurement has a process of its own, so that its peak of memory is its own too.
Result inOwnProcess(const std::function<double()>& work) {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) return {};
    const pid_t child = ::fork();
    if (child == 0) {
        Result result;
        const Clock clock;
        result.rows = work();
        result.seconds = clock.seconds();
        takeUsage(result);
        const bool written = ::write(ends[1], &result, sizeof result) == sizeof result;
        ::_exit(written ? 0 : 1);
    }
    ::close(ends[1]);
    Result result;
    if (::read(ends[0], &result, sizeof result) != sizeof result) result = {};
    ::close(ends[0]);
    ::waitpid(child, nullptr, 0);
    return result;
}

SQLCHAR* sqlText(const std::string& text) {
    return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str()));
}

// The least that any program must do: the nine columns, 1000 rows a call.
double rawFetch(const std::string& source) {
    constexpr std::size_t kBlock = 1000;

    struct Row {
        std::array<char, 256> address, schedule, label, job;
        SQLINTEGER status, index, subTime;
        SQL_TIMESTAMP_STRUCT time;
        double value;
        std::array<SQLLEN, 9> lengths;
    };

    SQLHENV environment = nullptr;
    SQLHDBC connection = nullptr;
    SQLHSTMT statement = nullptr;
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment);
    SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3),
                  0);
    SQLAllocHandle(SQL_HANDLE_DBC, environment, &connection);
    if (!SQL_SUCCEEDED(SQLDriverConnect(connection, nullptr, sqlText("DSN=" + source), SQL_NTS,
                                        nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT)))
        return -1;
    SQLAllocHandle(SQL_HANDLE_STMT, connection, &statement);
    SQLULEN fetched = 0;
    std::vector<Row> rows(kBlock);
    SQLSetStmtAttr(statement, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(kBlock), 0);
    SQLSetStmtAttr(statement, SQL_ATTR_ROW_BIND_TYPE, reinterpret_cast<SQLPOINTER>(sizeof(Row)), 0);
    SQLSetStmtAttr(statement, SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0);
    if (!SQL_SUCCEEDED(SQLExecDirect(statement, sqlText(kSelect), SQL_NTS))) return -1;
    Row& row = rows[0];
    SQLUSMALLINT column = 0;
    const auto bind = [&](SQLSMALLINT type, void* place, std::size_t size) {
        SQLLEN& length = row.lengths[column++];
        SQLBindCol(statement, column, type, place, static_cast<SQLLEN>(size), &length);
    };
    bind(SQL_C_CHAR, &row.address, sizeof row.address);
    bind(SQL_C_SLONG, &row.status, 0);
    bind(SQL_C_TYPE_TIMESTAMP, &row.time, 0);
    bind(SQL_C_DOUBLE, &row.value, 0);
    bind(SQL_C_CHAR, &row.schedule, sizeof row.schedule);
    bind(SQL_C_SLONG, &row.index, 0);
    bind(SQL_C_SLONG, &row.subTime, 0);
    bind(SQL_C_CHAR, &row.label, sizeof row.label);
    bind(SQL_C_CHAR, &row.job, sizeof row.job);
    double count = 0;
    while (SQL_SUCCEEDED(SQLFetch(statement)))
        count += static_cast<double>(fetched);
    return count;
}

// As the window does it: the waiting on a thread of its own.
std::optional<std::string> writeSession(CSessionFromDatabase& session, const std::string& source) {
    SessionRequest request;
    request.dataSource = source;
    request.session = "Bench";
    if (!session.CreateFileFromDatabaseSession(request) || session.LastError()) return {};
    return session.TempFileName();
}

double load(const std::string& source, LongCall& call, bool intoGrid) {
    SilentMessages messages;
    SilentProgress progress;
    AllChannels chooser;
    TimeCorrections corrections;
    DataSourceLogin login;
    CSessionFromDatabase session({messages, progress, call, login});
    const auto path = writeSession(session, source);
    if (!path) {
        std::fprintf(stderr, "%s\n", session.LastError() ? session.LastError()->text.c_str() : "?");
        return -1;
    }
    if (!intoGrid) return 0;
    InternationalSettings international;
    GridData grid('.');
    FileLoader loader({grid, international, messages, progress, chooser});
    const LoadOutcome outcome = loader.load(*path);
    return static_cast<double>(outcome.rows) * outcome.channels;
}

#ifdef PELLAM_HAS_QTSQL
double throughQt(const std::string& source) {
    int argc = 0;
    const QCoreApplication application(argc, nullptr);
    auto database = QSqlDatabase::addDatabase(QStringLiteral("QODBC"));
    database.setDatabaseName(QString::fromStdString(source));
    if (!database.open()) return -1;
    QSqlQuery query(database);
    query.setForwardOnly(true);
    if (!query.exec(QString::fromLatin1(kSelect))) return -1;
    double count = 0;
    double sum = 0;
    while (query.next()) {
        for (int column = 0; column < 9; ++column)
            sum += query.value(column).isNull() ? 1 : 0;
        ++count;
    }
    return count + sum * 0;
}
#endif

std::string fillSql(const std::string& numbers, const std::string& time, long rows) {
    const std::string count = std::to_string(rows);
    std::string sql = OdbcSetup::tables();
    for (int channel = 0; channel < 10; ++channel) {
        const std::string number = std::to_string(channel);
        sql += "INSERT INTO data_details(address,label,schedule,schedule_index,"
               "schedule_rate_in_seconds,session_id,site_id,units,value_type,job) VALUES "
               "('1','Channel " +
               number + "','A'," + number + ",1,'Bench','Site','C',2,'Job');\n";
    }
    sql += "INSERT INTO data_data SELECT '1',0," + time +
           ",n % 977 + 0.25,'A',n % 10,0,"
           "'Channel','Job','Bench','Site' FROM " +
           numbers + ";\n";
    sql += "CREATE INDEX data_data_session ON "
           "data_data(session_id,data_time,sub_time,schedule,schedule_index);\n";
    return sql;
}

void report(const char* engine, const char* what, const Result& result, long rows) {
    std::printf("%-11s %-26s %7.3f s %7.3f s cpu %9.0f rows/s %6.1f MB peak %s\n", engine, what,
                result.seconds, result.cpuSeconds, static_cast<double>(rows) / result.seconds,
                static_cast<double>(result.peakKilobytes) / 1024, result.rows < 0 ? "FAILED" : "");
    std::fflush(stdout);
}

// The same through a driver as it is without its setting against holding the whole result.
void measureUnset(const char* engine, const std::string& source, long rows) {
    BackgroundCall call;
    report(engine, "text, driver unset", inOwnProcess([&] { return load(source, call, false); }),
           rows);
}

void measure(const char* engine, const std::string& source, long rows, int turns) {
    for (int turn = 0; turn < turns; ++turn) {
        report(engine, "raw block fetch", inOwnProcess([&] { return rawFetch(source); }), rows);
        const auto loaded = [&](const char* what, LongCall& call, bool intoGrid) {
            report(engine, what, inOwnProcess([&] { return load(source, call, intoGrid); }), rows);
        };
        InlineCall here;
        BackgroundCall beside;
        loaded("into replay text", beside, false);
        loaded("into the grid", beside, true);
        loaded("into the grid, one thread", here, true);
#ifdef PELLAM_HAS_QTSQL
        report(engine, "Qt's ODBC driver", inOwnProcess([&] { return throughQt(source); }), rows);
#endif
    }
}

} // namespace

int main(int argc, char** argv) {
    const long rows = argc > 1 ? std::atol(argv[1]) : 1'000'000;
    const int turns = argc > 2 ? std::atoi(argv[2]) : 3;
    const std::string only = argc > 3 ? argv[3] : "";
    OdbcSetup odbc;
    const std::string last = std::to_string(rows - 1);
    if (only.empty() || only == "SQLite") {
        const std::string numbers =
            "(WITH RECURSIVE c(n) AS (SELECT 0 UNION ALL SELECT n+1 FROM c WHERE n<" + last +
            ") SELECT n FROM c)";
        odbc.addSqlite("SQLite",
                       fillSql(numbers, "datetime(1704067200 + n / 10, 'unixepoch')", rows) +
                           "ANALYZE;\n");
        measure("SQLite", "SQLite", rows, turns);
        odbc.addSource("Unset", "SQLite3", "Database=" + odbc.folder().path("SQLite.db"));
        measureUnset("SQLite", "Unset", rows);
    }
    if (only.empty() || only == "PostgreSQL") {
        DatabaseServer server(DatabaseServer::Engine::PostgreSql);
        server.addSource(odbc, "PostgreSQL");
        server.run(fillSql("generate_series(0," + last + ") AS c(n)",
                           "timestamp '2024-01-01' + n / 10 * interval '1 second'", rows) +
                   "VACUUM ANALYZE data_data;\n");
        measure("PostgreSQL", "PostgreSQL", rows, turns);
        server.addSource(odbc, "Unset PostgreSQL", "open sesame", "UseDeclareFetch=0");
        measureUnset("PostgreSQL", "Unset PostgreSQL", rows);
    }
    if (only.empty() || only == "MariaDB") {
        DatabaseServer server(DatabaseServer::Engine::MariaDb);
        server.addSource(odbc, "MariaDB");
        server.run(fillSql("(SELECT seq AS n FROM seq_0_to_" + last + ") AS c",
                           "timestampadd(second, n div 10, '2024-01-01')", rows) +
                   "ANALYZE TABLE data_data;\n");
        measure("MariaDB", "MariaDB", rows, turns);
    }
}
