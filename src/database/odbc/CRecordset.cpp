#include "database/odbc/CRecordset.h"

#include "database/odbc/BackgroundCall.h"
#include "database/odbc/OdbcStatement.h"
#include "database/odbc/SqlText.h"

namespace pellam {

namespace {

// For a database without a time-out of its own: as long as anybody waits.
constexpr std::chrono::hours kNoLimit{24 * 365};
constexpr std::chrono::seconds kGrace{1};

} // namespace

CRecordset::CRecordset(CDatabase& database) : m_database(database) {}

CRecordset::~CRecordset() {
    Close();
}

template <class Work>
SqlFailure CRecordset::wait(Work work) {
    struct Outcome {
        SqlFailure failure;
    };

    const auto outcome = std::make_shared<Outcome>();
    const int seconds = m_database.m_queryTimeout;
    // The driver's own time-out comes first, where it has one.
    const LongCall::Limit limit = seconds > 0
                                      ? LongCall::Limit(std::chrono::seconds(seconds) + kGrace)
                                      : LongCall::Limit(kNoLimit);
    const auto start = std::chrono::steady_clock::now();
    const bool ended = m_database.m_call.run(
        [outcome, work, statement = m_statement] { outcome->failure = work(*statement); }, limit);
    if (ended) return outcome->failure;
    abandon();
    if (std::chrono::steady_clock::now() - start < limit)
        return SqlError{"HY008", 0, "The query was stopped.", true};
    return SqlError{"HYT00", 0,
                    "The database did not answer within " + std::to_string(seconds) + " seconds."};
}

// The driver is still at it: the server is told to stop, and this connection is of no more use.
void CRecordset::abandon() {
    constexpr std::chrono::seconds kLimit{1};
    (void)BackgroundCall().run([statement = std::move(m_statement)] { statement->cancel(); },
                               kLimit);
    m_statement = nullptr;
    m_database.m_connection.reset();
}

const std::vector<BoundField>& CRecordset::fields() {
    if (m_exchange.fields().empty()) DoFieldExchange(m_exchange);
    return m_exchange.fields();
}

SqlFailure CRecordset::Open(OpenType type) {
    Close();
    if (!m_database.IsOpen()) return SqlError{"08003", 0, "The database is not open."};
    m_statement = std::make_shared<OdbcStatement>(m_database.m_connection, fields());
    OdbcStatement::Settings settings;
    settings.queryTimeout = m_database.m_queryTimeout;
    settings.snapshot = type == snapshot;
    settings.blockRows = m_blockRows;
    SqlFailure failure =
        wait([settings](OdbcStatement& statement) { return statement.prepare(settings); });
    if (!failure) failure = runQuery();
    if (failure) Close();
    return failure;
}

SqlFailure CRecordset::Requery() {
    if (!m_statement) return SqlError{"24000", 0, "The record set is not open."};
    return runQuery();
}

std::string CRecordset::statementText(bool doubleQuotedTexts) {
    const std::string& quote = m_database.m_connection->identifierQuote();
    std::string text = "SELECT ";
    for (const BoundField& field : fields()) {
        if (&field != &fields().front()) text += ',';
        text += withNativeNames(field.column, quote);
    }
    text.append(" FROM ").append(withNativeNames(GetDefaultSQL(), quote));
    if (!m_strFilter.empty())
        text.append(" WHERE ").append(doubleQuotedTexts ? m_strFilter
                                                        : withSingleQuotes(m_strFilter));
    if (!m_strSort.empty()) text.append(" ORDER BY ").append(m_strSort);
    return text;
}

SqlFailure CRecordset::runQuery() {
    m_row = m_rows = 0;
    m_empty = m_atEnd = true;
    const auto execute = [this](const std::string& sql) {
        return wait([sql](OdbcStatement& statement) { return statement.execute(sql); });
    };
    // Where names stand in double quotes, a text in them would be taken for a name.
    const bool doubleQuotedTexts = m_database.m_connection->identifierQuote() != "\"";
    const std::string sql = statementText(doubleQuotedTexts);
    // A server may have been told to take them so in spite of what its driver says.
    const std::string other = statementText(false);
    SqlFailure failure = execute(sql);
    if (failure && m_statement && other != sql) failure = execute(other);
    if (!failure) failure = fetchBlock();
    m_empty = m_atEnd;
    return failure;
}

SqlFailure CRecordset::fetchBlock() {
    m_row = m_rows = 0;
    m_atEnd = true;
    SqlFailure failure = wait([](OdbcStatement& statement) { return statement.fetch(); });
    if (m_statement) m_unread = m_statement->unread();
    if (failure) return failure;
    m_rows = m_statement->rows();
    m_atEnd = m_rows == 0;
    if (!m_atEnd) m_statement->read(0, fields());
    return failure;
}

SqlFailure CRecordset::MoveNext() {
    if (m_atEnd) return {};
    if (++m_row >= m_rows) return fetchBlock();
    m_statement->read(m_row, fields());
    return {};
}

void CRecordset::Close() {
    m_row = m_rows = 0;
    m_empty = m_atEnd = true;
    if (!m_statement) return;
    // Ending a query may wait for the server too.
    constexpr std::chrono::seconds kLimit{5};
    (void)m_database.m_call.run([statement = std::move(m_statement)] {}, kLimit);
    m_statement = nullptr;
}

} // namespace pellam
