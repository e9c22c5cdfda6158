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

// A value of a connection string: in braces anything may stand.
std::string inBraces(std::string_view text) {
    std::string value = "{";
    for (const char c : text)
        value.append(c == '}' ? 2 : 1, c);
    return value += '}';
}

std::string withLogin(const std::string& connect, const Login& login) {
    std::string text = connect;
    if (!login.user.empty()) text += ";UID=" + inBraces(login.user);
    return text + ";PWD=" + inBraces(login.password);
}

} // namespace

bool DataSourceLogin::isName(std::string_view text) {
    return text.find(';') == std::string_view::npos;
}

SqlError DataSourceLogin::notAName() {
    return {"IM010", 0,
            "The name of a data source can not hold ';'. User and password belong into its "
            "settings; where they are missing there, they are asked for."};
}

SqlFailure DataSourceLogin::open(CDatabase& database, const std::string& source,
                                 CDatabase::Options options) {
    if (!isName(source)) return notAName();
    std::string connect = "DSN=" + source;
    // SQLite makes a file that is not there, unless it is told.
    if (isSqliteSource(source)) connect += ";NoCreat=1";
    const auto known = m_logins.find(source);
    Login login = known == m_logins.end() ? Login{} : known->second;
    SqlFailure failure =
        database.OpenEx(known == m_logins.end() ? connect : withLogin(connect, login), options);
    if (login.user.empty()) login.user = userOfSource(source);
    for (bool again = false; failure && m_ask && asksForLogin(*failure); again = true) {
        const auto answer = m_ask({source, login.user, failure->text, again});
        if (!answer) {
            failure->stopped = true;
            break;
        }
        login = *answer;
        failure = database.OpenEx(withLogin(connect, login), options);
        if (!failure) m_logins[source] = login;
    }
    return failure;
}

} // namespace pellam
