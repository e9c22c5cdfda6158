#include "times/CountFinder.h"

#include "times/TimeUnit.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace pellam {

namespace {

constexpr double kFirstEpoch = 631'152'000;  // 1990, in seconds
constexpr double kLastEpoch = 2'524'608'000; // 2050
constexpr double kFirstYear = 1800;
constexpr double kLastYear = 2100;

bool within(const std::vector<double>& values, double first, double last) {
    return std::all_of(values.begin(), values.end(),
                       [=](double value) { return value >= first && value < last; });
}

// A row here and there may be late, as where a logger's clock was set back.
bool rises(const std::vector<double>& values) {
    std::size_t falls = 0;
    for (std::size_t i = 1; i < values.size(); ++i)
        falls += values[i] < values[i - 1] ? 1 : 0;
    return values.back() > values.front() && falls * 50 <= values.size();
}

// Most steps are about the middle one: head and tail of a file may lie far apart.
bool stepsEvenly(const std::vector<double>& values) {
    std::vector<double> steps;
    for (std::size_t i = 1; i < values.size(); ++i)
        steps.push_back(values[i] - values[i - 1]);
    std::sort(steps.begin(), steps.end());
    const double usual = steps[steps.size() / 2];
    const auto even = std::count_if(steps.begin(), steps.end(), [usual](double step) {
        return step > usual / 2 && step < usual * 2;
    });
    return steps.front() > 0 && even * 5 >= static_cast<std::ptrdiff_t>(steps.size()) * 4;
}

/// The samples as counts of a unit, in seconds; those that are none are left out.
std::vector<double> countsOf(std::span<const std::string_view> samples, TimeUnit unit) {
    std::vector<double> values;
    for (const std::string_view sample : samples) {
        if (const auto moment = countedMoment(sample, unit)) values.push_back(secondsOf(*moment));
    }
    return values;
}

} // namespace

TimeForm countForm(std::span<const std::string_view> samples) {
    const std::vector<double> years = countsOf(samples, {0, 1});
    const bool decimals = std::any_of(years.begin(), years.end(),
                                      [](double year) { return year != std::floor(year); });
    if (decimals && years.size() > 2 && years.size() * 10 >= samples.size() * 9 &&
        within(years, kFirstYear, kLastYear) && stepsEvenly(years)) {
        return *TimeForm::parse("decimal-year");
    }
    for (const char* const name : {"epoch-s", "epoch-ms", "epoch-us", "epoch-ns"}) {
        const std::vector<double> moments = countsOf(samples, *timeUnit(name));
        if (moments.size() > 1 && moments.size() * 10 >= samples.size() * 9 &&
            within(moments, kFirstEpoch, kLastEpoch) && rises(moments)) {
            return *TimeForm::parse(name);
        }
    }
    return {};
}

} // namespace pellam
