#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pellam {

struct DataSource {
    std::string name;        ///< at most 29 bytes
    std::string description; ///< at most 299 bytes; usually the driver
};

/// The ODBC data sources of the user and the system in the driver manager's order; empty when there
/// are none or the driver manager reports an error.
[[nodiscard]] std::vector<DataSource> dataSources();

/// The description of the first data source enumerated, whichever is used; empty without one.
[[nodiscard]] std::string firstDriverText();

/// Whether a data source's driver is SQLite's, by its settings.
[[nodiscard]] bool isSqliteSource(const std::string& name);

/// The file of an SQLite data source; empty when its settings name none.
[[nodiscard]] std::string fileOfSource(const std::string& name);

/// The user that a data source's settings name; empty when they name none.
[[nodiscard]] std::string userOfSource(const std::string& name);

/// Whether a driver text turns on the MySQL rule: exact values are compared with LIKE and '%'.
[[nodiscard]] bool isMySqlDriver(std::string_view driverText);

} // namespace pellam
