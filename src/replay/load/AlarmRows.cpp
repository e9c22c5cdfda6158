#include "replay/load/AlarmRows.h"

#include "grid/TimeCell.h"
#include "replay/checks/LineCheck.h"
#include "replay/load/FieldParts.h"
#include "replay/load/ValueText.h"

#include <array>

namespace pellam {

namespace {
constexpr std::array<std::string_view, 7> kHeadings = {
    "Time", "Job", "Schedule", "Real Time", "Alarm Number", "Alarm Type", "Alarm Message"};
}

AlarmRows::AlarmRows(const LoadContext& context, PassedOver& passedOver)
    : m_context(context),
      m_passedOver(passedOver),
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

void AlarmRows::DisplayAlarmDetails(std::string_view line, std::int64_t number) {
    if (line == m_previousLine) return m_passedOver.add(PassedOver::Cause::RepeatedLine, number);
    const bool quotes = line.find('"') != std::string_view::npos;
    FieldScanner fields(line, ',',
                        quotes ? FieldScanner::Quotes::Group : FieldScanner::Quotes::Plain);
    std::string_view field;
    std::string_view job;
    std::string_view time;
    std::string_view status;
    if (!fields.next(field) || !fields.next(field) || !m_timeHead.read(fields, job, time) ||
        !fields.next(status) || status.empty()) {
        return m_passedOver.add(PassedOver::Cause::IncompleteLine, number);
    }
    if (status[0] == '3' || status[0] == '4')
        return m_passedOver.add(PassedOver::Cause::StatusLine, number);

    if (m_timeHead.leftOut()) m_passedOver.add(PassedOver::Cause::UnreadableValue, number);
    // Alarms of one second each keep a row of their own: none may overwrite another.
    m_filler.startRow(m_rows++);
    set(0, time);
    set(1, job);
    set(2, status.size() > 2 ? status.substr(2, 1) : std::string_view());
    set(3, status.substr(0, 1));
    placeFields(fields, 4, number);
    m_previousLine.assign(line);
}

void AlarmRows::placeFields(FieldScanner& fields, int column, std::int64_t number) {
    std::string_view field;
    while (fields.next(field)) {
        const FieldParts parts = FieldParts::of(field);
        if (column < static_cast<int>(kHeadings.size())) {
            set(column++, parts.value);
        } else if (!parts.value.empty()) {
            m_passedOver.add(PassedOver::Cause::ValueWithoutChannel, number);
        }
        const bool checksum = fields.atEnd() && LineCheck::isChecksum(parts.suffix);
        if (!parts.suffix.empty() && !checksum)
            m_passedOver.add(PassedOver::Cause::UnreadableValue, number);
    }
}

void AlarmRows::set(int column, std::string_view text) {
    Column& target = m_context.grid.column(column);
    m_filler.set(column, ValueText::fromQuoted(text, target).withColour(m_colour));
}

} // namespace pellam
