#include "delimited/layout/LayoutDetector.h"

#include "base/InternationalSettings.h"
#include "base/Utf8.h"
#include "delimited/layout/DecimalMarks.h"
#include "delimited/layout/HeadingFinder.h"
#include "delimited/layout/MissingFinder.h"
#include "delimited/layout/PlainReading.h"
#include "delimited/sample/ContentKind.h"
#include "delimited/sample/DialectFinder.h"
#include "delimited/sample/SampleRecords.h"
#include "delimited/time/TimeColumns.h"
#include "delimited/time/TimeNames.h"
#include "delimited/time/TimeRows.h"

#include <algorithm>

namespace pellam {

namespace {

constexpr std::size_t kHeaderLines = 8;   ///< lines above the data that may come back in it
constexpr std::size_t kFooterLines = 60;  ///< more lines behind the data are no footer
constexpr std::size_t kDescription = 500; ///< lines of the description that are kept

// Puts a layout together from what the finders found.
class LayoutBuilder {
  public:
    LayoutBuilder(const TextSample& sample, char expected, const InternationalSettings& settings,
                  const LayoutWishes& wishes)
        : m_sample(sample),
          m_expected(expected),
          m_settings(settings),
          m_wishes(wishes),
          m_plain(!wishes.any() && plainData(SampleRecords(sample.head, plainDialect()))),
          m_found(m_plain ? findDialect(sample.head, expected, expected, '"')
                          : findDialect(sample.head, expected, wishes.separator, wishes.quote)),
          m_head(*m_found.records),
          m_tail(sample.tail, m_head.dialect()),
          m_table(m_found.table) {}

    TextLayout run() {
        if (m_wishes.dataLine) beginAt(*m_wishes.dataLine);
        if (!m_wishes.any()) takePlainTable();
        m_layout.dialect = m_head.dialect();
        m_layout.decimal = m_settings.decimalSeparator;
        m_layout.encoding = m_sample.utf16          ? "UTF-16"
                            : isUtf8(m_sample.head) ? "UTF-8"
                                                    : "Windows-1252";
        m_layout.missed = missedLine();
        if (!m_plain && !m_wishes.any() && isProse(m_head, m_table)) {
            m_layout.notATable = std::string("text");
            return m_layout;
        }
        if (!m_table.found() || m_sample.cutLine || (!m_wishes.any() && !hasReadings()))
            return plainOne();
        takeHeadings(headings());
        takeDecimals();
        takeTime();
        if (m_wishes.missing)
            m_layout.missing = *m_wishes.missing;
        else
            findMissingTexts(m_head, m_table, m_layout);
        takeEnd();
        takeFieldCounts();
        m_layout.plain = !m_wishes.any() && isPlain();
        return m_layout;
    }

  private:
    [[nodiscard]] Dialect plainDialect() const { return {m_expected, '"', '"', false}; }

    [[nodiscard]] bool hasReadings() const {
        return std::any_of(m_table.kinds.begin(), m_table.kinds.end(), isReading);
    }

    // Without rows there is nothing to tell by but the line of headings.
    TextLayout plainOne() {
        m_layout.dialect = {m_wishes.separator.value_or(m_expected), '"', '"', false};
        m_layout.decimal = m_wishes.decimal.value_or(m_layout.decimal);
        m_layout.plain = true;
        const std::size_t first = firstRecord();
        if (m_wishes.separator || first == m_head.size()) return m_layout;
        const std::string_view line = m_head[first].text;
        std::ptrdiff_t most = std::count(line.begin(), line.end(), m_expected);
        if (most > 0) return m_layout;
        for (const char separator : {';', '\t', ','}) {
            const auto count = std::count(line.begin(), line.end(), separator);
            if (count <= most) continue;
            most = count;
            m_layout.dialect.separator = separator;
            m_layout.decimal = m_wishes.decimal.value_or('.');
        }
        return m_layout;
    }

    // Every record up to the last with a time or number in it.
    void takePlainTable() {
        const auto first = plainData(m_head);
        // The separator may be another than the expected one, the marks of quotation refined.
        m_plain = first.has_value();
        if (!m_plain) return;
        m_table = tableFrom(m_head, *first);
        if (!m_sample.isWholeFile()) return;
        while (m_table.end > m_table.first + 1 && m_head[m_table.end - 1].readings == 0)
            --m_table.end;
    }

    void beginAt(std::int64_t line) {
        std::size_t first = 0;
        while (first < m_head.size() && (m_head[first].line < line || m_head[first].blank))
            ++first;
        m_table = tableFrom(m_head, first);
    }

    // A wished line that is none of those looked at; empty when all are.
    [[nodiscard]] std::string missedLine() const {
        const std::int64_t last = m_head.size() == 0 ? 0 : m_head[m_head.size() - 1].line;
        for (const auto& line : {m_wishes.dataLine, m_wishes.headingsLine, m_wishes.unitsLine}) {
            if (line.value_or(0) > last) return "line " + std::to_string(*line);
        }
        return {};
    }

    [[nodiscard]] FoundHeadings headings() const {
        if (m_plain) return headingsOf(m_head, m_table, m_head[firstRecord()].line, 0);
        FoundHeadings found = findHeadings(m_head, m_table);
        if (m_wishes.dataLine) found.first = m_table.first;
        if (!m_wishes.headingsLine && !m_wishes.unitsLine) return found;
        return headingsOf(m_head, m_table, m_wishes.headingsLine.value_or(found.line),
                          m_wishes.unitsLine.value_or(found.unitsLine));
    }

    // The first record that is not blank; their number where all are.
    [[nodiscard]] std::size_t firstRecord() const {
        std::size_t first = 0;
        while (first < m_head.size() && m_head[first].blank)
            ++first;
        return first;
    }

    void takeHeadings(const FoundHeadings& headings) {
        m_table.first = headings.first;
        m_layout.headingsLine = headings.line;
        m_layout.headingLines = headings.lines;
        m_layout.unitsLine = headings.unitsLine;
        m_layout.firstDataLine = m_head[m_table.first].line;
        m_layout.names = headings.names;
        m_layout.units = headings.units;
        dropEmptyColumns();
        m_layout.columns = std::max(m_layout.names.size(), m_kindsUsed);
        for (std::size_t column = 0; column < m_layout.columns; ++column) {
            const bool named = column < m_layout.names.size() && !m_layout.names[column].empty();
            if (!named && m_table.kind(column) == FieldKind::Empty)
                m_layout.emptyColumns.push_back(column);
        }
        const std::size_t from = m_table.first > kHeaderLines ? m_table.first - kHeaderLines : 0;
        std::size_t comments = 0;
        for (std::size_t i = 0; i < m_table.first; ++i) {
            const SampleRecord& record = m_head[i];
            if (record.blank) continue;
            if (i >= from) m_layout.headings.emplace_back(record.text);
            comments += record.text.starts_with('#');
            const bool named = headings.line > 0 && record.line >= headings.line;
            if (named || m_layout.description.size() >= kDescription) continue;
            if (i == 0 && record.text.starts_with("sep=")) continue;
            m_layout.description.emplace_back(trimmedEnd(record.text));
        }
        if (comments > 0 && !m_head[m_table.first].text.starts_with('#'))
            m_layout.comment = std::string(1, '#');
        for (std::size_t i = m_table.first; i < m_table.end && m_layout.comment.empty(); ++i) {
            if (m_head[i].blank && m_head[i].used > 0) m_layout.comment = m_head[i].text;
        }
    }

    static std::string_view trimmedEnd(std::string_view text) {
        return text.substr(0, text.find_last_not_of(" \t,;") + 1);
    }

    // A separator that ends every line makes no column.
    void dropEmptyColumns() {
        m_kindsUsed = m_table.kinds.size();
        while (m_kindsUsed > 0 && m_table.kinds[m_kindsUsed - 1] == FieldKind::Empty)
            --m_kindsUsed;
        auto& names = m_layout.names;
        while (names.size() > m_kindsUsed && names.back().empty())
            names.pop_back();
        m_layout.units.resize(std::min(m_layout.units.size(), names.size()));
    }

    void takeDecimals() {
        DecimalMarks marks;
        for (std::size_t i = m_table.first; i < m_table.end; ++i)
            marks.add(m_head.fields(i));
        for (std::size_t i = 0; i < m_tail.size(); ++i) {
            if (isData(m_tail, i)) marks.add(m_tail.fields(i));
        }
        const DecimalMarks::Choice choice =
            marks.choose(m_layout.dialect.separator, m_expected, m_settings.decimalSeparator);
        m_layout.decimal = m_wishes.decimal.value_or(choice.mark);
        const bool comma = m_layout.decimal == ',';
        m_layout.mixedDecimals = choice.points && (choice.commas || comma);
        m_layout.groupingPoints = comma && choice.groupPoints && !choice.points && !choice.commas;
        m_layout.otherDecimal = m_layout.decimal != m_settings.decimalSeparator &&
                                (choice.commas || choice.points || choice.groupPoints);
    }

    [[nodiscard]] std::vector<std::string> namesWithUnits() const {
        std::vector<std::string> names = m_layout.names;
        for (std::size_t i = 0; i < std::min(names.size(), m_layout.units.size()); ++i) {
            const std::string& name = names[i];
            const bool part = timePartOf(name) != TimePart::None || name == "MM" || name == "mm";
            if (!m_layout.units[i].empty() && !part) names[i] += " (" + m_layout.units[i] + ")";
        }
        return names;
    }

    void takeTime() {
        const std::vector<std::string> names = namesWithUnits();
        const TimeRows rows(m_head, m_tail, m_table, names);
        TimeColumns time;
        if (!m_wishes.timeColumns) time = findTimeColumns(rows, m_settings);
        if (m_wishes.timeColumns || !m_wishes.timeFormat.empty())
            time = timeOfColumns(rows, m_settings, m_wishes.timeColumns.value_or(time.columns),
                                 m_wishes.timeFormat);
        // A first column that is named so is the time, even where nobody can read it.
        const auto named = [&](std::size_t c) { return c < names.size() && namesTime(names[c]); };
        if (!m_wishes.timeColumns && named(0) && m_table.kind(0) == FieldKind::Text &&
            std::none_of(time.columns.begin(), time.columns.end(), named)) {
            time = {};
            time.columns = {0};
        }
        // The numbers that rows without a time were given by an earlier load.
        if (!m_wishes.timeColumns && time.columns.empty() && !names.empty() && names[0] == "Row" &&
            rows.counts(0))
            time.columns = {0};
        m_layout.timeColumns = time.columns;
        // Wished columns may lie behind those that the sample has.
        for (const std::size_t column : time.columns) {
            if (column >= m_layout.columns && m_layout.missed.empty())
                m_layout.missed = "column " + std::to_string(column + 1);
            m_layout.columns = std::max(m_layout.columns, column + 1);
        }
        if (time.unread && m_layout.missed.empty())
            m_layout.missed = "time of the form " + m_wishes.timeFormat;
        m_layout.timeForm = time.form;
        m_layout.timeParts = time.parts;
        m_layout.paddedPart = time.padded;
        m_layout.timeGuessed = time.guessed;
        m_layout.otherTimeForm = time.other;
    }

    // Whether a record goes on with the table's data.
    [[nodiscard]] bool isData(const SampleRecords& records, std::size_t index) const {
        const auto fields = records.fields(index);
        std::size_t same = 0;
        for (std::size_t column = 0; column < fields.size(); ++column) {
            const FieldKind kind = m_table.kind(column);
            const FieldKind here = fields[column].kind;
            if (!isReading(kind) || isAbsent(here)) continue;
            if ((kind == FieldKind::Time) != (here == FieldKind::Time)) return false;
            same += isReading(here);
        }
        const bool texts = std::none_of(m_table.kinds.begin(), m_table.kinds.end(), isReading);
        return same > 0 || texts;
    }

    void takeEnd() {
        for (const std::size_t record : m_table.further)
            m_layout.furtherTables.push_back(m_head[record].line);
        std::size_t behind = 0;
        for (std::size_t i = m_table.end; i < m_head.size(); ++i)
            behind += !m_head[i].blank;
        if (!m_table.further.empty() || (m_sample.isWholeFile() && behind > 0)) {
            m_layout.lastDataLine = m_head[m_table.end - 1].line;
            if (m_table.further.empty()) m_layout.footerLines = static_cast<std::int64_t>(behind);
            return;
        }
        takeFooter();
    }

    void takeFooter() {
        std::size_t first = m_tail.size();
        std::size_t lines = 0;
        for (std::size_t i = m_tail.size(); i-- > 0;) {
            if (m_tail[i].blank) continue;
            // A row that is out of line in a file of rows is none the less one.
            if (isData(m_tail, i) || (m_plain && m_tail[i].readings > 0)) break;
            if (++lines > kFooterLines) return;
            first = i;
        }
        if (lines == 0 || first == 0 || m_sample.tailAt < 0) return;
        m_layout.footerLines = static_cast<std::int64_t>(lines);
        m_layout.dataEnd = m_sample.tailAt + static_cast<std::int64_t>(m_tail[first].offset);
    }

    void takeFieldCounts() {
        std::size_t previous = m_head[m_table.first].fields;
        for (std::size_t i = m_table.first; i < m_table.end; ++i) {
            const SampleRecord& record = m_head[i];
            if (record.blank) continue;
            if (record.fields != previous && record.used > 1) {
                m_layout.changedFieldsLine = record.line;
                return;
            }
        }
    }

    [[nodiscard]] bool isPlain() const {
        const TextLayout& layout = m_layout;
        const std::size_t first = firstRecord();
        const bool top = layout.headingsLine > 0
                             ? layout.headingsLine == m_head[first].line &&
                                   layout.headingLines == 1 && layout.description.empty()
                             : m_table.first == first && isStampedYearFirst(first);
        const bool timeFirst = layout.timeColumns.empty()
                                   ? !layout.names.empty() && namesTime(layout.names[0])
                                   : layout.timeColumns.size() == 1 && layout.timeColumns[0] == 0;
        const std::size_t above = layout.headingsLine > 0 ? 1 : 0;
        const bool whole = layout.headings.size() == above && layout.unitsLine == 0 &&
                           layout.furtherTables.empty() && layout.emptyColumns.empty() &&
                           layout.footerLines == 0 && layout.comment.empty() &&
                           (layout.names.empty() || m_kindsUsed <= layout.names.size());
        return top && timeFirst && whole && !layout.timeParts && !layout.mixedDecimals &&
               !layout.groupingPoints && layout.dialect == plainDialect() &&
               layout.decimal == m_settings.decimalSeparator;
    }

    // "2008/02/25 12:00:00": what the plain reading takes for a row.
    [[nodiscard]] bool isStampedYearFirst(std::size_t record) const {
        const SampleField field = m_head.field(record, 0);
        return !field.quoted && field.text.size() >= 19 && field.kind == FieldKind::Time &&
               field.text.find_first_not_of("0123456789") == 4;
    }

    const TextSample& m_sample;
    char m_expected;
    const InternationalSettings& m_settings;
    const LayoutWishes& m_wishes;
    bool m_plain; ///< reads right without a search
    FoundDialect m_found;
    const SampleRecords& m_head;
    SampleRecords m_tail;
    SampleTable m_table;
    TextLayout m_layout;
    std::size_t m_kindsUsed = 0; ///< columns up to the last that is not empty throughout
};

} // namespace

TextLayout LayoutDetector::detect(const std::string& path, Failure& failure,
                                  const LayoutWishes& wishes) const {
    TextSample sample;
    failure = sample.read(path);
    return detect(sample, wishes);
}

TextLayout LayoutDetector::detect(const TextSample& sample, const LayoutWishes& wishes) const {
    const std::string_view kind = contentKindOf(sample.head);
    if (!kind.empty() && !wishes.any()) {
        TextLayout layout;
        layout.notATable = kind;
        return layout;
    }
    return LayoutBuilder(sample, m_expected, m_settings, wishes).run();
}

} // namespace pellam
