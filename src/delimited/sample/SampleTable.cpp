#include "delimited/sample/SampleTable.h"

#include "delimited/sample/SampleRecords.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>

namespace pellam {

namespace {

constexpr std::size_t kProfiled = 400; ///< records that tell the kinds of the columns

// Consecutive records of one field count that keep their kinds.
struct Segment {
    std::size_t first = 0;
    std::size_t end = 0;
    double readings = 0; ///< sum of the records' shares of readings
    bool afterBlank = false;
};

// How two records differ where both have something.
struct Difference {
    std::size_t same = 0;   ///< readings in both
    std::size_t flips = 0;  ///< a reading here, a text there; a time against a number counts, too
    std::ptrdiff_t net = 0; ///< flips to a text less those to a reading
    std::size_t kept = 0;   ///< kinds of any sort that are the same in both
    std::size_t times = 0;  ///< times in both
    std::size_t broken = 0; ///< a time here, something else there

    /// Flips as they come in columns of codes ("7F", "80"): to and fro.
    [[nodiscard]] bool ofCodes() const {
        return broken == 0 && static_cast<std::size_t>(std::abs(net)) < kept;
    }
};

class TableSearch {
  public:
    explicit TableSearch(const SampleRecords& records) : m_records(records) {}

    SampleTable run() {
        makeSegments();
        if (m_segments.empty()) return {};
        const std::size_t chosen = choose();
        std::size_t from = chosen;
        while (from > 0 && goesOnInto(from - 1, chosen))
            --from;
        SampleTable table;
        table.first = m_segments[from].first;
        table.columns = m_records[m_segments[chosen].first].fields;
        table.end = m_segments[chosen].end;
        profile(table);
        extend(table, chosen);
        profile(table);
        const bool readings = std::any_of(table.kinds.begin(), table.kinds.end(), isReading);
        while (table.first + 1 < table.end && readings && m_records[table.first].readings == 0)
            ++table.first;
        table.score = scoreOf(table);
        return table;
    }

    [[nodiscard]] SampleTable from(std::size_t first) const {
        SampleTable table;
        table.first = first;
        table.end = m_records.size();
        while (table.end > first && m_records[table.end - 1].blank)
            --table.end;
        if (!table.found()) return {};
        table.columns = m_records[first].fields;
        profile(table);
        return table;
    }

  private:
    [[nodiscard]] Difference compare(std::size_t a, std::size_t b) const {
        Difference difference;
        const auto left = m_records.fields(a);
        const auto right = m_records.fields(b);
        const std::size_t common = std::min(left.size(), right.size());
        for (std::size_t i = 0; i < common; ++i) {
            const FieldKind x = left[i].kind;
            const FieldKind y = right[i].kind;
            if (isAbsent(x) || isAbsent(y)) continue;
            const bool time = x == FieldKind::Time || y == FieldKind::Time;
            if (x == y || (isNumber(x) && isNumber(y))) {
                ++difference.kept;
                difference.same += isReading(x);
                difference.times += time;
            } else {
                ++difference.flips;
                difference.net += isReading(x) - isReading(y);
                difference.broken += time;
            }
        }
        return difference;
    }

    [[nodiscard]] bool alike(std::size_t a, std::size_t b) const {
        const SampleRecord& left = m_records[a];
        const SampleRecord& right = m_records[b];
        if (left.fields != right.fields) return false;
        if (left.readings == 0 || right.readings == 0) return left.readings == right.readings;
        const Difference difference = compare(a, b);
        const std::size_t readings = std::max(left.readings, right.readings);
        return 2 * (difference.flips + difference.broken) < readings || difference.flips == 0 ||
               difference.ofCodes();
    }

    void makeSegments() {
        std::size_t previous = m_records.size();
        std::size_t blanks = 0;
        for (std::size_t i = 0; i < m_records.size(); ++i)
            blanks += m_records[i].blank;
        // Where every other line is blank, blank lines part nothing.
        const bool parts = blanks * 3 < m_records.size();
        bool blank = false;
        for (std::size_t i = 0; i < m_records.size(); ++i) {
            const SampleRecord& record = m_records[i];
            if (record.blank) {
                blank = parts;
                continue;
            }
            if (previous == m_records.size() || !alike(previous, i))
                m_segments.push_back({i, i, 0, blank});
            Segment& segment = m_segments.back();
            segment.end = i + 1;
            segment.readings +=
                static_cast<double>(record.readings) / static_cast<double>(record.used);
            previous = i;
            blank = false;
        }
    }

    [[nodiscard]] double valueOf(const Segment& segment) const {
        const auto fields = static_cast<double>(m_records[segment.first].fields);
        const auto rows = static_cast<double>(segment.end - segment.first);
        return (segment.readings + 0.02 * rows) * (1 - 0.5 / fields);
    }

    [[nodiscard]] std::size_t lengthOf(std::size_t index) const {
        return m_segments[index].end - m_segments[index].first;
    }

    [[nodiscard]] std::size_t middleOf(std::size_t index) const {
        std::size_t middle = (m_segments[index].first + m_segments[index].end) / 2;
        while (m_records[middle].blank) // never the last
            ++middle;
        return middle;
    }

    // All texts, and as many as the segment behind it has fields.
    [[nodiscard]] bool headsNext(std::size_t index) const {
        if (index + 1 >= m_segments.size()) return false;
        const SampleRecord& last = m_records[m_segments[index].end - 1];
        const SampleRecord& next = m_records[m_segments[index + 1].first];
        return last.readings == 0 && last.texts >= 2 && last.used + 1 >= next.used &&
               last.used <= next.used + 1;
    }

    [[nodiscard]] std::size_t choose() const {
        std::size_t best = 0;
        for (std::size_t i = 1; i < m_segments.size(); ++i) {
            if (valueOf(m_segments[i]) > valueOf(m_segments[best])) best = i;
        }
        // The first of several tables is the one to load.
        for (std::size_t i = 1; i < best; ++i) {
            const auto rows = static_cast<double>(lengthOf(i));
            if (lengthOf(i) >= 3 && m_records[m_segments[i].first].fields >= 2 &&
                m_segments[i].readings >= 0.6 * rows && headsNext(i - 1) &&
                valueOf(m_segments[i]) >= 0.1 * valueOf(m_segments[best]) && lengthOf(i - 1) <= 4)
                return i;
        }
        return best;
    }

    // Whether the segment, whatever its field count, has the times of the chosen one.
    [[nodiscard]] bool hasTimesOf(std::size_t index, std::size_t chosen) const {
        const Difference difference = compare(middleOf(index), middleOf(chosen));
        return difference.broken == 0 && difference.flips <= difference.same / 4 &&
               difference.times > 0;
    }

    [[nodiscard]] bool goesOnInto(std::size_t index, std::size_t chosen) const {
        if (m_segments[index + 1].afterBlank) return false;
        return hasTimesOf(index, chosen) || alike(middleOf(index), middleOf(chosen));
    }

    // Takes in the segments behind the table up to where another one begins.
    void extend(SampleTable& table, std::size_t chosen) {
        std::optional<std::size_t> heads; // headings since the last data
        bool blank = false;
        for (std::size_t i = chosen + 1; i < m_segments.size(); ++i) {
            blank = blank || m_segments[i].afterBlank;
            const std::size_t first = m_segments[i].first;
            const bool on = goesOn(i, chosen, table);
            if (!on && !isData(i)) {
                const bool names =
                    isHeadings(m_records, m_segments[i].end - 1, table) || headsNext(i);
                if (!heads && names && !isRepeated(first, table)) heads = first;
                continue;
            }
            if (heads || (blank && !on)) {
                table.further.push_back(heads.value_or(first));
            } else if (table.further.empty()) {
                table.end = m_segments[i].end;
            }
            heads.reset();
            blank = false;
        }
    }

    [[nodiscard]] bool isRepeated(std::size_t record, const SampleTable& table) const {
        const std::size_t before = table.first >= 8 ? table.first - 8 : 0;
        for (std::size_t i = before; i < table.first; ++i) {
            if (!m_records[i].blank && m_records[i].text == m_records[record].text) return true;
        }
        return false;
    }

    // Whether a segment behind the chosen one continues its table.
    [[nodiscard]] bool goesOn(std::size_t index, std::size_t chosen,
                              const SampleTable& table) const {
        const Difference difference = compare(middleOf(index), middleOf(chosen));
        if (difference.broken > 0 || difference.same == 0) return false;
        if (difference.flips > difference.same / 2 && !difference.ofCodes()) return false;
        const std::size_t fields = m_records[m_segments[index].first].fields;
        const bool hasTime =
            std::find(table.kinds.begin(), table.kinds.end(), FieldKind::Time) != table.kinds.end();
        return fields == table.columns || (hasTime ? difference.times > 0 : difference.flips == 0);
    }

    [[nodiscard]] bool isData(std::size_t index) const {
        return lengthOf(index) >= 2 &&
               m_segments[index].readings >= 0.5 * static_cast<double>(lengthOf(index));
    }

    void profile(SampleTable& table) const {
        std::vector<std::array<std::uint32_t, 6>> counts;
        const std::size_t step = std::max<std::size_t>(1, (table.end - table.first) / kProfiled);
        for (std::size_t i = table.first; i < table.end; i += step) {
            const auto fields = m_records.fields(i);
            if (counts.size() < fields.size()) counts.resize(fields.size());
            for (std::size_t column = 0; column < fields.size(); ++column)
                ++counts[column][static_cast<std::size_t>(fields[column].kind)];
        }
        table.kinds.assign(counts.size(), FieldKind::Empty);
        for (std::size_t column = 0; column < counts.size(); ++column)
            table.kinds[column] = mostOf(counts[column]);
    }

    static FieldKind mostOf(const std::array<std::uint32_t, 6>& counts) {
        const auto of = [&](FieldKind kind) { return counts[static_cast<std::size_t>(kind)]; };
        const auto numbers = of(FieldKind::Number) + of(FieldKind::Comma);
        const auto times = of(FieldKind::Time);
        const auto texts = of(FieldKind::Text);
        if (numbers + times + texts == 0)
            return of(FieldKind::Missing) > 0 ? FieldKind::Missing : FieldKind::Empty;
        if (texts > numbers && texts > times) return FieldKind::Text;
        if (times >= numbers) return FieldKind::Time;
        return of(FieldKind::Comma) > 0 ? FieldKind::Comma : FieldKind::Number;
    }

    [[nodiscard]] double scoreOf(const SampleTable& table) const {
        double sum = 0;
        for (std::size_t i = table.first; i < table.end; ++i) {
            const SampleRecord& record = m_records[i];
            if (record.blank) continue;
            sum += static_cast<double>(record.readings) / static_cast<double>(record.used) + 0.02;
        }
        return sum * (1 - 0.5 / static_cast<double>(table.columns));
    }

    const SampleRecords& m_records;
    std::vector<Segment> m_segments;
};

} // namespace

SampleTable findTable(const SampleRecords& records) {
    return TableSearch(records).run();
}

SampleTable tableFrom(const SampleRecords& records, std::size_t first) {
    return TableSearch(records).from(first);
}

bool isHeadings(const SampleRecords& records, std::size_t record, const SampleTable& table) {
    const auto fields = records.fields(record);
    std::size_t over = 0; // columns of readings with a text in this record
    std::size_t readings = 0;
    for (std::size_t column = 0; column < fields.size(); ++column) {
        if (!isReading(table.kind(column))) continue;
        over += fields[column].kind == FieldKind::Text;
        readings += isReading(fields[column].kind);
    }
    const auto columns =
        static_cast<std::size_t>(std::count_if(table.kinds.begin(), table.kinds.end(), isReading));
    return over > 0 && readings == 0 &&
           records[record].texts >= std::min<std::size_t>(2, columns) && over * 2 >= columns;
}

} // namespace pellam
