#include "delimited/layout/MissingFinder.h"

#include "delimited/sample/SampleRecords.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace pellam {

namespace {

constexpr std::size_t kMostTexts = 12;

double valueOf(std::string_view text) {
    std::string point(text);
    std::replace(point.begin(), point.end(), ',', '.');
    double value = std::numeric_limits<double>::quiet_NaN();
    std::from_chars(point.data(), point.data() + point.size(), value);
    return value;
}

bool mayStandForNone(double value) {
    for (const double mark : {-9999.0, -99999.0, -7999.0, -6999.0, -9900.0}) {
        if (std::trunc(value) == mark) return true;
    }
    return false;
}

// The marks in a column and what its other values span.
struct ColumnMarks {
    std::vector<std::string_view> texts;
    double least = std::numeric_limits<double>::infinity();
    double most = -std::numeric_limits<double>::infinity();

    // A mark stands apart when it is farther from the values than they are from each other.
    [[nodiscard]] bool standsApart(double mark) const {
        if (least > most) return true;
        const double gap = mark < least ? least - mark : mark - most;
        return gap > std::max(most - least, 100.0);
    }
};

} // namespace

void findMissingTexts(const SampleRecords& records, const SampleTable& table, TextLayout& layout) {
    std::vector<std::string>& found = layout.missing;
    const auto add = [&found](std::string_view text) {
        if (found.size() < kMostTexts && std::find(found.begin(), found.end(), text) == found.end())
            found.emplace_back(text);
    };
    std::vector<ColumnMarks> columns(table.kinds.size());
    for (std::size_t i = table.first; i < table.end; ++i) {
        const auto fields = records.fields(i);
        for (std::size_t column = 0; column < fields.size(); ++column) {
            const SampleField& field = fields[column];
            if (field.kind == FieldKind::Missing && isReading(table.kind(column))) add(field.text);
            if (!isNumber(field.kind) || !isNumber(table.kind(column))) continue;
            ColumnMarks& marks = columns[column];
            const double value = valueOf(field.text);
            if (field.text[0] == '-' && mayStandForNone(value)) {
                if (marks.texts.size() < kMostTexts &&
                    std::find(marks.texts.begin(), marks.texts.end(), field.text) ==
                        marks.texts.end())
                    marks.texts.push_back(field.text);
            } else {
                marks.least = std::min(marks.least, value);
                marks.most = std::max(marks.most, value);
            }
        }
    }
    for (const ColumnMarks& marks : columns) {
        for (const std::string_view text : marks.texts) {
            if (marks.standsApart(valueOf(text))) add(text);
        }
    }
    for (std::size_t i = 0; i < found.size(); ++i) {
        const double value = valueOf(found[i]);
        for (std::size_t column = 0; column < columns.size() && !std::isnan(value); ++column) {
            if (!columns[column].standsApart(value)) layout.ownValues.push_back({column, i});
        }
    }
}

} // namespace pellam
