#include "replay/time/TimeCorrections.h"

#include <ctime>
#include <optional>

namespace pellam {

namespace {

std::tm localFields(std::int64_t seconds) {
    const std::time_t moment = seconds;
    std::tm fields{};
    localtime_r(&moment, &fields);
    return fields;
}

// The zone's standard offset nearest in time to a moment that has daylight saving.
std::optional<long> nearestStandardOffset(std::int64_t now) {
    constexpr std::int64_t kDay = 86'400;
    for (std::int64_t days = 1; days <= 370; ++days) {
        for (const std::int64_t at : {now + days * kDay, now - days * kDay}) {
            const std::tm fields = localFields(at);
            if (fields.tm_isdst == 0) return fields.tm_gmtoff;
        }
    }
    return std::nullopt;
}

} // namespace

TimeCorrections TimeCorrections::fromZone(std::int64_t now) {
    tzset();
    const std::tm fields = localFields(now);
    TimeCorrections corrections;
    long standard = fields.tm_gmtoff;
    if (fields.tm_isdst > 0) {
        constexpr long kUsualShift = 3600;
        standard = nearestStandardOffset(now).value_or(fields.tm_gmtoff - kUsualShift);
        corrections.daylightBias = static_cast<std::int32_t>(standard - fields.tm_gmtoff);
    }
    corrections.standardBias = static_cast<std::int32_t>(-standard);
    return corrections;
}

} // namespace pellam
