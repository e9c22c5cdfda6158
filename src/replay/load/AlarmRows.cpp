#include "replay/load/AlarmRows.h"

#include "grid/TimeCell.h"
#include "replay/load/ValueText.h"

#include <array>
#include <cstring>

namespace pellam {

namespace {
constexpr std::array<std::string_view, 7> kHeadings = {
    "Time", "Job", "Schedule", "Real Time", "Alarm Number", "Alarm Type", "Alarm Message"};
}

AlarmRows::AlarmRows(const LoadContext& context)
    : m_context(context),
      m_filler(context.grid),
      m_timeHead('.'),
      m_colour(context.greyRows ? CellColour::Grey : CellColour::Black) {}

void AlarmRows::DisplayAlarmLabels(GridData& grid) {
    grid.setColumnCount(static_cast<int>(kHeadings.size()));
    grid.setChannelCount(static_cast<int>(kHeadings.size()) - 1);
    for (std::size_t i = 0; i < kHeadings.size(); ++i) {
        grid.column(static_cast<int>(i)).setLabel(kHeadings[i]);
        grid.column(static_cast<int>(i)).setCharted(true);
    }
}

void AlarmRows::DisplayAlarmDetails(std::string_view line) {
    if (line.empty() || line[0] != 'A' || line == m_previousLine) return;
    const bool quotes = line.find('"') != std::string_view::npos;
    FieldScanner fields(line, ',',
                        quotes ? FieldScanner::Quotes::Group : FieldScanner::Quotes::Plain);
    std::string_view field;
    std::string_view job;
    std::string_view time;
    std::string_view status;
    if (!fields.next(field) || !fields.next(field) || !m_timeHead.read(fields, job, time)) return;
    if (!fields.next(status)) return;
    if (status.empty() || status[0] == '3' || status[0] == '4') return;

    // Alarms of one second each keep a row of their own: none may overwrite another.
    m_filler.startRow(m_rows++);
    set(0, time);
    setWithoutQuotes(1, job);
    set(2, status.size() > 2 ? status.substr(2, 1) : std::string_view());
    set(3, status.substr(0, 1));
    for (int column = 4; column <= 5 && fields.next(field); ++column)
        set(column, field.substr(0, 1));
    if (fields.next(field)) {
        const bool quoted = !field.empty() && field[0] == '"';
        setWithoutQuotes(6, field.substr(0, field.find(';', quoted ? field.rfind('"') : 0)));
    }
    m_previousLine.assign(line);
}

void AlarmRows::set(int column, std::string_view text) {
    m_filler.set(column, m_context.grid.column(column).pack(text).withColour(m_colour));
}

void AlarmRows::setWithoutQuotes(int column, std::string_view text) {
    Column& target = m_context.grid.column(column);
    m_filler.set(column, ValueText::fromQuoted(text, target).withColour(m_colour));
}

} // namespace pellam
