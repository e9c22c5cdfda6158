#include "times/TimeReader.h"

#include "base/InternationalSettings.h"
#include "times/ElapsedClock.h"

namespace pellam {

namespace {

// Texts that begin with a year of four digits mean the same in every column.
const TimeItems& yearFirst(std::string_view text) {
    static const TimeItems kParted = *timeItems("yyyy-MM-dd HH:mm:ss");
    static const TimeItems kCompact = *timeItems("yyyyMMddTHHmmss");
    return TimeCursor(text).digitsAhead() >= 8 ? kCompact : kParted;
}

// Years as decimal fractions are rounded by those who write them: no closer than a second.
std::optional<TimeMoment> decimalYear(std::string_view text) {
    const auto years = countedMoment(text, {});
    if (!years || years->seconds < 1 || years->seconds > 9998) return {};
    TimeFields fields;
    fields.year = static_cast<int>(years->seconds);
    auto moment = fields.moment();
    ++fields.year;
    const auto length = static_cast<double>(fields.moment()->seconds - moment->seconds);
    moment->seconds += static_cast<std::int64_t>(length * years->nanoseconds / 1e9 + 0.5);
    return moment;
}

// The unit that stands behind a number holds, before that of the column.
std::optional<TimeMoment> elapsedCount(std::string_view text, TimeUnit unit) {
    const auto moment = countedMoment(text, unit);
    if (moment) return moment;
    const UnitBehind own = unitBehind(text);
    if (own.name.empty()) return {};
    return countedMoment(text.substr(0, own.at), *timeUnit("elapsed-" + std::string(own.name)));
}

} // namespace

TimeReader::TimeReader(const TimeForm& form, const InternationalSettings& settings,
                       FractionUnit unit)
    : m_form(form),
      m_words{settings.amText, settings.pmText, unit},
      m_items(timeItems(form.name()).value_or(TimeItems{})),
      m_unit(timeUnit(form.name())) {}

std::optional<TimeMoment> TimeReader::read(std::string_view text) const {
    const auto moment = readOwn(text);
    if (moment || m_form.kind() != TimeForm::Kind::Calendar) return moment;
    return CalendarWalk(text, m_words).read(yearFirst(text));
}

std::optional<TimeMoment> TimeReader::readOwn(std::string_view text) const {
    switch (m_form.kind()) {
    case TimeForm::Kind::Calendar:
    case TimeForm::Kind::TimeOfDay:
        return CalendarWalk(text, m_words).read(m_items);
    case TimeForm::Kind::Epoch: {
        auto moment = countedMoment(text, *m_unit);
        if (moment) moment->utc = true;
        return moment;
    }
    case TimeForm::Kind::Elapsed:
        return m_unit ? elapsedCount(text, *m_unit)
                      : elapsedClock(text, m_form.name() == "elapsed-m:s");
    case TimeForm::Kind::DecimalYear:
        return decimalYear(text);
    case TimeForm::Kind::None:
        break;
    }
    return {};
}

} // namespace pellam
