#include "replay/load/DelimitedLoader.h"

#include "base/FieldScanner.h"
#include "delimited/sample/RecordReader.h"
#include "grid/DecimalText.h"
#include "grid/TimeCell.h"
#include "replay/load/DelimitedRows.h"
#include "replay/load/RowCounter.h"

#include <algorithm>
#include <cstring>

namespace pellam {

namespace {

constexpr Row kReportRows = 500;

bool isTimeStamp(std::string_view text) {
    Cell cell;
    return TimeCell::pack(text, cell);
}

TextLayout plainLayout(char separator, char decimal) {
    TextLayout layout;
    layout.dialect.separator = separator;
    layout.decimal = decimal;
    layout.plain = true;
    return layout;
}

} // namespace

DelimitedLoader::DelimitedLoader(const LoadContext& context, char separator)
    : DelimitedLoader(context, plainLayout(separator, context.grid.decimalSeparator())) {}

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
    if (refuse(path)) return outcome;
    std::string_view line;
    if (m_layout.plain) {
        if (!firstLine(reader, line)) {
            m_context.messages.show(reader.error() ? reader.error().text()
                                                   : "Attention: There is nothing in " + path);
            return outcome;
        }
        const std::string first(withoutLineEnd(line));
        DelimitedColumns columns = plainColumns(first);
        // A file whose first line is a reading already has no headings: the line stays a row.
        const char separator = m_layout.dialect.separator;
        const bool isRow = isTimeStamp(std::string_view(first).substr(0, first.find(separator)));
        readRows(reader, columns, isRow ? first : std::string(), outcome);
    } else {
        while (m_line + 1 < m_layout.firstDataLine && reader.next(line))
            ++m_line;
        DelimitedColumns columns(m_context.grid, m_layout);
        readRows(reader, columns, {}, outcome);
    }
    if (reader.error()) m_context.messages.show(reader.error().text());
    outcome.loaded = true;
    // A time that was written anew is in the one form of all such times.
    m_context.grid.setTimeForm(m_layout.timeParts ? *TimeForm::parse("yyyy/MM/dd HH:mm:ss")
                                                  : m_layout.timeForm);
    m_context.grid.setHasTimes(m_layout.plain || !m_layout.timeColumns.empty());
    for (const std::string& above : m_layout.description)
        outcome.description += (outcome.description.empty() ? "" : "\n") + above;
    outcome.layout = std::move(m_layout);
    return outcome;
}

bool DelimitedLoader::refuse(const std::string& path) const {
    if (m_layout.notATable.empty()) return false;
    m_context.messages.show("Attention: " + path + " looks like " + m_layout.notATable +
                            ", not like a table of measurements. Nothing was loaded.");
    return true;
}

// The first line that is not blank: it has the headings, or it is a row where there are none.
bool DelimitedLoader::firstLine(LineReader& reader, std::string_view& line) {
    const std::string blanks = std::string(" \t\r\n,;") + m_layout.dialect.separator;
    while (reader.next(line)) {
        ++m_line;
        if (line.find_first_not_of(blanks) != std::string_view::npos) return true;
    }
    return false;
}

void DelimitedLoader::readRows(LineReader& reader, DelimitedColumns& columns,
                               std::string_view first, LoadOutcome& outcome) {
    const ProgressScope scope(m_context.progress, "Loading Pellam", "Loading...", 1,
                              std::max<std::int64_t>(1, reader.fileSize() / 500));
    DelimitedRows rows(m_context, m_layout, columns);
    RowCounter counter(m_context.progress, kReportRows);
    if (!first.empty()) {
        // Parsers of fields read a little past the record, which therefore needs room around it.
        std::string padded(LineReader::kSlack, '\0');
        padded.append(first).append(LineReader::kSlack, '\0');
        rows.DisplayDelimDetails(std::string_view(padded).substr(LineReader::kSlack, first.size()),
                                 m_line);
    }
    RecordReader records(reader, m_layout.dialect, m_line + 1);
    for (std::string_view record; records.next(record);) {
        if (m_layout.lastDataLine > 0 && records.line() > m_layout.lastDataLine) break;
        if (m_layout.dataEnd >= 0 && records.offset() >= m_layout.dataEnd) break;
        rows.DisplayDelimDetails(record, records.line());
        if (!counter.line(rows.rows(), reader.bytesRead() / 500)) break;
    }
    m_context.grid.setRowCount(rows.rows());
    takeMissing(columns);
    outcome.aborted = counter.aborted();
    outcome.passedOver = rows.passedOver();
    outcome.passedOver.addCutLines(reader);
    const auto& further = rows.furtherHeadings();
    m_layout.furtherTables.insert(m_layout.furtherTables.begin(), further.begin(), further.end());
    if (m_layout.footerLines > 0 && !outcome.aborted)
        outcome.passedOver.add(PassedOver::Cause::FooterLine, records.line(), m_layout.footerLines);
}

DelimitedColumns DelimitedLoader::plainColumns(std::string_view line) const {
    return {m_context.grid, plainLabels(line)};
}

void DelimitedLoader::takeMissing(const DelimitedColumns& columns) const {
    std::vector<MissingText> texts;
    for (const std::string& text : m_layout.missing)
        texts.push_back({text, parseDecimal(text, m_layout.decimal)});
    m_context.grid.setMissing(std::move(texts));
    for (const auto& [field, missing] : m_layout.ownValues) {
        const int column = field < columns.fields() ? columns.ofField(field) : 0;
        if (column > 0) m_context.grid.column(column).setAsValue(missing);
    }
}

std::vector<std::string> DelimitedLoader::plainLabels(std::string_view line) const {
    const char separator = m_layout.dialect.separator;
    std::vector<std::string> labels;
    if (isTimeStamp(line.substr(0, line.find(separator)))) {
        const auto fields = std::count(line.begin(), line.end(), separator) + 1;
        labels.emplace_back("Time");
        for (std::ptrdiff_t i = 1; i < fields; ++i)
            labels.push_back("Channel " + std::to_string(i));
        return labels;
    }
    // The scanner reads a little past the line, which therefore needs room behind it.
    std::string padded(line);
    padded.append(LineReader::kSlack, '\0');
    const auto quotes = line.find('"') == std::string_view::npos ? FieldScanner::Quotes::Plain
                                                                 : FieldScanner::Quotes::Group;
    FieldScanner scanner(std::string_view(padded).substr(0, line.size()), separator, quotes);
    for (std::string_view field; scanner.next(field);) {
        std::string& label = labels.emplace_back(field);
        std::erase(label, '"');
    }
    // An export ends its heading row with a separator when later columns are not exported.
    while (!labels.empty() && labels.back().empty())
        labels.pop_back();
    return labels;
}

} // namespace pellam
