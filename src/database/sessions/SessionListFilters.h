#pragma once

#include "database/sessions/SessionRequest.h"

#include <string>
#include <string_view>

namespace pellam {

// The conditions (what stands behind WHERE) by which the session dialog fills its lists and finds
// the range of times. Values stand in them as they are: quotes are not escaped.

/// The channels of a session, for the list of sites. The person's wildcards count.
[[nodiscard]] std::string siteListFilter(std::string_view session);

/// The channels of a session at a site, for the list of jobs. Wildcards count in both.
[[nodiscard]] std::string jobListFilter(std::string_view session, std::string_view site);

/// The channels of a session at a site, for the list of schedules. The site is compared as it
/// stands, so that "*" finds none.
[[nodiscard]] std::string scheduleListFilter(std::string_view session, std::string_view site);

/// The readings whose earliest gives the start of the range. The request has SQL wildcards already,
/// its label does not count; with `mySql` an exact value is compared as the beginning of a text,
/// which the session always is.
[[nodiscard]] std::string earliestFilter(const SessionRequest& request, bool mySql);

/// The readings whose latest gives the end of the range; as above, but the session is compared as
/// the others are.
[[nodiscard]] std::string latestFilter(const SessionRequest& request, bool mySql);

} // namespace pellam
