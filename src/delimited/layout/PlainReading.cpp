#include "delimited/layout/PlainReading.h"

#include "delimited/sample/SampleRecords.h"

#include <algorithm>

namespace pellam {

namespace {

std::size_t nextRecord(const SampleRecords& records, std::size_t index) {
    while (index < records.size() && records[index].blank)
        ++index;
    return index;
}

bool areNames(const SampleRecords& records, std::size_t index) {
    const auto fields = records.fields(index).first(records[index].used);
    return fields.size() >= 2 && std::all_of(fields.begin(), fields.end(), [](const auto& field) {
               return field.kind == FieldKind::Text;
           });
}

// A date and a time of day that stands in a column of its own are not read from the first alone.
bool isTimeAlone(const SampleRecords& records, std::size_t index) {
    const auto fields = records.fields(index);
    if (fields.empty() || fields[0].kind != FieldKind::Time) return false;
    if (fields[0].text.find(':') != std::string_view::npos) return true;
    return std::none_of(fields.begin() + 1, fields.end(),
                        [](const auto& field) { return field.kind == FieldKind::Time; });
}

} // namespace

std::optional<std::size_t> plainData(const SampleRecords& records) {
    const std::size_t headings = nextRecord(records, 0);
    if (headings >= records.size() || !areNames(records, headings)) return std::nullopt;
    const std::size_t first = nextRecord(records, headings + 1);
    // Lines of units and the like hold no readings.
    if (first >= records.size() || records[first].readings == 0) return std::nullopt;
    const std::size_t usual = nextRecord(records, first + (records.size() - first) / 2);
    const std::size_t fields = records[usual < records.size() ? usual : first].fields;
    std::size_t count = 0;
    std::size_t odd = 0;
    std::size_t ragged = 0;
    for (std::size_t i = first; i < records.size(); ++i) {
        if (records[i].blank) continue;
        ++count;
        const bool fits = records[i].used <= records[headings].used && records[i].fields == fields;
        if (!isTimeAlone(records, i)) {
            ++odd;
        } else if (!fits) {
            ++ragged;
        }
        // Lines of a description stand first.
        if (count == 2 && odd == 2) return std::nullopt;
    }
    // Few enough to be accidents; one of a short file is. Rows that begin with their time belong to
    // the table, whatever they end in.
    const std::size_t accident = count >= 4 ? 1 : 0;
    const bool plain =
        odd <= std::max(count / 10, accident) && odd + ragged <= std::max(count / 4, accident);
    return plain ? std::optional(first) : std::nullopt;
}

} // namespace pellam
