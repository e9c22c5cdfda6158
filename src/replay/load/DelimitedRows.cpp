#include "replay/load/DelimitedRows.h"

#include "delimited/sample/FieldSplitter.h"
#include "delimited/sample/SampleRecords.h"
#include "delimited/time/TimeColumns.h"
#include "grid/DecimalCell.h"
#include "grid/TimeCell.h"
#include "replay/load/ValueText.h"
#include "times/TimeMoment.h"

#include <algorithm>
#include <cstring>

namespace pellam {

namespace {

bool isSimple(const Dialect& dialect) {
    return dialect.separator != Dialect::kBlankRuns && dialect.quote == '"' &&
           dialect.escape == '"' && !dialect.blanks;
}

FieldScanner::Quotes quotesOf(std::string_view line) {
    return std::memchr(line.data(), '"', line.size()) ? FieldScanner::Quotes::Group
                                                      : FieldScanner::Quotes::Plain;
}

bool isDiscontinuity(std::string_view line) {
    return std::memchr(line.data(), 'D', line.size()) != nullptr &&
           line.find("Discontinuity") != std::string_view::npos;
}

// Whether a record begins as a number or a time does.
bool isReadingFirst(std::string_view record) {
    const std::size_t at = record.find_first_not_of(" \t\"'+-.");
    return at == std::string_view::npos || (record[at] >= '0' && record[at] <= '9');
}

} // namespace

DelimitedRows::DelimitedRows(const LoadContext& context, const TextLayout& layout,
                             DelimitedColumns& columns)
    : m_context(context),
      m_layout(layout),
      m_columns(columns),
      m_filler(context.grid),
      m_times(layout.timeForm, context.international),
      m_timePlaces(columns.fields(), -1),
      m_timeTexts(layout.timeColumns.size()),
      m_colour(context.greyRows ? CellColour::Grey : CellColour::Black),
      m_simple(isSimple(layout.dialect)),
      m_watchesHeadings(layout.timeForm && layout.timeColumns[0] == 0) {
    for (std::size_t i = 0; i < layout.timeColumns.size(); ++i) {
        if (layout.timeColumns[i] < m_timePlaces.size())
            m_timePlaces[layout.timeColumns[i]] = static_cast<int>(i);
    }
}

bool DelimitedRows::isBlank(std::string_view record) const {
    const char separator = m_layout.dialect.separator;
    if (!record.empty() && record[0] != separator && record[0] != ' ' && record[0] != '\t')
        return false;
    return std::all_of(record.begin(), record.end(),
                       [separator](char c) { return c == separator || c == ' ' || c == '\t'; });
}

std::optional<PassedOver::Cause> DelimitedRows::passedOverFor(std::string_view record) const {
    using Cause = PassedOver::Cause;
    if (isBlank(record)) return Cause::BlankLine;
    if (record == m_previous) return Cause::RepeatedLine;
    if (isDiscontinuity(record)) return Cause::DiscontinuityLine;
    for (const std::string& heading : m_layout.headings) {
        if (record == heading) return Cause::RepeatedHeadings;
    }
    if (!m_layout.comment.empty() && record.starts_with(m_layout.comment))
        return Cause::CommentLine;
    return std::nullopt;
}

void DelimitedRows::DisplayDelimDetails(std::string_view record, std::int64_t line) {
    if (const auto cause = passedOverFor(record)) return m_passedOver.add(*cause, line);
    m_line = line;
    m_previous.assign(record);
    m_filler.startRow(m_rows++);
    if (m_simple && m_columns.isPlain()) {
        placePlain(record);
    } else {
        placeAny(record);
    }
    const bool digit = record[0] >= '0' && record[0] <= '9'; // as of most rows
    if (m_watchesHeadings && !digit && !isReadingFirst(record)) watchHeadings(record, line);
}

// A row that is all names, in a file whose rows begin with their time or a number.
void DelimitedRows::watchHeadings(std::string_view record, std::int64_t line) {
    constexpr std::size_t kMost = 20;
    if (m_furtherHeadings.size() >= kMost) return;
    const SampleRecords records(record, m_layout.dialect);
    if (records.size() == 1 && records[0].texts >= 2 && records[0].readings == 0 &&
        records[0].texts * 2 >= m_columns.fields())
        m_furtherHeadings.push_back(line);
}

// A column for a field behind those of the headings; kNone where the grid takes no more.
int DelimitedRows::columnFor(std::size_t field) {
    if (field >= GridData::kMaximumColumns) {
        m_passedOver.add(PassedOver::Cause::ValueWithoutChannel, m_line);
        return DelimitedColumns::kNone;
    }
    if (field >= m_columns.fields() || m_columns.ofField(field) == DelimitedColumns::kNone) {
        m_columns.add(field);
        m_filler.columnsAdded();
    }
    return m_columns.ofField(field);
}

void DelimitedRows::placePlain(std::string_view record) {
    FieldScanner scanner(record, m_layout.dialect.separator, quotesOf(record));
    const char* begin;
    const char* end;
    const auto known = static_cast<int>(m_columns.fields());
    int column = 0;
    for (; column < known && scanner.next(begin, end); ++column) {
        if (begin == end) continue;
        Cell cell;
        if (column == 0 ||
            !DecimalCell::pack(begin, end, m_layout.decimal, DecimalCell::Zeros::Trim, cell)) {
            cell = textCell({begin, static_cast<std::size_t>(end - begin)}, column);
        }
        m_filler.set(column, cell.withColour(m_colour));
    }
    for (; scanner.next(begin, end); ++column) {
        if (begin == end) continue;
        const int added = columnFor(static_cast<std::size_t>(column));
        if (added == DelimitedColumns::kNone) continue;
        const std::string_view text(begin, static_cast<std::size_t>(end - begin));
        m_filler.set(added, textCell(text, added).withColour(m_colour));
    }
}

Cell DelimitedRows::textCell(std::string_view field, int index) {
    Column& column = m_context.grid.column(index);
    Cell cell;
    if (TimeCell::pack(field, cell)) return cell;
    if (index > 0 && ValueText::startsNumber(field)) return numberCell(field, column);
    const Dialect& dialect = m_layout.dialect;
    if (field.size() < 2 || field.front() != dialect.quote || field.back() != dialect.quote)
        return column.pack(field);
    // A number that a comma of its own made someone quote.
    const std::string text = withoutEscapes(field.substr(1, field.size() - 2), dialect);
    const bool other = m_layout.decimal != column.decimalSeparator() ||
                       (m_layout.decimal == ',' && text.find('.') != std::string::npos);
    if (index > 0 && other && ValueText::startsNumber(text)) return numberCell(text, column);
    return column.pack(text);
}

// Where a file has both decimal marks, the only one of a number is its own.
Cell DelimitedRows::numberCell(std::string_view number, Column& column) {
    const bool point = m_layout.mixedDecimals && number.find(',') == std::string_view::npos;
    return ValueText::fromSeparator(number, point ? '.' : m_layout.decimal, column);
}

void DelimitedRows::placeAny(std::string_view record) {
    std::fill(m_timeTexts.begin(), m_timeTexts.end(), std::string_view());
    FieldSplitter splitter(record, m_layout.dialect);
    FieldSplitter::Field field;
    for (std::size_t i = 0; splitter.next(field); ++i) {
        const std::string_view text = field.text;
        if (text.empty()) continue;
        const int place = i < m_timePlaces.size() ? m_timePlaces[i] : -1;
        if (place >= 0) m_timeTexts[static_cast<std::size_t>(place)] = trimmed(text);
        if (place < 0 || m_layout.timeParts) placeField(i, text, field.quoted);
    }
    placeTime();
}

void DelimitedRows::placeField(std::size_t field, std::string_view text, bool quoted) {
    const int index = columnFor(field);
    if (index == DelimitedColumns::kNone) return;
    Column& column = m_context.grid.column(index);
    const char* const begin = text.data();
    Cell cell;
    if (!DecimalCell::pack(begin, begin + text.size(), m_layout.decimal, DecimalCell::Zeros::Trim,
                           cell) &&
        !TimeCell::pack(text, cell)) {
        if (ValueText::startsNumber(text)) {
            cell = numberCell(text, column);
        } else {
            cell = quoted ? column.pack(withoutEscapes(text, m_layout.dialect)) : column.pack(text);
        }
    }
    m_filler.set(index, cell.withColour(m_colour));
}

void DelimitedRows::placeTime() {
    Cell cell;
    Column& column = m_context.grid.column(0);
    if (m_timeTexts.empty()) {
        cell = Cell::decimal(false, 0, static_cast<std::uint64_t>(m_rows));
    } else if (m_timeTexts.size() == 1 && !m_layout.timeParts) {
        if (m_timeTexts[0].empty()) return;
        if (!TimeCell::pack(m_timeTexts[0], cell)) cell = column.pack(m_timeTexts[0]);
    } else {
        std::string text = joinedTime(m_timeTexts, m_layout.paddedPart);
        if (text.find_first_not_of(' ') == std::string::npos) return;
        if (m_layout.timeParts) {
            if (const auto moment = m_times.read(text)) text = calendarText(*moment);
        }
        if (!TimeCell::pack(text, cell)) cell = column.pack(text);
    }
    m_filler.set(0, cell.withColour(m_colour));
}

} // namespace pellam
