#pragma once

#include "database/odbc/CTime.h"
#include "database/odbc/DataSourceLogin.h"
#include "database/odbc/LongCall.h"
#include "database/sessions/SessionRequest.h"
#include "database/sessions/SqlTerm.h"
#include "database/sessions/TextList.h"

#include <functional>
#include <string>
#include <string_view>

namespace pellam {

/// What the session dialog reads from a data source: its lists and the range of times. Every
/// question opens a connection of its own and closes it.
class SessionLists {
  public:
    /// Makes texts that differ in capitals only the same.
    using Fold = std::function<std::string(std::string_view)>;

    /// `call` and `login` outlive the object. `fold` is needed for sites and jobs.
    SessionLists(std::string dsn, LongCall& call, DataSourceLogin& login, Fold fold = {});

    /// A list, as far as it was read.
    struct List {
        TextList texts;
        SqlFailure failure;
    };

    /// Earliest and latest reading; null where nothing matches or a failure came first.
    struct Range {
        CTime earliest;
        CTime latest;
        SqlFailure failure;
    };

    /// All sessions in the order of the database, repeated ones too.
    [[nodiscard]] List sessions() const;
    /// The sites of a session, then "*". A site is left out when one in the list begins with it,
    /// whatever its capitals.
    [[nodiscard]] List sites(std::string_view session) const;
    /// The jobs of a session at a site, by the same rule, then "*".
    [[nodiscard]] List jobs(std::string_view session, std::string_view site) const;
    /// "*", then each schedule of a session at a site once.
    [[nodiscard]] List schedules(std::string_view session, std::string_view site) const;
    /// The range of times; the request has SQL wildcards. `mySql` turns on the
    /// rule that exact values are compared as beginnings.
    [[nodiscard]] Range range(const SessionRequest& request, bool mySql) const;

  private:
    using Filter = std::function<std::string(const SqlRules& rules)>;

    [[nodiscard]] List distinct(std::string_view column, const Filter& filter) const;
    SqlFailure open(CDatabase& database, CDatabase::Options options) const;

    std::string m_dsn;
    LongCall& m_call;
    DataSourceLogin& m_login;
    Fold m_fold;
};

} // namespace pellam
