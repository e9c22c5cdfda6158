#include "replay/load/ReadingRows.h"

#include "grid/DecimalCell.h"
#include "grid/DecimalText.h"
#include "grid/TimeCell.h"
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

std::size_t leadingNumber(std::string_view text) {
    std::size_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

} // namespace

ReadingRows::ReadingRows(const LoadContext& context, const ColumnMap& columns, Mode mode)
    : m_context(context),
      m_columns(columns),
      m_mode(mode),
      m_filler(context.grid),
      m_timeHead(context.grid.decimalSeparator()) {}

void ReadingRows::DisplayDetails(std::string_view line, bool ok) {
    if (line.empty()) return;
    if (line[0] != 'D' && (line[0] != '<' || m_mode == Mode::ChosenChannels)) return;
    if (line == m_previousLine) return;
    // The record tag may also end at '>'.
    std::size_t tag = line.find_first_of(",>");
    if (tag == std::string_view::npos) return;
    if (line[tag] == '>' && tag + 1 < line.size() && line[tag + 1] == ',') ++tag;
    const bool quotes = std::memchr(line.data(), '"', line.size()) != nullptr;
    FieldScanner fields(line.substr(tag + 1), ',',
                        quotes ? FieldScanner::Quotes::Group : FieldScanner::Quotes::Plain);
    std::string_view field;
    std::string_view time;
    if (!fields.next(field) || !m_timeHead.read(fields, field, time)) return;

    std::string_view status;
    if (!fields.next(status) || status.empty() || status[0] == '3' || status[0] == '4') return;
    const char letter = status.size() > 2 ? status[2] : '\0';
    const std::span<const int> columns = m_columns.columnsOf(letter);
    if (m_mode == Mode::ChosenChannels && columns.empty()) return;

    std::string_view offset;
    const bool hasOffset = fields.next(offset);
    const std::size_t number = hasOffset ? leadingNumber(offset) : 0;
    enterRow(time, columns.subspan(std::min(number, columns.size())), ok);
    if (hasOffset) placeValues(fields, columns, number);
    m_previousLine.assign(line);
}

// Lines of one time share a row, but a second reading of a channel at that time never overwrites
// the first: it starts a row of its own.
bool ReadingRows::sharesRow(std::string_view time, std::span<const int> columns) {
    if (m_rows == 0 || time != m_previousTime) return false;
    const auto loaded = std::find_if(columns.begin(), columns.end(),
                                     [](int column) { return column != ColumnMap::kNotLoaded; });
    return loaded == columns.end() || m_filler.slot(*loaded).isEmpty();
}

void ReadingRows::enterRow(std::string_view time, std::span<const int> columns, bool ok) {
    const bool newRow = !sharesRow(time, columns);
    if (newRow) {
        m_previousTime.assign(time);
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

void ReadingRows::placeValues(FieldScanner& fields, std::span<const int> columns,
                              std::size_t number) {
    const char* begin;
    const char* end;
    while (number < columns.size() && fields.next(begin, end)) {
        const auto length = static_cast<std::size_t>(end - begin);
        if (length == 0) continue;
        if (*begin == '$') {
            // A status; what a '<' cuts off behind it is the next value.
            begin = static_cast<const char*>(std::memchr(begin, '<', length));
            if (!begin || ++begin == end) continue;
        }
        const int column = columns[number];
        if (placeNumber(begin, end, column)) {
            ++number;
            continue;
        }
        // Behind a value's ';' stand lengths and checksums, no more values.
        const void* const stop =
            std::memchr(begin + 1, ';', static_cast<std::size_t>(end - begin) - 1);
        if (stop) end = static_cast<const char*>(stop);
        if ((stop && placeNumber(begin, end, column)) ||
            placeValue({begin, static_cast<std::size_t>(end - begin)}, column)) {
            ++number;
        }
        if (stop) return;
    }
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

bool ReadingRows::placeValue(std::string_view value, int column) {
    const bool quoted = value.find('"') != std::string_view::npos;
    if (!ValueText::startsNumber(value) && !quoted) return false;
    if (column == ColumnMap::kNotLoaded) return true;
    if (!ValueText::startsNumber(value)) {
        m_filler.set(column, ValueText::fromQuoted(value, m_context.grid.column(column)));
        // The line's colour goes to the cell behind a text.
        if (column + 1 < m_context.grid.columnCount()) {
            Cell& behind = m_filler.slot(column + 1);
            behind = behind.withColour(m_colour);
        }
        return true;
    }
    const std::size_t colon = value.find(':');
    if (colon != std::string_view::npos && !isTimeOfDay(value)) value = value.substr(0, colon);
    m_filler.set(column, numberCell(value, column).withColour(m_colour));
    return true;
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
