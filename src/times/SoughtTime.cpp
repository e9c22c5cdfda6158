#include "times/SoughtTime.h"

#include "times/TimeCursor.h"
#include "times/TimeItems.h"
#include "times/TimeReader.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <vector>

namespace pellam {

namespace {

constexpr std::int64_t kDay = 86'400;

std::string_view withoutMarksBehind(std::string_view text) {
    while (!text.empty() &&
           std::string_view(" \t/-.:T").find(text.back()) != std::string_view::npos)
        text.remove_suffix(1);
    return text;
}

bool allDigits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), TimeCursor::isDigit);
}

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
        text.erase(at, from.size());
        text.insert(at, to);
    }
}

/// An elapsed time as charts write it, in the signs that readers know.
std::string plainSigns(std::string_view text) {
    std::string plain(text);
    replaceAll(plain, "\xE2\x88\x92", "-"); // minus
    replaceAll(plain, "\xC2\xB5", "u");     // micro, and the Greek letter
    replaceAll(plain, "\xCE\xBC", "u");
    replaceAll(plain, " d ", " ");
    return plain;
}

/// What readers for a column of one form make of a typed text.
class TypedTime {
  public:
    TypedTime(const TimeForm& form, const InternationalSettings& settings, FractionUnit unit)
        : m_form(form),
          m_settings(settings),
          m_unit(unit) {}

    [[nodiscard]] std::optional<TimeMoment> readAs(std::string_view name,
                                                   std::string_view text) const {
        return TimeReader(*TimeForm::parse(name), m_settings, m_unit).readOwn(text);
    }

    /// "2008/02/25 12", "25/02/2008", "Feb 2008".
    [[nodiscard]] std::optional<TimeMoment> readDate(std::string_view text) const {
        const std::string order = dateOrder(m_form.name());
        std::vector<std::string> names = {"yyyy-MM-dd HH", "yyyyMMdd HH"};
        if (order == "yMd") names.emplace_back("yy-MM-dd HH");
        if (order == "yD") names.emplace_back("yyyy-DDD HH");
        if (order == "Mdy") names.emplace_back("MM/dd/yyyy HH");
        if (order == "dMy") names.emplace_back("dd/MM/yyyy HH");
        if (m_form.kind() == TimeForm::Kind::Calendar) names.push_back(m_form.name());
        names.insert(names.end(), {"dd/MM/yyyy HH", "MM/dd/yyyy HH", "yyyy-MM"});
        // A month and two digits may as well be a day and a month.
        if (text.size() > 4 && allDigits(text.substr(text.size() - 4)))
            names.emplace_back("MM/yyyy");
        for (const std::string& name : names) {
            if (const auto moment = readAs(name, text)) return moment;
        }
        return {};
    }

    /// "10.5", "250 ms", "0:00:10.5" or "1 d 2:03:04".
    [[nodiscard]] std::optional<TimeMoment> readElapsed(std::string_view typed) const {
        const std::string signs = plainSigns(typed);
        const std::string_view text = signs;
        if (const auto moment = readAs(m_form.name(), text)) return moment;
        if (const auto moment = readAs("elapsed-s", text)) return moment;
        return readAs("elapsed-clock", text);
    }

  private:
    const TimeForm& m_form;
    const InternationalSettings& m_settings;
    FractionUnit m_unit;
};

} // namespace

std::optional<SoughtTime> SoughtTime::read(std::string_view text, const TimeForm& form,
                                           const InternationalSettings& settings,
                                           FractionUnit unit) {
    const TypedTime typed(form, settings, unit);
    while (text.starts_with(' '))
        text.remove_prefix(1);
    const std::string_view wanted = withoutMarksBehind(text);
    if (wanted.empty() || allDigits(text)) return {};
    SoughtTime sought;
    const auto understood = [&sought](const std::optional<TimeMoment>& moment) {
        if (moment) sought.m_moment = *moment;
        return moment.has_value();
    };
    if (form.kind() == TimeForm::Kind::Elapsed) {
        if (!understood(typed.readElapsed(wanted))) return {};
        return sought;
    }
    if (allDigits(wanted) && text[wanted.size()] != ':') {
        if (wanted.size() != 4 || !understood(typed.readAs("yyyy", wanted))) return {};
        return sought;
    }
    const bool clock = std::any_of(text.begin(), text.end(),
                                   [](char c) { return c == ':' || TimeCursor::isLetter(c); });
    if (clock && understood(typed.readAs("HH", wanted))) {
        sought.m_ofAnyDay = form.kind() != TimeForm::Kind::TimeOfDay;
        return sought;
    }
    if (!understood(typed.readDate(wanted))) return {};
    return sought;
}

SoughtTime SoughtTime::from(const TimeMoment& row) const {
    if (!m_ofAnyDay) return *this;
    SoughtTime sought;
    sought.m_moment = m_moment;
    const std::int64_t wall = row.wall();
    sought.m_moment.seconds += wall - (wall % kDay + kDay) % kDay;
    if (std::tie(sought.m_moment.seconds, sought.m_moment.nanoseconds) <
        std::tie(wall, row.nanoseconds)) {
        sought.m_moment.seconds += kDay;
    }
    return sought;
}

bool SoughtTime::reachedBy(const TimeMoment& row) const {
    const std::int64_t seconds = m_moment.utc ? row.seconds : row.wall();
    return std::tie(seconds, row.nanoseconds) >= std::tie(m_moment.seconds, m_moment.nanoseconds);
}

} // namespace pellam
