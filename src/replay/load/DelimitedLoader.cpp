#include "replay/load/DelimitedLoader.h"

#include "base/FieldScanner.h"
#include "grid/DecimalCell.h"
#include "grid/TimeCell.h"
#include "replay/load/RowCounter.h"
#include "replay/load/ValueText.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace pellam {

namespace {

constexpr Row kReportRows = 500;
constexpr int kSampledLines = 100;

bool isTimeStamp(std::string_view text) {
    Cell cell;
    return TimeCell::pack(text, cell);
}

} // namespace

LoadOutcome DelimitedLoader::ReadDelimFile(const std::string& path) {
    LoadOutcome outcome;
    outcome.kind = LoadOutcome::Kind::Delimited;
    outcome.path = path;
    LineReader reader;
    if (const Failure failure = reader.open(path, LineReader::LineEnds::AnyReturn)) {
        m_context.messages.show(failure.text());
        return outcome;
    }
    outcome.fileSize = reader.fileSize();
    adaptSeparators(reader);
    std::string_view line;
    if (!firstLine(reader, line)) {
        m_context.messages.show(reader.error() ? reader.error().text()
                                               : "Attention: There is nothing in " + path);
        return outcome;
    }
    readRows(reader, line, outcome);
    if (reader.error()) m_context.messages.show(reader.error().text());
    outcome.loaded = true;
    return outcome;
}

// The first line that is not blank: it has the headings, or it is a row where there are none.
bool DelimitedLoader::firstLine(LineReader& reader, std::string_view& line) const {
    const std::string blanks = std::string(" \t\r\n,;") + m_separator;
    while (reader.next(line)) {
        if (line.find_first_not_of(blanks) != std::string_view::npos) return true;
    }
    return false;
}

void DelimitedLoader::readRows(LineReader& reader, std::string_view line, LoadOutcome& outcome) {
    const ProgressScope scope(m_context.progress, "Loading Pellam", "Loading...", 1,
                              std::max<std::int64_t>(1, reader.fileSize() / 500));
    const std::string first(withoutLineEnd(line));
    DisplayDelimLabels(first);
    // A file whose first line is a reading already has no headings: the line stays a row.
    bool more = isTimeStamp(std::string_view(first).substr(0, first.find(m_separator))) ||
                reader.next(line);
    RowFiller filler(m_context.grid);
    RowCounter counter(m_context.progress, kReportRows);
    for (; more; more = reader.next(line)) {
        DisplayDelimDetails(withoutLineEnd(line), filler);
        if (!counter.line(m_rows, reader.bytesRead() / 500)) break;
    }
    m_context.grid.setRowCount(m_rows);
    outcome.aborted = counter.aborted();
}

void DelimitedLoader::adaptSeparators(LineReader& reader) {
    std::string_view line;
    if (firstLine(reader, line) && line.find(m_separator) == std::string_view::npos) {
        std::ptrdiff_t most = 0;
        for (const char candidate : {';', '\t', ','}) {
            const auto count = std::count(line.begin(), line.end(), candidate);
            if (count <= most) continue;
            most = count;
            m_separator = candidate;
        }
        if (most > 0) m_decimal = '.';
        for (int i = 0; i < kSampledLines && m_decimal == '.' && reader.next(line); ++i) {
            if (hasDecimalComma(withoutLineEnd(line))) m_decimal = ',';
        }
    }
    reader.rewind();
}

bool DelimitedLoader::hasDecimalComma(std::string_view line) const {
    if (m_separator == ',') return false;
    FieldScanner scanner(line, m_separator, quotesOf(line));
    for (std::string_view field; scanner.next(field);) {
        const std::size_t comma = field.find(',');
        if (comma == std::string_view::npos || comma == 0 || comma + 1 == field.size()) continue;
        if (field.find_first_not_of("+-.0123456789") == comma &&
            field.find_first_not_of("0123456789", comma + 1) == std::string_view::npos) {
            return true;
        }
    }
    return false;
}

FieldScanner::Quotes DelimitedLoader::quotesOf(std::string_view line) const {
    return std::memchr(line.data(), '"', line.size()) ? FieldScanner::Quotes::Group
                                                      : FieldScanner::Quotes::Plain;
}

void DelimitedLoader::DisplayDelimLabels(std::string_view line) {
    std::vector<std::string> labels;
    if (isTimeStamp(line.substr(0, line.find(m_separator)))) {
        const auto fields = std::count(line.begin(), line.end(), m_separator) + 1;
        labels.emplace_back("Time");
        for (std::ptrdiff_t i = 1; i < fields; ++i)
            labels.push_back("Channel " + std::to_string(i));
    } else {
        // The scanner reads a little past the line, which therefore needs room behind it.
        std::string padded(line);
        padded.append(LineReader::kSlack, '\0');
        FieldScanner scanner(std::string_view(padded).substr(0, line.size()), m_separator,
                             quotesOf(line));
        std::string_view field;
        while (scanner.next(field)) {
            std::string& label = labels.emplace_back(field);
            std::erase(label, '"');
        }
        // An export ends its heading row with a separator when later columns are not exported.
        while (!labels.empty() && labels.back().empty())
            labels.pop_back();
    }
    m_columnCount = static_cast<int>(labels.size());
    GridData& grid = m_context.grid;
    grid.setColumnCount(m_columnCount);
    grid.setChannelCount(std::max(0, m_columnCount - 1));
    for (int column = 0; column < m_columnCount; ++column) {
        grid.column(column).setLabel(labels[static_cast<std::size_t>(column)]);
        grid.column(column).setCharted(true);
    }
}

bool DelimitedLoader::isDiscontinuity(std::string_view line) const {
    return std::memchr(line.data(), 'D', line.size()) != nullptr &&
           line.find("Discontinuity") != std::string_view::npos;
}

void DelimitedLoader::DisplayDelimDetails(std::string_view line, RowFiller& filler) {
    if (line.empty() || line == m_previousLine || isDiscontinuity(line)) return;
    m_previousLine.assign(line);
    filler.startRow(m_rows++);
    FieldScanner scanner(line, m_separator, quotesOf(line));
    const char* begin;
    const char* end;
    const CellColour colour = m_context.greyRows ? CellColour::Grey : CellColour::Black;
    for (int column = 0; column < m_columnCount && scanner.next(begin, end); ++column) {
        if (begin == end) continue;
        Cell cell;
        if (column == 0 ||
            !DecimalCell::pack(begin, end, m_decimal, DecimalCell::Zeros::Trim, cell)) {
            cell = fieldCell({begin, static_cast<std::size_t>(end - begin)}, column);
        }
        filler.set(column, cell.withColour(colour));
    }
}

Cell DelimitedLoader::fieldCell(std::string_view field, int index) {
    Column& column = m_context.grid.column(index);
    Cell cell;
    if (TimeCell::pack(field, cell)) return cell;
    if (index > 0 && ValueText::startsNumber(field))
        return ValueText::fromSeparator(field, m_decimal, column);
    return ValueText::fromQuoted(field, column);
}

} // namespace pellam
