#include "delimited/time/TimeCandidates.h"
#include "delimited/time/TimeNames.h"
#include "times/TimeUnit.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace pellam {

namespace {

constexpr std::size_t kUnnamed = 4;         ///< columns of numbers that are tried without a name
constexpr std::size_t kElapsedColumns = 60; ///< columns in which elapsed time is looked for

/// Years that whole numbers may be, in a column that is named so.
constexpr double kFirstYear = 1500;
constexpr double kLastYear = 2200;

bool isShortUnit(std::string_view unit) {
    return unit == "s" || unit == "ms" || unit == "us" || unit == "ns";
}

TimeColumns timeOf(std::size_t column, const TimeForm& form, bool parts) {
    TimeColumns time;
    time.columns = {column};
    time.form = form;
    time.parts = parts;
    return time;
}

void addNumbers(TimeCandidates& candidates) {
    const TimeRows& rows = candidates.rows();
    std::size_t unnamed = 0;
    for (std::size_t column = 0; column < rows.columns(); ++column) {
        if (!isNumber(rows.kind(column))) continue;
        const bool named = namesTime(rows.name(column));
        const bool year = timePartOf(rows.name(column)) == TimePart::Year;
        if (!named && !year && ++unnamed > kUnnamed) continue;
        if (namesCount(rows.name(column)) && !named) continue;
        // "101230.40" for 10:12:30.4
        if (named && rows.isDigits(column, 6))
            candidates.addRead(timeOf(column, *TimeForm::parse("HHmmss"), false), 0.5);
        const TimeFinding finding = candidates.find(rows.texts({column}));
        const auto [least, most] = rows.range(column);
        if (year && least >= kFirstYear && most <= kLastYear && rows.rises(column))
            candidates.add(timeOf(column, *TimeForm::parse("decimal-year"), false), 0.1);
        if (!finding.convincing()) continue;
        const auto kind = finding.form.kind();
        // "198701" may be any number, unless a heading tells.
        if (!named && rows.isDigits(column, 6)) continue;
        if (kind == TimeForm::Kind::Epoch || kind == TimeForm::Kind::Calendar) {
            candidates.add(timeOf(column, finding.form, true), named ? 0.75 : 0.55);
        } else if (kind == TimeForm::Kind::DecimalYear && (named || year || !rows.hasNames())) {
            candidates.add(timeOf(column, finding.form, false), 0.2);
        }
    }
}

// Time since the start: a heading says so, or numbers that rise by small even steps.
void addElapsed(TimeCandidates& candidates) {
    const TimeRows& rows = candidates.rows();
    for (std::size_t column = 0; column < std::min(rows.columns(), kElapsedColumns); ++column) {
        const std::string_view name = rows.name(column);
        if (!isNumber(rows.kind(column)) || namesCount(name)) continue;
        const std::string_view named = elapsedUnitOf(name);
        const std::string_view unit =
            named.empty() ? unitBehind(rows.firstText(column)).name : named;
        const bool counted = column == 0 ? rows.rises(column) : rows.risesEvenly(column);
        const bool even = namesTime(name) ? rows.rises(column)
                                          : (name.empty() && rows.risesEvenly(column)) ||
                                                (isShortUnit(unit) && counted);
        if (!even) continue;
        const auto form = TimeForm::parse("elapsed-" + std::string(unit.empty() ? "s" : unit));
        if (form) candidates.add(timeOf(column, *form, false), 0.1);
        return;
    }
}

} // namespace

void addCounts(TimeCandidates& candidates) {
    addNumbers(candidates);
    addElapsed(candidates);
}

} // namespace pellam
