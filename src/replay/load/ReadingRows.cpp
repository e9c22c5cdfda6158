#include "replay/load/ReadingRows.h"

#include "grid/DecimalCell.h"
#include "grid/DecimalText.h"
#include "grid/TimeCell.h"
#include "replay/load/FieldParts.h"
#include "replay/load/ValueText.h"

#include <algorithm>
#include <charconv>
#include <cstring>

namespace pellam {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// "10:00", "10:00:00" or "10:00:00.5": a time of day is one value, its colons end nothing.
bool isTimeOfDay(std::string_view text) {
    int colons = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == ':') {
            if (i == 0 || i + 1 == text.size() || !isDigit(text[i - 1]) || !isDigit(text[i + 1])) {
                return false;
            }
            ++colons;
        } else if (!isDigit(c) && !(c == '.' && colons > 0)) {
            return false;
        }
    }
    return colons == 1 || colons == 2;
}

void trimBlanks(const char*& begin, const char*& end) {
    while (begin < end && *begin == ' ')
        ++begin;
    while (begin < end && end[-1] == ' ')
        --end;
}

// Takes the next field that may be a value, without blanks around it: fields without characters
// and statuses are none. What a '<' cuts off behind a status is a value again.
bool nextValue(FieldScanner& fields, const char*& begin, const char*& end) {
    while (fields.next(begin, end)) {
        trimBlanks(begin, end);
        if (begin == end) continue;
        if (*begin != '$') return true;
        begin = static_cast<const char*>(
            std::memchr(begin, '<', static_cast<std::size_t>(end - begin)));
        if (begin && ++begin < end) return true;
    }
    return false;
}

// A field whose value has no blanks before the ';' that ends it.
FieldParts partsOf(std::string_view field) {
    FieldParts parts = FieldParts::of(field);
    while (parts.value.ends_with(' '))
        parts.value.remove_suffix(1);
    return parts;
}

// Whether a field's value takes a channel.
bool isValue(std::string_view value) {
    return ValueText::startsNumber(value) || value.find('"') != std::string_view::npos;
}

} // namespace

ReadingRows::ReadingRows(const LoadContext& context, const ColumnMap& columns, Mode mode,
                         PassedOver& passedOver)
    : m_context(context),
      m_columns(columns),
      m_mode(mode),
      m_passedOver(passedOver),
      m_filler(context.grid),
      m_timeHead(context.grid.decimalSeparator()) {}

bool ReadingRows::isReading(std::string_view line) const {
    if (line.starts_with('D')) return true;
    // A bare tag is no line of values.
    return line.starts_with('<') && m_mode == Mode::WholeFile && line.find('>') != line.size() - 1;
}

void ReadingRows::DisplayDetails(std::string_view line, std::int64_t number, bool ok) {
    m_line = number;
    if (line == m_previousLine) return passOver(PassedOver::Cause::RepeatedLine);
    // The record tag may also end at '>'.
    std::size_t tag = line.find_first_of(",>");
    if (tag == std::string_view::npos) return passOver(PassedOver::Cause::IncompleteLine);
    if (line[tag] == '>' && tag + 1 < line.size() && line[tag + 1] == ',') ++tag;
    const bool quotes = std::memchr(line.data(), '"', line.size()) != nullptr;
    FieldScanner fields(line.substr(tag + 1), ',',
                        quotes ? FieldScanner::Quotes::Group : FieldScanner::Quotes::Plain);
    std::string_view field;
    std::string_view time;
    std::string_view status;
    if (!fields.next(field) || !m_timeHead.read(fields, field, time) || !fields.next(status) ||
        status.empty()) {
        return passOver(PassedOver::Cause::IncompleteLine);
    }
    if (status[0] == '3' || status[0] == '4') return passOver(PassedOver::Cause::StatusLine);

    if (m_timeHead.leftOut()) passOver(PassedOver::Cause::UnreadableValue);
    const char letter = status.size() > 2 ? status[2] : '\0';
    Columns columns = m_columns.columnsOf(letter);
    const bool chosen = m_mode == Mode::WholeFile || m_columns.isLoaded(letter);
    // Channels that the file has and nobody chose are no loss; a schedule without any is.
    if (!chosen && !columns.empty()) return;
    std::string_view offset;
    if (fields.next(offset)) {
        // The line may end here with its checksum.
        if (fields.atEnd()) offset = FieldParts::of(offset).value;
        columns = columnsFrom(columns, offset);
    }
    if (chosen) enterRow(time, !sharesRow(time, columns, fields), ok);
    placeValues(fields, columns);
    m_previousLine.assign(line);
}

// The columns behind those that an offset passes over; none for an offset before the first.
ReadingRows::Columns ReadingRows::columnsFrom(Columns columns, std::string_view offset) {
    const char* begin = offset.data();
    const char* end = begin + offset.size();
    trimBlanks(begin, end);
    if (begin == end) return columns;
    std::int64_t number = 0;
    const auto [stop, error] = std::from_chars(begin, end, number);
    if (error == std::errc::result_out_of_range || number < 0) return {};
    if (error != std::errc() || stop != end) passOver(PassedOver::Cause::UnreadableValue);
    return columns.subspan(std::min(static_cast<std::size_t>(number), columns.size()));
}

bool ReadingRows::isFree(int column) const {
    return column == ColumnMap::kNotLoaded ||
           (m_filler.isEmpty(column) &&
            std::find(m_emptyTexts.begin(), m_emptyTexts.end(), column) == m_emptyTexts.end());
}

// Lines of one time share a row unless a cell that the line fills holds a value already: a second
// reading of a channel starts a row of its own.
bool ReadingRows::sharesRow(std::string_view time, Columns columns, FieldScanner fields) const {
    if (m_rows == 0 || time != m_previousTime) return false;
    const auto isFreeColumn = [this](int column) { return isFree(column); };
    if (std::all_of(columns.begin(), columns.end(), isFreeColumn)) return true;
    const char* begin;
    const char* end;
    while (!columns.empty() && nextValue(fields, begin, end)) {
        const std::string_view field(begin, static_cast<std::size_t>(end - begin));
        if (!isValue(partsOf(field).value)) continue;
        if (!isFree(columns.front())) return false;
        columns = columns.subspan(1);
    }
    return true;
}

void ReadingRows::enterRow(std::string_view time, bool newRow, bool ok) {
    if (newRow) {
        m_previousTime.assign(time);
        m_emptyTexts.clear();
        ++m_rows;
    }
    const Row row = m_rows - 1;
    m_filler.startRow(row);
    m_colour = m_context.greyRows ? CellColour::Grey : CellColour::Black;
    if (!ok) {
        m_colour = CellColour::DarkRed;
        ++m_damagedLines;
        m_context.grid.addDamagedRow(row);
    }
    Cell& cell = m_filler.slot(0);
    if (newRow) {
        if (!TimeCell::pack(time, cell)) cell = m_context.grid.column(0).pack(time);
        cell = cell.withColour(m_colour);
    } else if (!ok) {
        // A row keeps the mark of any damaged line in it, whichever line comes last.
        cell = cell.withColour(m_colour);
    }
}

void ReadingRows::placeValues(FieldScanner& fields, Columns columns) {
    const char* begin;
    const char* end;
    while (nextValue(fields, begin, end)) {
        if (!columns.empty() && placeNumber(begin, end, columns.front())) {
            columns = columns.subspan(1);
        } else {
            placeOther({begin, static_cast<std::size_t>(end - begin)}, fields.atEnd(), columns);
        }
    }
}

// A field that is not just a number for its column, with what stands behind its value.
void ReadingRows::placeOther(std::string_view field, bool last, Columns& columns) {
    const FieldParts parts = partsOf(field);
    // What stands behind the line's last ';' is its checksum.
    const bool checksum = last && parts.suffix.find(';') == std::string_view::npos;
    if (!parts.suffix.empty() && !checksum) passOver(PassedOver::Cause::UnreadableValue);
    if (parts.value.empty()) return;
    if (!isValue(parts.value)) return passOver(PassedOver::Cause::UnreadableValue);
    if (columns.empty()) return passOver(PassedOver::Cause::ValueWithoutChannel);
    const char* const begin = parts.value.data();
    if (!placeNumber(begin, begin + parts.value.size(), columns.front()))
        placeValue(parts.value, columns.front());
    columns = columns.subspan(1);
}

bool ReadingRows::placeNumber(const char* begin, const char* end, int column) {
    Cell cell;
    if (column == ColumnMap::kNotLoaded || m_columns.kind(column) != ColumnKind::Numeric ||
        !DecimalCell::pack(begin, end, '.', DecimalCell::Zeros::Trim, cell)) {
        return false;
    }
    m_filler.set(column, cell.withColour(m_colour));
    return true;
}

void ReadingRows::placeValue(std::string_view value, int column) {
    if (column == ColumnMap::kNotLoaded) return;
    if (!ValueText::startsNumber(value)) {
        const Cell cell = ValueText::fromQuoted(value, m_context.grid.column(column));
        m_filler.set(column, cell);
        if (cell.isEmpty()) m_emptyTexts.push_back(column);
        // The line's colour goes to the cell behind a text.
        if (column + 1 < m_context.grid.columnCount()) {
            Cell& behind = m_filler.slot(column + 1);
            behind = behind.withColour(m_colour);
        }
        return;
    }
    const std::size_t colon = value.find(':');
    if (colon != std::string_view::npos && !isTimeOfDay(value)) {
        if (colon + 1 < value.size()) passOver(PassedOver::Cause::UnreadableValue);
        value = value.substr(0, colon);
    }
    m_filler.set(column, numberCell(value, column).withColour(m_colour));
}

Cell ReadingRows::numberCell(std::string_view value, int index) {
    Column& column = m_context.grid.column(index);
    LoggerClock::Buffer buffer;
    std::string_view text;
    switch (m_columns.kind(index)) {
    case ColumnKind::Date:
        if (value.find('/') != std::string_view::npos) break;
        if (const auto days = parseDecimal(value, '.')) text = LoggerClock::date(*days, buffer);
        break;
    case ColumnKind::Time:
        if (value.find(':') != std::string_view::npos) break;
        if (const auto seconds = parseDecimal(value, '.'))
            text = LoggerClock::timeOfDay(*seconds, buffer);
        break;
    case ColumnKind::Numeric:
        return ValueText::fromPoint(value, column);
    case ColumnKind::Text:
        break;
    }
    return column.pack(text.empty() ? value : text);
}

} // namespace pellam
