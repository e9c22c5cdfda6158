#include "database/odbc/DataSourceLogin.h"

#include "database/odbc/DataSources.h"

namespace pellam {

namespace {

// SQLSTATE 28000, and the texts of drivers that report a refused login in another way.
bool asksForLogin(const SqlError& error) {
    if (error.state == "28000") return true;
    for (const char* part : {"no password supplied", "authentication failed", "Access denied"})
        if (error.text.find(part) != std::string::npos) return true;
    return false;
}

} // namespace

bool DataSourceLogin::isName(std::string_view text) {
    return text.find(';') == std::string_view::npos;
}

SqlError DataSourceLogin::notAName() {
    return {"IM010", 0,
            "The name of a data source can not hold ';'. User and password belong into the data "
            "source's own settings."};
}

SqlFailure DataSourceLogin::open(CDatabase& database, const std::string& source,
                                 CDatabase::Options options) {
    if (!isName(source)) return notAName();
    std::string connect = "DSN=" + source;
    const bool sqlite = isSqliteSource(source);
    // SQLite makes a file that is not there, unless it is told.
    if (sqlite) connect += ";NoCreat=1";
    const auto known = m_logins.find(source);
    Login login = known == m_logins.end() ? Login{userOfSource(source), {}} : known->second;
    SqlFailure failure =
        known == m_logins.end() ? database.OpenEx(connect, options) : database.Open(source, login);
    for (bool again = false; failure && m_ask && asksForLogin(*failure); again = true) {
        const auto answer = m_ask({source, login.user, failure->text, again});
        if (!answer) {
            failure->stopped = true;
            break;
        }
        if (!answer->user.empty()) login.user = answer->user;
        login.password = answer->password;
        failure = database.Open(source, login);
        if (!failure) m_logins[source] = login;
    }
    // SQLite's driver says no more than that it failed.
    if (failure && sqlite) failure->text += ": " + fileOfSource(source);
    return failure;
}

} // namespace pellam
