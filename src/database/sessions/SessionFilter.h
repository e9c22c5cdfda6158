#pragma once

#include "database/sessions/SessionRequest.h"
#include "database/sessions/SqlTerm.h"

#include <string>
#include <string_view>

namespace pellam {

struct Session_Channel_Info;

/// The request with the person's wildcards turned into SQL's.
[[nodiscard]] SessionRequest withSqlWildcards(SessionRequest request);

// The conditions (what stands behind WHERE) by which a session is loaded. The request has SQL's
// wildcards.

/// The channels of a session; they are never compared by beginnings.
[[nodiscard]] std::string channelFilter(const SessionRequest& request, SqlRules rules);

/// The details of one channel, likewise. `letter` names its schedule.
[[nodiscard]] std::string channelEntryFilter(const SessionRequest& request, char letter,
                                             const Session_Channel_Info& channel, SqlRules rules);

/// The readings of a session in its range of times.
[[nodiscard]] std::string readingFilter(const SessionRequest& request, const SqlRules& rules);

// The conditions by which the session dialog fills its lists and finds the range of times.

/// The channels of a session, for the list of sites. The person's wildcards count.
[[nodiscard]] std::string siteListFilter(std::string_view session, const SqlRules& rules);

/// The channels of a session at a site, for the list of jobs. Wildcards count in both.
[[nodiscard]] std::string jobListFilter(std::string_view session, std::string_view site,
                                        const SqlRules& rules);

/// The channels of a session at a site, for the list of schedules. The site is compared as it
/// stands, so that "*" finds none.
[[nodiscard]] std::string scheduleListFilter(std::string_view session, std::string_view site,
                                             const SqlRules& rules);

/// The readings whose earliest gives the start of the range. The request has SQL's wildcards, its
/// label does not count; the session is always compared as the beginning of a text.
[[nodiscard]] std::string earliestFilter(const SessionRequest& request, const SqlRules& rules);

/// The readings whose latest gives the end of the range; as above, but the session is compared as
/// the others are.
[[nodiscard]] std::string latestFilter(const SessionRequest& request, const SqlRules& rules);

} // namespace pellam
