#include "database/odbc/CTime.h"

#include "base/CalendarText.h"
#include "base/InternationalSettings.h"
#include "times/TimeReader.h"

#include <chrono>
#include <cstdlib>
#include <ctime>

namespace pellam {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

} // namespace

CTime CTime::parse(std::string_view text) {
    static const TimeReader kReader(*TimeForm::parse("yyyy-MM-dd HH:mm:ss"), {});
    const std::size_t begin = text.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos) return {};
    text = text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
    const bool seconds = text.size() >= 19 && text[16] == ':';
    const bool whole = (text.size() == 10 || seconds) && text[4] == '-' && text[7] == '-';
    const auto moment = whole ? kReader.readOwn(text) : std::nullopt;
    if (!moment) return {};
    using namespace std::chrono;
    const sys_seconds wall{std::chrono::seconds(moment->wall())};
    const year_month_day date(floor<days>(wall));
    const hh_mm_ss clock(wall - floor<days>(wall));
    return {int{date.year()},
            static_cast<std::uint8_t>(unsigned{date.month()}),
            static_cast<std::uint8_t>(unsigned{date.day()}),
            static_cast<std::uint8_t>(clock.hours().count()),
            static_cast<std::uint8_t>(clock.minutes().count()),
            static_cast<std::uint8_t>(clock.seconds().count())};
}

CTime CTime::now() {
    const std::time_t moment = std::time(nullptr);
    std::tm fields{};
    localtime_r(&moment, &fields);
    return {fields.tm_year + 1900,
            static_cast<std::uint8_t>(fields.tm_mon + 1),
            static_cast<std::uint8_t>(fields.tm_mday),
            static_cast<std::uint8_t>(fields.tm_hour),
            static_cast<std::uint8_t>(fields.tm_min),
            static_cast<std::uint8_t>(fields.tm_sec)};
}

// A driver may hand over anything: two digits are taken of every field.
char* CTime::writeDate(char* out) const {
    return pellam::writeDate(out, year, month % 100U, day % 100U);
}

char* CTime::writeTime(char* out) const {
    return pellam::writeTime(out, hour % 100U, minute % 100U, second % 100U);
}

} // namespace pellam
