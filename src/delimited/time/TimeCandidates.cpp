#include "delimited/time/TimeCandidates.h"

#include "delimited/time/TimeNames.h"
#include "times/TimeReader.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace pellam {

TimeFinding TimeCandidates::find(const std::vector<std::string>& texts) const {
    const std::vector<std::string_view> views(texts.begin(), texts.end());
    return findTimeForm(views, m_settings);
}

TimeFinding TimeCandidates::find(const std::vector<std::string>& texts, std::size_t column) const {
    TimeFinding finding = find(texts);
    if (!finding.ambiguous() || !finding.other) return finding;
    const std::string& sample = texts.front();
    std::string heading(m_rows.name(column));
    std::transform(heading.begin(), heading.end(), heading.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    const bool byLocale = finding.order == TimeFinding::Order::Locale;
    const bool points = sample.find('.') < sample.find(' ');
    bool monthFirst = byLocale && (sample.ends_with('M') || sample.ends_with('m')) && !points;
    bool dayFirst = byLocale && points;
    for (const char mark : {'/', '-', '.'}) {
        if (heading.find(std::string("mm") + mark + "dd") != std::string::npos) monthFirst = true;
        if (heading.find(std::string("dd") + mark + "mm") != std::string::npos) dayFirst = true;
    }
    if (heading.find("mmddyy") != std::string::npos) monthFirst = true;
    if (heading.find("ddmmyy") != std::string::npos) dayFirst = true;
    const bool isMonthFirst = finding.form.name().starts_with('M');
    const bool isDayFirst = finding.form.name().starts_with('d');
    const bool swap = (monthFirst && isDayFirst && finding.other.name().starts_with('M')) ||
                      (dayFirst && isMonthFirst && finding.other.name().starts_with('d'));
    if (swap) std::swap(finding.form, finding.other);
    return finding;
}

// How well the moments of consecutive rows follow each other, 0 to 1: they rise, most of them by
// the same step.
double TimeCandidates::order(const std::vector<std::string>& texts, const TimeForm& form) const {
    const TimeReader reader(form, m_settings);
    std::optional<double> before;
    std::vector<double> steps;
    for (std::size_t i = 0; i < m_rows.consecutive(); ++i) {
        const auto moment = reader.read(texts[i]);
        if (!moment) continue;
        if (before) steps.push_back(secondsOf(*moment) - *before);
        before = secondsOf(*moment);
    }
    if (steps.empty()) return 1;
    std::vector<double> sorted = steps;
    const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
    std::nth_element(sorted.begin(), middle, sorted.end());
    const auto rising = std::count_if(steps.begin(), steps.end(), [](double s) { return s > 0; });
    const auto even = std::count_if(steps.begin(), steps.end(), [&](double s) {
        return std::abs(s - *middle) <= 0.01 * std::abs(*middle);
    });
    return (0.8 * static_cast<double>(rising) + 0.2 * static_cast<double>(even)) /
           static_cast<double>(steps.size());
}

void TimeCandidates::add(TimeColumns time, const std::vector<std::string>& texts, double base) {
    const auto blank = std::count_if(texts.begin(), texts.end(), [](const std::string& text) {
        return text.find_first_not_of(' ') == std::string::npos;
    });
    const double filled = 1 - static_cast<double>(blank) / static_cast<double>(texts.size());
    double score = (base + 0.3 * order(texts, time.form)) * filled * filled;
    const bool named = std::any_of(time.columns.begin(), time.columns.end(),
                                   [&](std::size_t c) { return namesTime(m_rows.name(c)); });
    if (named) score += 0.1;
    // The first of several times is the row's.
    score -= 0.002 * static_cast<double>(std::min<std::size_t>(time.columns.front(), 20));
    m_candidates.push_back({std::move(time), score});
}

void TimeCandidates::add(TimeColumns time, double base) {
    const std::vector<std::string> texts = m_rows.texts(time.columns, time.padded);
    add(std::move(time), texts, base);
}

TimeForm TimeCandidates::addTexts(const std::vector<std::size_t>& columns, double base) {
    const std::vector<std::string> texts = m_rows.texts(columns);
    const TimeFinding finding = find(texts, columns.front());
    if (!finding.form || finding.read * 10 < finding.samples * 8) return {};
    const std::string_view first = m_rows.firstText(columns.front());
    const auto isPart = [this](std::size_t column) { return isNumber(m_rows.kind(column)); };
    TimeColumns time;
    time.columns = columns;
    time.form = finding.form;
    time.parts = intervalStart(first).size() < first.size() ||
                 std::all_of(columns.begin(), columns.end(), isPart);
    time.guessed = finding.ambiguous();
    time.other = finding.other;
    add(std::move(time), texts, base);
    return finding.form;
}

void TimeCandidates::addRead(TimeColumns time, double base) {
    const std::vector<std::string> texts = m_rows.texts(time.columns, time.padded);
    const TimeReader reader(time.form, m_settings);
    const auto read = static_cast<std::size_t>(
        std::count_if(texts.begin(), texts.end(),
                      [&](const std::string& text) { return reader.read(text).has_value(); }));
    if (read * 10 >= texts.size() * 9) add(std::move(time), texts, base);
}

TimeColumns TimeCandidates::best() const {
    const auto best =
        std::max_element(m_candidates.begin(), m_candidates.end(),
                         [](const Candidate& a, const Candidate& b) { return a.score < b.score; });
    return best == m_candidates.end() ? TimeColumns() : best->time;
}

} // namespace pellam
