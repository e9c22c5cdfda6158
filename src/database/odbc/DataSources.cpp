#include "database/odbc/DataSources.h"

#include "database/odbc/OdbcHandle.h"

#include <algorithm>
#include <array>

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

bool isMySqlDriver(std::string_view driverText) {
    return driverText.find("MySQL") != std::string_view::npos;
}

} // namespace pellam
