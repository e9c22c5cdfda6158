#include "database/odbc/CDatabase.h"

#include "database/odbc/OdbcConnection.h"

namespace pellam {

CDatabase::CDatabase(LongCall& call) : m_call(call) {}

CDatabase::~CDatabase() {
    Close();
}

SqlFailure CDatabase::OpenEx(const std::string& text, Options) {
    return connect(
        [text](OdbcConnection& connection) { return connection.open(text, kLoginTimeout); });
}

SqlFailure CDatabase::Open(const std::string& source, const Login& login) {
    return connect([source, login](OdbcConnection& connection) {
        return connection.open(source, login, kLoginTimeout);
    });
}

template <class Connect>
SqlFailure CDatabase::connect(Connect how) {
    Close();

    struct Attempt {
        std::shared_ptr<OdbcConnection> connection = std::make_shared<OdbcConnection>();
        SqlFailure failure;
    };

    const auto attempt = std::make_shared<Attempt>();
    // The driver's own limit comes first; this one is for drivers that do not know it.
    const auto limit = std::chrono::seconds(kLoginTimeout + 5);
    const auto start = std::chrono::steady_clock::now();
    const bool ended =
        m_call.run([attempt, how] { attempt->failure = how(*attempt->connection); }, limit);
    if (!ended && std::chrono::steady_clock::now() - start < limit)
        return SqlError{"HY008", 0, "The connection was stopped.", true};
    if (!ended) return SqlError{"HYT01", 0, "The database did not answer."};
    if (!attempt->failure) m_connection = attempt->connection;
    return attempt->failure;
}

bool CDatabase::hasBackslashEscapes() const {
    return m_connection && m_connection->hasBackslashEscapes();
}

void CDatabase::Close() {
    if (!m_connection) return;
    // Taking leave of a server may wait too. Past the limit it goes on by itself.
    constexpr auto kLimit = std::chrono::seconds(5);
    (void)m_call.run([connection = std::move(m_connection)] {}, kLimit);
    m_connection = nullptr;
}

} // namespace pellam
