#include "database/odbc/DataSources.h"

#include "database/odbc/OdbcHandle.h"

#include <algorithm>
#include <array>

#include <odbcinst.h>

namespace pellam {

namespace {

class Enumeration {
  public:
    bool next(DataSource& source) {
        if (!m_environment) return false;
        std::array<SQLCHAR, 30> name{};
        std::array<SQLCHAR, 300> description{};
        SQLSMALLINT nameLength = 0;
        SQLSMALLINT descriptionLength = 0;
        const SQLRETURN result =
            SQLDataSources(m_environment.get(), SQL_FETCH_NEXT, name.data(), name.size(),
                           &nameLength, description.data(), description.size(), &descriptionLength);
        if (!SQL_SUCCEEDED(result)) return false;
        source.name = text(name, nameLength);
        source.description = text(description, descriptionLength);
        return true;
    }

  private:
    template <std::size_t size>
    static std::string text(const std::array<SQLCHAR, size>& buffer, SQLSMALLINT length) {
        const auto most = std::clamp<std::size_t>(static_cast<std::size_t>(length), 0, size - 1);
        const auto* const begin = reinterpret_cast<const char*>(buffer.data());
        return {begin, std::find(begin, begin + most, '\0')};
    }

    OdbcHandle m_environment = OdbcHandle::environment();
};

// An entry of the ODBC settings; empty without one.
std::string setting(const std::string& section, const char* entry, const char* file) {
    std::array<char, 512> text{};
    if (section.empty()) return {};
    SQLGetPrivateProfileString(section.c_str(), entry, "", text.data(), text.size(), file);
    return text.data();
}

bool namesSqlite(std::string driver) {
    for (char& c : driver)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return driver.find("sqlite") != std::string::npos;
}

} // namespace

std::vector<DataSource> dataSources() {
    std::vector<DataSource> sources;
    Enumeration enumeration;
    DataSource source;
    while (enumeration.next(source))
        sources.push_back(source);
    return sources;
}

std::string firstDriverText() {
    DataSource source;
    Enumeration().next(source);
    return source.description;
}

bool isSqliteSource(const std::string& name) {
    const std::string driver = setting(name, "Driver", "odbc.ini");
    return namesSqlite(driver) || namesSqlite(setting(driver, "Driver", "odbcinst.ini"));
}

std::string fileOfSource(const std::string& name) {
    return setting(name, "Database", "odbc.ini");
}

std::string userOfSource(const std::string& name) {
    for (const char* entry : {"UserName", "User", "UID"})
        if (std::string user = setting(name, entry, "odbc.ini"); !user.empty()) return user;
    return {};
}

bool isMySqlDriver(std::string_view driverText) {
    return driverText.find("MySQL") != std::string_view::npos;
}

} // namespace pellam
