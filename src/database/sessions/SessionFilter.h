#pragma once

#include "database/sessions/SessionRequest.h"
#include "replay/time/TimeCorrections.h"

#include <string>
#include <string_view>

namespace pellam {

struct Session_Channel_Info;

/// The request with the person's wildcards turned into SQL's.
[[nodiscard]] SessionRequest withSqlWildcards(SessionRequest request);

// The conditions (what stands behind WHERE) by which a session is loaded. The request has SQL's
// wildcards; values stand in the conditions as they are.

/// The channels of a session.
[[nodiscard]] std::string channelFilter(const SessionRequest& request);

/// The details of one channel. `letter` names its schedule.
[[nodiscard]] std::string channelEntryFilter(const SessionRequest& request, char letter,
                                             const Session_Channel_Info& channel);

/// The readings of a session in its range of times; with `mySql` an exact value is compared as the
/// beginning of a text.
[[nodiscard]] std::string readingFilter(const SessionRequest& request, bool mySql,
                                        const TimeCorrections& corrections);

} // namespace pellam
