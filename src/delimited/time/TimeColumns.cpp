#include "delimited/time/TimeColumns.h"

#include "delimited/time/TimeCandidates.h"
#include "delimited/time/TimeNames.h"
#include "delimited/time/TimeRows.h"
#include "times/TimeReader.h"

#include <algorithm>
#include <optional>

namespace pellam {

namespace {

constexpr std::size_t kTimeColumns = 12; ///< columns of dates and times that are tried
constexpr std::size_t kDateColumns = 4;  ///< columns of numbers that may be dates

bool hasClock(const TimeForm& form) {
    return form.name().find_first_of("Hh") != std::string::npos;
}

bool isTimeOfDay(const TimeForm& form) {
    return form.kind() == TimeForm::Kind::TimeOfDay || form.name() == "elapsed-clock";
}

class TimeSearch {
  public:
    TimeSearch(const TimeRows& rows, const InternationalSettings& settings)
        : m_rows(rows),
          m_candidates(rows, settings) {}

    TimeColumns run() {
        addTexts();
        addPairs();
        addParts(m_candidates, m_texts);
        addCounts(m_candidates);
        return m_candidates.best();
    }

  private:
    void addTexts() {
        for (std::size_t column = 0; column < m_rows.columns() && m_texts.size() < kTimeColumns;
             ++column) {
            if (m_rows.kind(column) != FieldKind::Time) continue;
            const TimeForm form = m_candidates.find(m_rows.texts({column})).form;
            double base = 0.4;
            if (form.kind() == TimeForm::Kind::Calendar) base = hasClock(form) ? 1.0 : 0.6;
            const TimeForm added = m_candidates.addTexts({column}, base);
            if (added) m_texts.emplace_back(column, added);
        }
    }

    // Date and time of day in two columns, wherever they stand.
    void addPairs() {
        for (const auto& [date, form] : m_texts) {
            if (form.kind() != TimeForm::Kind::Calendar || hasClock(form)) continue;
            for (const auto& [clock, clockForm] : m_texts) {
                if (isTimeOfDay(clockForm) && !isOtherClock(date, form, clock))
                    m_candidates.addTexts({date, clock}, clock > date ? 0.98 : 0.96);
            }
            addClockNumber(date, form);
            if (m_rows.isPointClock(date + 1)) addPair(date, form, " HH.mm.ss", false, -1);
        }
        // Dates in digits alone: 20170408.
        for (std::size_t column = 0; column < std::min(kDateColumns, m_rows.columns()); ++column) {
            if (m_rows.kind(column) != FieldKind::Number) continue;
            if (m_rows.isDigits(column, 6) && m_rows.isDigits(column + 1, 6) &&
                namesTime(m_rows.name(column)))
                m_candidates.addTexts({column, column + 1}, 1.0);
            if (m_rows.firstText(column).size() != 8) continue;
            const TimeFinding finding = m_candidates.find(m_rows.texts({column}));
            if (!finding.convincing() || finding.form.kind() != TimeForm::Kind::Calendar) continue;
            addClockNumber(column, finding.form);
            for (const auto& [clock, clockForm] : m_texts) {
                if (isTimeOfDay(clockForm)) m_candidates.addTexts({column, clock}, 1.0);
            }
        }
    }

    // The time of something within the day of a row: far from the date, which needs no clock.
    [[nodiscard]] bool isOtherClock(std::size_t date, const TimeForm& form,
                                    std::size_t clock) const {
        return clock != date + 1 && date != clock + 1 && m_candidates.isSteady({date}, form) &&
               !m_candidates.isSteady({date, clock}, *TimeForm::parse(form.name() + " HH:mm:ss"));
    }

    // Hours, or hours and minutes as one number, in the column behind a date.
    void addClockNumber(std::size_t date, const TimeForm& form) {
        const std::size_t clock = date + 1;
        if (m_rows.kind(clock) != FieldKind::Number) return;
        const auto [least, most] = m_rows.range(clock);
        if (!(least >= 0)) return;
        if (most > 2400) {
            if (m_rows.isDigits(clock, 6)) addPair(date, form, " HHmmss", true, -1);
            return;
        }
        const std::string_view name = m_rows.name(clock);
        const TimePart part = timePartOf(name);
        if (most <= 24) {
            const auto hours = TimeForm::parse(form.name() + " H");
            if (part == TimePart::Hour ||
                (!m_rows.hasNames() && hours && m_candidates.isSteady({date, clock}, *hours)))
                addPair(date, form, " H", true, -1);
            return;
        }
        const bool told = part == TimePart::HourMinute || part == TimePart::Hour ||
                          namesTime(name) || !m_rows.hasNames();
        if (told && most > 60 && m_rows.minutesFit(clock)) addPair(date, form, " HHmm", true, 1);
    }

    void addPair(std::size_t date, const TimeForm& form, const char* clock, bool parts,
                 int padded) {
        const auto joined = TimeForm::parse(form.name() + clock);
        if (!joined) return;
        TimeColumns time;
        time.columns = {date, date + 1};
        time.form = *joined;
        time.parts = parts;
        time.padded = padded;
        m_candidates.addRead(std::move(time), 1.0);
    }

    const TimeRows& m_rows;
    TimeCandidates m_candidates;
    TimeTexts m_texts;
};

} // namespace

TimeColumns findTimeColumns(const TimeRows& rows, const InternationalSettings& settings) {
    return rows.empty() ? TimeColumns() : TimeSearch(rows, settings).run();
}

TimeColumns timeOfColumns(const TimeRows& rows, const InternationalSettings& settings,
                          const std::vector<std::size_t>& columns, const std::string& form) {
    TimeColumns time;
    time.columns = columns;
    if (columns.empty() || rows.empty()) return time;
    const std::vector<std::string> texts = rows.texts(columns);
    const TimeFinding finding = TimeCandidates(rows, settings).find(texts, columns.front());
    time.form = TimeForm::parse(form).value_or(finding.form);
    const bool calendar = time.form.kind() == TimeForm::Kind::Calendar;
    const TimeReader reader(time.form, settings);
    time.unread = !form.empty() && time.form.kind() != TimeForm::Kind::Elapsed &&
                  std::none_of(texts.begin(), texts.end(), [&](const std::string& text) {
                      return reader.read(text).has_value();
                  });
    const bool numbers = std::all_of(columns.begin(), columns.end(), [&](std::size_t column) {
        return rows.kind(column) == FieldKind::Number;
    });
    time.parts = time.form.kind() == TimeForm::Kind::Epoch || (calendar && numbers);
    time.guessed = form.empty() && finding.ambiguous();
    time.other = finding.other;
    return time;
}

std::string joinedTime(const std::vector<std::string_view>& texts, int padded) {
    std::string joined;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (i > 0) joined += ' ';
        if (static_cast<int>(i) == padded && texts[i].size() < 4)
            joined.append(4 - texts[i].size(), '0');
        joined += intervalStart(texts[i]);
    }
    return joined;
}

std::string_view intervalStart(std::string_view text) {
    constexpr std::size_t kShortest = 10; // of a date
    for (const std::string_view mark : {" - ", "--", "/"}) {
        const std::size_t at = text.find(mark, kShortest);
        if (at != std::string_view::npos && text.size() > at + kShortest) return text.substr(0, at);
    }
    return text;
}

} // namespace pellam
