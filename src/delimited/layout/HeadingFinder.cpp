#include "delimited/layout/HeadingFinder.h"

#include "base/UnitWords.h"
#include "delimited/sample/FieldSplitter.h"
#include "delimited/sample/SampleRecords.h"
#include "delimited/time/TimeNames.h"

#include <algorithm>
#include <map>
#include <set>
#include <span>
#include <utility>

namespace pellam {

namespace {

constexpr std::size_t kBlock = 6;  ///< lines above the data that may head it
constexpr std::size_t kBlanks = 3; ///< blank lines that may stand between

enum class Role { Names, Units, Statistics, Values };

class HeadingSearch {
  public:
    HeadingSearch(const SampleRecords& records, const SampleTable& table)
        : m_records(records),
          m_table(table),
          m_ends(fixedEnds()) {}

    FoundHeadings run() {
        const std::vector<std::size_t> block = linesAbove();
        FoundHeadings found;
        std::vector<std::size_t> names;
        std::size_t units = kNone;
        std::size_t values = kNone;
        found.first = m_table.first;
        for (std::size_t i = 0; i < block.size(); ++i) {
            const std::size_t record = block[i];
            const Role role = roleOf(record);
            if (role == Role::Statistics) continue;
            if (names.empty() && units == kNone &&
                (role == Role::Units || isUnitsBelow(block, i))) {
                units = record;
            } else if (role == Role::Values && names.empty() && units == kNone &&
                       isRowBelow(block, i)) {
                found.first = record;
            } else if (role == Role::Values) {
                values = record;
                break;
            } else if (names.empty() || !isComplete(names) || isGroups(record, names.back()) ||
                       areSymbols(names.back())) {
                if (!names.empty() && !continues(record, names.back())) break;
                names.push_back(record);
            } else {
                break;
            }
        }
        if (names.empty() && values != kNone && mayName(values, units)) names.push_back(values);
        if (names.empty() && units != kNone) {
            // Quantities may have names like those of units: "t", "V", "A".
            names.push_back(units);
            units = kNone;
        }
        fill(found, names, units);
        return found;
    }

    [[nodiscard]] FoundHeadings of(std::int64_t headingsLine, std::int64_t unitsLine) const {
        FoundHeadings found;
        found.first = m_table.first;
        std::vector<std::size_t> names;
        std::size_t units = kNone;
        for (std::size_t i = 0; i < m_records.size(); ++i) {
            if (m_records[i].line == headingsLine) names.push_back(i);
            if (m_records[i].line == unitsLine) units = i;
        }
        fill(found, names, units);
        return found;
    }

  private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    // Records above the data that have about its number of fields, the nearest first.
    [[nodiscard]] std::vector<std::size_t> linesAbove() const {
        std::vector<std::size_t> block;
        std::size_t blanks = 0;
        for (std::size_t i = m_table.first; i-- > 0 && block.size() < kBlock;) {
            const SampleRecord& record = m_records[i];
            if (record.blank || isRule(record.text) || isTimeNameAlone(i)) {
                if (++blanks > kBlanks) break;
                continue;
            }
            if (!fits(i)) break;
            block.push_back(i);
        }
        return block;
    }

    // A line drawn of signs, "#", "-----", or the name of a section: "[data]".
    static bool isRule(std::string_view text) {
        return text.find_first_not_of("#%;-=*_ \t") == std::string_view::npos ||
               (text.front() == '[' && text.find(']') + 1 == text.size());
    }

    // "Timestamp;;": the names of the other columns stand above.
    [[nodiscard]] bool isTimeNameAlone(std::size_t index) const {
        return m_records[index].used == 1 && m_table.columns > 2 &&
               m_records[index].fields == m_table.columns &&
               namesTime(m_records.field(index, 0).text);
    }

    // Whether a line of the block is of units though few of them are known, as the line above,
    // which has less, names all columns.
    [[nodiscard]] bool isUnitsBelow(const std::vector<std::size_t>& block, std::size_t i) const {
        return isNamesAbove(block, i + 1) && unitsIn(block[i]) > unitsIn(block[i + 1]);
    }

    // Whether a line of the block is a row of data that is out of line: names stand above it.
    [[nodiscard]] bool isRowBelow(const std::vector<std::size_t>& block, std::size_t i) const {
        constexpr std::size_t kRows = 3;
        std::size_t above = i + 1;
        while (above < i + kRows && above < block.size() && roleOf(block[above]) == Role::Values)
            ++above;
        return !namesTime(m_records.field(block[i], 0).text) && isNamesAbove(block, above);
    }

    [[nodiscard]] bool isNamesAbove(const std::vector<std::size_t>& block, std::size_t i) const {
        if (i >= block.size() || m_records[block[i]].readings > 0 ||
            roleOf(block[i]) != Role::Names || !isComplete({block[i]}))
            return false;
        const auto fields = m_records.fields(block[i]);
        return std::any_of(fields.begin(), fields.end(), [](const SampleField& field) {
            return namesTime(field.text) || timePartOf(field.text) != TimePart::None;
        });
    }

    [[nodiscard]] std::size_t unitsIn(std::size_t record) const {
        const auto fields = m_records.fields(record);
        return static_cast<std::size_t>(
            std::count_if(fields.begin(), fields.end(),
                          [](const SampleField& field) { return isUnitText(field.text); }));
    }

    [[nodiscard]] bool fits(std::size_t index) const {
        const SampleRecord& record = m_records[index];
        const std::size_t columns = m_table.columns;
        if (columns == 1) return record.fields == 1;
        if (record.used < 2 && record.fields != columns) return false;
        if (record.used == 1 && columns > 2) return false;
        // Names of several words can't be told apart, unless by where they stand.
        if (m_records.dialect().separator == Dialect::kBlankRuns && m_ends.empty() &&
            record.fields > columns && !hasMarkField(index))
            return false;
        // More names than fields, or names for the first few fields only, are still names.
        return record.fields + 1 >= usedColumns() || record.used * 2 >= columns;
    }

    [[nodiscard]] std::size_t usedColumns() const {
        std::size_t used = m_table.kinds.size();
        while (used > 0 && m_table.kinds[used - 1] == FieldKind::Empty)
            --used;
        return std::min(used, m_table.columns);
    }

    [[nodiscard]] Role roleOf(std::size_t index) const {
        std::size_t units = 0;
        std::size_t statistics = 0;
        std::size_t numbers = 0;
        std::size_t used = 0;
        bool row = false; // a reading where the data has one like it, or behind the columns
        const auto fields = m_records.fields(index);
        for (std::size_t column = 0; column < fields.size(); ++column) {
            const SampleField& field = fields[column];
            const bool over = column < usedColumns();
            if (isReading(field.kind))
                row = row || !over ||
                      (field.kind == FieldKind::Time && m_table.kind(column) == field.kind);
            // What stands over no column of the data tells nothing else of the line.
            if (field.text.empty() || column > usedColumns() || (!over && isReading(field.kind)))
                continue;
            ++used;
            units += isUnitText(field.text);
            statistics += isStatisticText(field.text);
            numbers += isReading(field.kind);
        }
        if (statistics * 10 >= used * 9) return Role::Statistics;
        if (units * 5 >= used * 3) return Role::Units;
        row = row || (isReading(fields[0].kind) && m_table.kind(0) == fields[0].kind);
        if (row || numbers * 3 > used || m_records[index].used < 2) {
            // Wavelengths, depths and the like may name columns.
            return m_table.columns == 1 && numbers == 0 ? Role::Names : Role::Values;
        }
        return Role::Names;
    }

    // Whether the names, the nearest line first, tell the columns apart.
    [[nodiscard]] bool isComplete(const std::vector<std::size_t>& names) const {
        std::set<std::string> seen;
        for (std::size_t column = 0; column < usedColumns(); ++column) {
            if (m_table.kind(column) == FieldKind::Empty) continue;
            const std::string name = joined(names, column);
            if (name.empty() && column > 0) return false;
            if (!seen.insert(name).second) return false;
        }
        return true;
    }

    // "T", "F", "X": the names stand above.
    [[nodiscard]] bool areSymbols(std::size_t record) const {
        const auto fields = m_records.fields(record);
        return std::all_of(fields.begin(), fields.end(),
                           [](const SampleField& field) { return field.text.size() < 2; });
    }

    // Whether a line names groups of the columns that the line below it tells apart.
    [[nodiscard]] bool isGroups(std::size_t record, std::size_t below) const {
        if (!continues(record, below) || m_records[record].readings > 0) return false;
        if (m_records[record].used != m_records[below].used) return false;
        std::set<std::string_view> seen;
        const auto fields = m_records.fields(record);
        return std::any_of(fields.begin(), fields.end(), [&seen](const SampleField& field) {
            return !field.text.empty() && !seen.insert(field.text).second;
        });
    }

    // Whether a line is the upper part of the headings whose lower part is known.
    [[nodiscard]] bool continues(std::size_t record, std::size_t below) const {
        return m_records[record].fields == m_records[below].fields && m_records[record].used >= 2;
    }

    // Whether a line with numbers in it is one of names after all: a text over the first column.
    [[nodiscard]] bool mayName(std::size_t record, std::size_t units) const {
        const auto fields = m_records.fields(record);
        return fields.size() == m_table.columns && fields.size() >= 2 &&
               fields[0].kind == FieldKind::Text && isReading(m_table.kind(0)) &&
               (units != kNone || m_table.kind(0) == FieldKind::Time) &&
               record + (units != kNone ? 2U : 1U) >= m_table.first;
    }

    [[nodiscard]] std::string joined(const std::vector<std::size_t>& names,
                                     std::size_t column) const {
        std::string name;
        for (auto record = names.rbegin(); record != names.rend(); ++record) {
            for (const SampleField& field : fieldsOver(*record, column)) {
                if (field.text.empty()) continue;
                if (!name.empty()) name += ' ';
                name += field.quoted ? withoutEscapes(field.text, m_records.dialect())
                                     : std::string(field.text);
            }
        }
        std::replace_if(
            name.begin(), name.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
        return name;
    }

    // The fields over a column of the data: where row numbers have no heading, all stand one off;
    // in a text of fixed widths those that stand nearest to it.
    [[nodiscard]] std::span<const SampleField> fieldsOver(std::size_t record,
                                                          std::size_t column) const {
        const auto fields = m_records.fields(record);
        std::size_t first = column;
        std::size_t end = column + 1;
        if (hasMarkField(record)) {
            ++first, ++end;
        } else if (isShifted(record)) {
            if (column == 0) return {};
            --first, --end;
        } else if (!m_ends.empty() && (fields.size() != usedColumns() || isRule(fields[0].text))) {
            const std::vector<std::size_t>& places = placesOf(record);
            const auto [from, to] = std::equal_range(places.begin(), places.end(), column);
            const std::size_t marks = fields.size() - places.size();
            first = marks + static_cast<std::size_t>(from - places.begin());
            end = marks + static_cast<std::size_t>(to - places.begin());
        }
        return fields.subspan(std::min(first, fields.size()),
                              std::min(end, fields.size()) - std::min(first, fields.size()));
    }

    // The columns of the data that the fields of a line stand over, less a mark in front of them,
    // in a text of fixed widths.
    [[nodiscard]] const std::vector<std::size_t>& placesOf(std::size_t record) const {
        const auto [known, fresh] = m_places.try_emplace(record);
        std::vector<std::size_t>& places = known->second;
        std::size_t column = 0;
        for (const SampleField& field : m_records.fields(record)) {
            if (!fresh || (places.empty() && isRule(field.text))) continue;
            const std::ptrdiff_t begin = field.text.data() - m_records[record].text.data();
            const auto end = begin + static_cast<std::ptrdiff_t>(field.text.size());
            // Up to the column that ends behind its begin, or the next where it reaches that, too.
            while (column + 1 < m_ends.size() && m_ends[column].second <= begin &&
                   m_ends[column].second - begin <= end - m_ends[column + 1].first)
                ++column;
            places.push_back(column);
        }
        return places;
    }

    // Where the fields of the data begin and end, if they do so at the same place in all lines.
    [[nodiscard]] std::vector<std::pair<std::ptrdiff_t, std::ptrdiff_t>> fixedEnds() const {
        constexpr std::size_t kLines = 20;
        std::vector<std::pair<std::ptrdiff_t, std::ptrdiff_t>> ends;
        if (m_records.dialect().separator != Dialect::kBlankRuns) return ends;
        for (std::size_t i = m_table.first; i < std::min(m_table.end, m_table.first + kLines);
             ++i) {
            const auto fields = m_records.fields(i);
            for (std::size_t column = 0; column < std::min(fields.size(), usedColumns());
                 ++column) {
                const std::ptrdiff_t begin = fields[column].text.data() - m_records[i].text.data();
                const auto end = begin + static_cast<std::ptrdiff_t>(fields[column].text.size());
                if (column == ends.size()) ends.emplace_back(begin, end);
                if (ends[column].first != begin && ends[column].second != end) return {};
                ends[column] = {std::min(ends[column].first, begin),
                                std::max(ends[column].second, end)};
            }
        }
        return ends;
    }

    // The mark of a comment line that blanks part from the names: "# date time".
    [[nodiscard]] bool hasMarkField(std::size_t record) const {
        return m_records.dialect().separator == Dialect::kBlankRuns &&
               m_records[record].fields == usedColumns() + 1 &&
               isRule(m_records.field(record, 0).text);
    }

    [[nodiscard]] bool isShifted(std::size_t record) const {
        if (m_records[record].fields + 1 != usedColumns()) return false;
        if (m_table.kind(0) != FieldKind::Number && m_table.kind(0) != FieldKind::Text)
            return false;
        // A name over a time that belongs to the column beside it, or rows that are counted.
        const std::size_t next = m_table.first + 1;
        if (next >= m_table.end) return false;
        const std::string_view a = m_records.field(m_table.first, 0).text;
        const std::string_view b = m_records.field(next, 0).text;
        const bool counted = (a == "1" && b == "2") || (a == "0" && b == "1");
        return counted && m_records.fields(record)[0].text != "#";
    }

    void fill(FoundHeadings& found, const std::vector<std::size_t>& names,
              std::size_t units) const {
        if (names.empty()) return;
        found.line = m_records[names.back()].line;
        found.lines = static_cast<int>(names.size());
        std::size_t columns = std::max(usedColumns(), m_table.kinds.size());
        for (const std::size_t record : names)
            columns = std::max(columns, m_records[record].used + (isShifted(record) ? 1U : 0U));
        for (std::size_t column = 0; column < columns; ++column)
            found.names.push_back(joined(names, column));
        stripMark(found.names);
        if (units == kNone) return;
        found.unitsLine = m_records[units].line;
        for (std::size_t column = 0; column < columns; ++column) {
            const auto fields = fieldsOver(units, column);
            found.units.emplace_back(fields.empty() ? std::string_view() : unitText(fields[0]));
        }
        stripMark(found.units);
    }

    static std::string_view unitText(const SampleField& field) {
        const std::string_view text = field.text;
        if (isReading(field.kind)) return {};
        const bool bracketed = text.size() > 2 && (text.front() == '(' || text.front() == '[') &&
                               (text.back() == ')' || text.back() == ']');
        if (bracketed) return text.substr(1, text.size() - 2);
        return text == "-" ? std::string_view() : text;
    }

    // Without the mark of a comment line: "# Time" is "Time".
    static void stripMark(std::vector<std::string>& names) {
        if (names.empty()) return;
        const std::size_t mark = names[0].find_first_not_of("#%;!/ ");
        if (mark != std::string::npos && mark > 0) names[0].erase(0, mark);
    }

    const SampleRecords& m_records;
    const SampleTable& m_table;
    mutable std::map<std::size_t, std::vector<std::size_t>> m_places; ///< by record
    std::vector<std::pair<std::ptrdiff_t, std::ptrdiff_t>> m_ends; ///< none unless widths are fixed
};

} // namespace

FoundHeadings findHeadings(const SampleRecords& records, const SampleTable& table) {
    return HeadingSearch(records, table).run();
}

FoundHeadings headingsOf(const SampleRecords& records, const SampleTable& table,
                         std::int64_t headingsLine, std::int64_t unitsLine) {
    return HeadingSearch(records, table).of(headingsLine, unitsLine);
}

} // namespace pellam
