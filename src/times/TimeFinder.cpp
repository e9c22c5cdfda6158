#include "times/TimeFinder.h"

#include "base/InternationalSettings.h"
#include "times/CountFinder.h"
#include "times/FormCandidates.h"
#include "times/TimeReader.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace pellam {

namespace {

constexpr std::size_t kShapes = 16; ///< differently made samples that are looked at closely

/// A form that the samples may be written in, and what they then are.
struct Candidate {
    TimeForm form;
    std::string order;           ///< of its date's fields
    std::vector<double> moments; ///< of those samples that it reads
    std::size_t own = 0;         ///< samples that do not just begin with a year of four digits

    friend bool operator<(const Candidate& a, const Candidate& b) {
        return std::make_tuple(a.moments.size(), a.own) < std::make_tuple(b.moments.size(), b.own);
    }
};

// Digits and letters alone, whatever they are: texts of one shape have the same candidates.
std::string shapeOf(std::string_view text) {
    std::string shape(text);
    for (char& c : shape) {
        if (TimeCursor::isDigit(c)) c = '0';
    }
    return shape;
}

/// Mean distance of the steps between moments from the middle one, in middle steps: 0 for steps all
/// alike.
double unsteadiness(const std::vector<double>& moments) {
    std::vector<double> steps;
    for (std::size_t i = 1; i < moments.size(); ++i)
        steps.push_back(moments[i] - moments[i - 1]);
    if (steps.size() < 2) return 0;
    const auto middle = steps.begin() + static_cast<std::ptrdiff_t>((steps.size() - 1) / 2);
    std::nth_element(steps.begin(), middle, steps.end());
    const double usual = *middle;
    double sum = 0;
    for (const double step : steps)
        sum += std::abs(step - usual);
    return sum / static_cast<double>(steps.size()) / std::max(std::abs(usual), 1.0);
}

class FormFinder {
  public:
    FormFinder(std::span<const std::string_view> samples, const InternationalSettings& settings)
        : m_settings(settings) {
        for (const std::string_view sample : samples) {
            if (const TimeCursor text(sample); !text.atEnd()) m_samples.push_back(text.rest());
        }
    }

    TimeFinding find() {
        collectCandidates();
        TimeFinding finding = best();
        finding.samples = m_samples.size();
        if (finding.convincing() && finding.form.kind() == TimeForm::Kind::Calendar) return finding;
        TimeForm form = elapsedForm(finding.read);
        if (!form) form = countForm(m_samples);
        if (!form) return finding;
        TimeFinding counted;
        counted.form = form;
        counted.samples = m_samples.size();
        counted.read = momentsOf(form).size();
        return counted;
    }

  private:
    void collectCandidates() {
        const TimeWords words{m_settings.amText, m_settings.pmText};
        std::set<std::string> shapes;
        for (const std::string_view sample : m_samples) {
            if (shapes.size() == kShapes) break;
            if (!shapes.insert(shapeOf(sample)).second) continue;
            for (const std::string& name : formCandidates(sample, words))
                addCandidate(name);
        }
        // The user's own way may have words or signs in it that no other has.
        const std::string& own = m_settings.shortDatePattern;
        const bool signs =
            std::any_of(own.begin(), own.end(), [](char c) { return (c & 0x80) != 0; });
        if (m_candidates.empty() && signs) addCandidate(own + " HH:mm:ss");
    }

    // Of one order the candidate is kept that reads most, or tells most.
    void addCandidate(const std::string& name) {
        if (!m_tried.insert(name).second) return;
        const auto form = TimeForm::parse(name);
        if (!form) return;
        Candidate candidate{*form, dateOrder(name), momentsOf(*form), 0};
        const TimeReader reader(*form, m_settings);
        candidate.own = static_cast<std::size_t>(
            std::count_if(m_samples.begin(), m_samples.end(), [&reader](std::string_view sample) {
                return usual(reader.readOwn(sample));
            }));
        if (candidate.own == 0) return;
        const auto same = std::find_if(
            m_candidates.begin(), m_candidates.end(),
            [&candidate](const Candidate& other) { return other.order == candidate.order; });
        if (same == m_candidates.end()) {
            m_candidates.push_back(std::move(candidate));
        } else if (*same < candidate ||
                   (!(candidate < *same) && same->form.name().size() < name.size())) {
            *same = std::move(candidate);
        }
    }

    /// Whether there is a moment, and in a year that measurements are of.
    static bool usual(const std::optional<TimeMoment>& moment) {
        constexpr std::int64_t kFirst = -5'364'662'400; // 1800
        constexpr std::int64_t kLast = 7'258'118'400;   // 2200
        return moment && moment->seconds >= kFirst && moment->seconds < kLast;
    }

    [[nodiscard]] std::vector<double> momentsOf(const TimeForm& form) const {
        const TimeReader reader(form, m_settings);
        std::vector<double> moments;
        for (const std::string_view sample : m_samples) {
            const auto moment = reader.read(sample);
            if (usual(moment)) moments.push_back(secondsOf(*moment));
        }
        return moments;
    }

    TimeFinding best() {
        if (m_candidates.empty()) return {};
        const Candidate most = *std::max_element(m_candidates.begin(), m_candidates.end());
        TimeFinding finding;
        finding.read = most.moments.size();
        if (m_candidates.size() > 1) finding.order = TimeFinding::Order::Values;
        std::erase_if(m_candidates, [&most](const Candidate& other) { return other < most; });
        if (m_candidates.size() > 1) finding.order = rank();
        finding.form = m_candidates.front().form;
        if (m_candidates.size() > 1) finding.other = m_candidates[1].form;
        return finding;
    }

    /// Puts the likeliest of equally good orders in front.
    TimeFinding::Order rank() {
        std::stable_sort(m_candidates.begin(), m_candidates.end(),
                         [](const Candidate& a, const Candidate& b) {
                             return unsteadiness(a.moments) < unsteadiness(b.moments);
                         });
        const auto least = unsteadiness(m_candidates[0].moments);
        const auto tied = std::find_if(m_candidates.begin() + 1, m_candidates.end(),
                                       [least](const Candidate& candidate) {
                                           return unsteadiness(candidate.moments) > 2 * least;
                                       });
        if (tied - m_candidates.begin() == 1) return TimeFinding::Order::Spacing;
        const std::string usual = dateOrder(m_settings.shortDatePattern);
        std::stable_partition(m_candidates.begin(), tied, [&usual](const Candidate& candidate) {
            return candidate.order == usual;
        });
        return TimeFinding::Order::Locale;
    }

    /// h:mm:ss that no time of day can be, or that rises from zero on; none for other samples.
    [[nodiscard]] TimeForm elapsedForm(std::size_t readAsTimeOfDay) const {
        const auto colons = [](std::string_view sample) {
            return std::count(sample.begin(), sample.end(), ':');
        };
        std::ptrdiff_t most = 0;
        for (const std::string_view sample : m_samples)
            most = std::max(most, colons(sample));
        if (most == 0) return {};
        const TimeForm form = *TimeForm::parse(most == 1 ? "elapsed-m:s" : "elapsed-clock");
        const std::vector<double> moments = momentsOf(form);
        if (moments.size() * 10 < m_samples.size() * 9) return {};
        const bool fromZero = most > 1 && moments.size() > 1 && moments.front() == 0;
        const bool rising = std::adjacent_find(moments.begin(), moments.end(),
                                               std::greater_equal<>()) == moments.end();
        return moments.size() > readAsTimeOfDay || (fromZero && rising) ? form : TimeForm();
    }

    const InternationalSettings& m_settings;
    std::vector<std::string_view> m_samples;
    std::set<std::string> m_tried; ///< names of candidates
    std::vector<Candidate> m_candidates;
};

} // namespace

TimeFinding findTimeForm(std::span<const std::string_view> samples,
                         const InternationalSettings& settings) {
    return FormFinder(samples, settings).find();
}

} // namespace pellam
