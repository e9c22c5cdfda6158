#pragma once

#include "database/odbc/CTime.h"
#include "database/sessions/Session_Schedule_Info.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace pellam {

/// The reading that a data line begins with.
struct LineHead {
    const std::string& address;
    const CTime& time;
    std::int32_t subTime;
    const std::string& schedule;
};

/// Appends a data line's head: from its tag to the channel offset. Commas in a text of it become
/// points, since they would end it.
void appendLineHead(const LineHead& head, std::string& line);

/// Appends a channel's label and units to a status line, in double quotes. Replay text has no
/// escapes: brackets that would end the channel become square ones, line ends blanks.
void appendChannelTexts(std::string_view label, std::string_view units, std::string& line);

/// Appends a channel's value and status: whole numbers, or the date or time of day of an automation
/// date where the label says "Date" or "Time".
void appendValue(const Session_Channel_Info& channel, std::string& line);

/// The type code of a status line's channel entry for a value type of the database.
[[nodiscard]] std::string_view typeCode(std::int32_t valueType);

} // namespace pellam
