#include "database/sessions/SessionLists.h"

#include "database/odbc/CDatabase.h"
#include "database/sessions/SessionFilter.h"
#include "database/sessions/SessionTables.h"

#include <set>

namespace pellam {

namespace {

constexpr int kQueryTimeout = 300; // seconds
// Each call of the driver is handed to another thread and back: few calls for a million names.
constexpr std::size_t kNamesAtOnce = 10'000;

/// Reads nothing but the names: of a million sessions that is most of the time.
class SessionNames : public CDBDataHeader {
  public:
    using CDBDataHeader::CDBDataHeader;

  protected:
    void DoFieldExchange(CFieldExchange& exchange) override {
        exchange.bind("session_id", m_session_id);
    }
};

/// Reads one column of the channels.
class ChannelTexts : public CDBDataDetails {
  public:
    ChannelTexts(CDatabase& database, std::string_view column)
        : CDBDataDetails(database),
          m_column(column) {}

    std::string m_text;

  protected:
    void DoFieldExchange(CFieldExchange& exchange) override { exchange.bind(m_column, m_text); }

  private:
    std::string_view m_column;
};

/// Sorted texts; tells whether one of them begins with another.
class Beginnings {
  public:
    [[nodiscard]] bool has(std::string_view text) const {
        const auto next = m_texts.lower_bound(text);
        return next != m_texts.end() && next->starts_with(text);
    }

    void add(std::string text) { m_texts.insert(std::move(text)); }

  private:
    std::set<std::string, std::less<>> m_texts;
};

template <class Rows, class Take>
SqlFailure forEachRow(Rows& rows, const std::string& filter, Take take) {
    rows.m_strFilter = filter;
    SqlFailure failure = rows.Open(CRecordset::forwardOnly);
    while (!failure && !rows.IsEOF()) {
        take(rows);
        failure = rows.MoveNext();
    }
    return failure;
}

// The value of the one row of an aggregate.
template <class Aggregate>
SqlFailure readTime(CDatabase& database, const std::string& filter, CTime& time) {
    Aggregate rows(database);
    return forEachRow(rows, filter, [&](const Aggregate& row) { time = row.m_data_time; });
}

} // namespace

SessionLists::SessionLists(std::string dsn, LongCall& call, DataSourceLogin& login, Fold fold)
    : m_dsn(std::move(dsn)),
      m_call(call),
      m_login(login),
      m_fold(std::move(fold)) {}

SqlFailure SessionLists::open(CDatabase& database, CDatabase::Options options) const {
    database.SetQueryTimeout(kQueryTimeout);
    return m_login.open(database, m_dsn, options);
}

SessionLists::List SessionLists::sessions() const {
    List list;
    CDatabase database(m_call);
    list.failure = open(database, CDatabase::noOdbcDialog);
    if (list.failure) return list;
    SessionNames rows(database);
    rows.setBlockRows(kNamesAtOnce);
    list.failure =
        forEachRow(rows, {}, [&](const SessionNames& row) { list.texts.add(row.m_session_id); });
    return list;
}

SessionLists::List SessionLists::distinct(std::string_view column, const Filter& filter) const {
    List list;
    CDatabase database(m_call);
    list.failure = open(database, CDatabase::noOdbcDialog);
    if (!list.failure) {
        ChannelTexts rows(database, column);
        Beginnings listed;
        std::string last;
        list.failure = forEachRow(rows, filter({false, database.hasBackslashEscapes()}),
                                  [&](const ChannelTexts& row) {
                                      // Channels of one site follow each other.
                                      if (!list.texts.empty() && row.m_text == last) return;
                                      last = row.m_text;
                                      auto folded = m_fold(row.m_text);
                                      if (listed.has(folded)) return;
                                      list.texts.add(row.m_text);
                                      listed.add(std::move(folded));
                                  });
    }
    list.texts.add("*");
    return list;
}

SessionLists::List SessionLists::sites(std::string_view session) const {
    return distinct("site_id",
                    [&](const SqlRules& rules) { return siteListFilter(session, rules); });
}

SessionLists::List SessionLists::jobs(std::string_view session, std::string_view site) const {
    return distinct("job",
                    [&](const SqlRules& rules) { return jobListFilter(session, site, rules); });
}

SessionLists::List SessionLists::schedules(std::string_view session, std::string_view site) const {
    List list;
    list.texts.add("*");
    CDatabase database(m_call);
    list.failure = open(database, CDatabase::noOdbcDialog);
    if (list.failure) return list;
    ChannelTexts rows(database, "schedule");
    std::set<std::string, std::less<>> listed = {"*"};
    const SqlRules rules{false, database.hasBackslashEscapes()};
    list.failure =
        forEachRow(rows, scheduleListFilter(session, site, rules), [&](const ChannelTexts& row) {
            if (listed.insert(row.m_text).second) list.texts.add(row.m_text);
        });
    return list;
}

SessionLists::Range SessionLists::range(const SessionRequest& request, bool mySql) const {
    Range range;
    CDatabase database(m_call);
    range.failure = open(database, CDatabase::defaultOptions);
    const SqlRules rules{mySql, database.hasBackslashEscapes()};
    if (!range.failure) {
        range.failure =
            readTime<CDBDataData1>(database, earliestFilter(request, rules), range.earliest);
    }
    if (!range.failure)
        range.failure =
            readTime<CDBDataData2>(database, latestFilter(request, rules), range.latest);
    return range;
}

} // namespace pellam
