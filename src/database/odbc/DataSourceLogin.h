#pragma once

#include "database/odbc/CDatabase.h"
#include "database/odbc/Login.h"

#include <functional>
#include <map>
#include <optional>
#include <string>

namespace pellam {

/// Opens data sources by their names. Where one asks for a user and a password that its settings do
/// not have, they are asked for and kept in memory, nowhere else, while this object lives.
class DataSourceLogin {
  public:
    struct Question {
        const std::string& source;
        std::string user;   ///< that was tried last; empty when none is known
        std::string reason; ///< why the source refused, in its driver's words
        bool again;         ///< an answer has been refused
    };

    /// Nothing: nobody knows. The question comes again when the answer is refused.
    using Ask = std::function<std::optional<Login>(const Question& question)>;

    /// Without `ask` a refusal is final.
    explicit DataSourceLogin(Ask ask = {}) : m_ask(std::move(ask)) {}

    /// Opens a data source; a question without an answer counts as stopped by the person. A name
    /// with ';' is refused, since what follows it would be taken for settings of the connection;
    /// nothing is created where a file is missing.
    SqlFailure open(CDatabase& database, const std::string& source,
                    CDatabase::Options options = CDatabase::defaultOptions);

    /// Whether a text can be a data source's name.
    [[nodiscard]] static bool isName(std::string_view text);
    /// What is said of a text that can not.
    [[nodiscard]] static SqlError notAName();

  private:
    Ask m_ask;
    std::map<std::string, Login> m_logins; ///< that were good, by the source's name
};

} // namespace pellam
