#include "database/sessions/CSessionFromDatabase.h"

#include "database/odbc/DataSources.h"
#include "database/sessions/SessionFilter.h"
#include "database/sessions/SessionLineText.h"
#include "database/sessions/SessionTables.h"

#include <algorithm>

namespace pellam {

using Cause = PassedOver::Cause;

CSessionFromDatabase::CSessionFromDatabase(const SessionContext& context)
    : m_context(context),
      m_database(context.call) {}

CSessionFromDatabase::~CSessionFromDatabase() = default;

bool CSessionFromDatabase::CreateFileFromDatabaseSession(const SessionRequest& request) {
    tell(true);
    m_request = withSqlWildcards(request);
    // Open from here on, so that a connection that takes its time can be seen and stopped.
    m_progress.emplace(m_context.progress, "Loading Session - " + m_request.session,
                       "Querying the database. Please wait...", 0, 100);
    const bool written = openDatabase() && writeSession();
    m_database.Close();
    tell(false);
    return written;
}

void CSessionFromDatabase::tell(bool working) const {
    if (m_context.tellMainWindow) m_context.tellMainWindow(working);
}

void CSessionFromDatabase::show(std::string_view text) const {
    // Whoever stopped the load knows why it ends.
    if (!UserAborted()) m_context.messages.show(text);
}

void CSessionFromDatabase::showError() {
    if (m_error->stopped) return;
    show(m_error->text);
    m_errorShown = true;
}

bool CSessionFromDatabase::openDatabase() {
    m_error = m_context.login.open(m_database, m_request.dataSource);
    if (m_error) {
        showError();
        return false;
    }
    m_database.SetQueryTimeout(kQueryTimeout);
    m_rules = {isMySqlDriver(firstDriverText()), m_database.hasBackslashEscapes()};
    return true;
}

bool CSessionFromDatabase::writeSession() {
    m_schedules = {};
    m_passedOver = {};
    Failure failure = m_file.create();
    const bool header = !failure && writeHeader();
    if (header) ConstructData();
    m_file.close();
    if (!failure) failure = m_file.error();
    if (!failure) return header && !UserAborted() && (m_hasLines || !m_error);
    m_error = SqlError{"", 0,
                       "Warning: " + failure.text() +
                           " Make room there, or name another folder in TMPDIR."};
    showError();
    return false;
}

bool CSessionFromDatabase::writeHeader() {
    m_error = listChannels();
    if (m_error) {
        showError();
        return false;
    }
    const auto hasChannels = [](const auto& schedule) { return !schedule.channels().empty(); };
    if (std::none_of(m_schedules.begin(), m_schedules.end(), hasChannels)) {
        show("Warning: No records were found matching the supplied criteria");
        return false;
    }
    WriteToFile("Descriptor\nName \"Hembric\"\nLock N\nDesc \"" + m_request.session +
                "\"\nEndDescriptor\n\n");
    std::string status;
    m_error = ConstructStatus10(status);
    if (m_error) {
        showError();
        return false;
    }
    WriteToFile("<IDATA_MAP>\n");
    WriteToFile(status);
    WriteToFile("\n\n<ALL_DATA>\n");
    return true;
}

int CSessionFromDatabase::GetScheduleID(char character) {
    if (character >= 'B' && character <= 'K') return character - 'A';
    switch (character) {
    case 'X':
        return 11;
    case 'V':
        return 15;
    case '*':
        return 16;
    default:
        return 0;
    }
}

Session_Schedule_Info& CSessionFromDatabase::slotOf(char character) {
    return m_schedules[static_cast<std::size_t>(GetScheduleID(character))];
}

SqlFailure CSessionFromDatabase::listChannels() {
    CDBDataDetails details(m_database);
    details.m_strFilter = channelFilter(m_request, m_rules);
    details.m_strSort = "schedule ASC,schedule_index ASC";
    SqlFailure failure = details.Open(CRecordset::snapshot);
    while (!failure && !details.IsEOF()) {
        addChannel(details);
        failure = details.MoveNext();
    }
    const UnreadRows& unread = details.unread();
    if (unread.count > 0) m_passedOver.add(Cause::UnreadableChannel, unread.first, unread.count);
    return failure;
}

void CSessionFromDatabase::addChannel(const CDBDataDetails& row) {
    // The last character of a longer name: "AB" counts as B here.
    const char letter = row.m_schedule.empty() ? '\0' : row.m_schedule.back();
    if (row.m_schedule.size() > 1) m_longSchedules.insert(row.m_schedule);
    Session_Schedule_Info& schedule = slotOf(letter);
    if (!schedule.find(row.m_schedule_index, row.m_label))
        schedule.add(row.m_schedule_index, row.m_label);
    schedule.rateInSeconds = static_cast<std::uint32_t>(row.m_schedule_rate_in_seconds);
    schedule.lowestIndex = std::min(schedule.lowestIndex, row.m_schedule_index);
}

SqlFailure CSessionFromDatabase::ConstructStatus10(std::string& status) {
    CDBDataDetails details(m_database);
    status = "S,0,0,10:0,1989,1,0,\"\",";
    for (const char letter : std::string_view("ABCDEFGHIJKXV")) {
        SqlFailure failure = addSchedule(details, letter, status);
        if (failure) return failure;
    }
    status += ">:";
    return {};
}

SqlFailure CSessionFromDatabase::addSchedule(CDBDataDetails& details, char letter,
                                             std::string& status) {
    Session_Schedule_Info& schedule = slotOf(letter);
    status.append("<").append(1, letter);
    if (!schedule.channels().empty()) {
        // Schedule V has no rate of its own.
        const std::string rate = letter == 'V' ? "1" : std::to_string(schedule.rateInSeconds) + "l";
        status.append(",\"").append(rate).append("S\",G");
        for (std::size_t i = 0; i < schedule.channels().size(); ++i) {
            SqlFailure failure = AddChannelDetails(details, letter, schedule, i, status);
            if (failure) return failure;
        }
    }
    status += ">";
    return {};
}

SqlFailure CSessionFromDatabase::AddChannelDetails(CDBDataDetails& details, char letter,
                                                   Session_Schedule_Info& schedule,
                                                   std::size_t channel, std::string& text) {
    details.m_strFilter =
        channelEntryFilter(m_request, letter, schedule.channels()[channel], m_rules);
    SqlFailure failure =
        details.IsOpen() ? details.Requery() : details.Open(CRecordset::forwardOnly);
    if (failure || details.IsEOF()) return failure;
    schedule.setEntry(channel);
    appendChannelTexts(details.m_label, details.m_units, text.append(",<"));
    text.append(",").append(typeCode(details.m_value_type)).append(",0,8,4,1>");
    return {};
}

void CSessionFromDatabase::ConstructData() {
    CDBDataData3 row(m_database);
    row.m_strFilter = readingFilter(m_request, m_rules);
    row.m_strSort = "data_time ASC,sub_time ASC,schedule ASC,schedule_index ASC";
    m_linePending = false;
    m_lineNumber = 0;
    m_lineTime = CTime::now();
    m_lineSubTime = 0;
    m_lineSchedule.clear();
    m_error = row.Open(CRecordset::forwardOnly);
    if (!m_error) {
        m_context.progress.addString("Starting data retrieval...");
        m_error = writeReadings(row);
    }
    const UnreadRows& unread = row.unread();
    if (unread.count > 0) m_passedOver.add(Cause::UnreadableReading, unread.first, unread.count);
    if (m_error && !m_error->stopped) show("Warning: Database exception. Load aborted.");
}

SqlFailure CSessionFromDatabase::writeReadings(CDBDataData3& row) {
    std::uint32_t count = 0;
    while (!row.IsEOF() && !m_file.error() && !UserAborted()) {
        if (++count % 100 == 0)
            m_context.progress.addString("Retrieved " + std::to_string(count) + " records");
        takeReading(row, count);
        SqlFailure failure = row.MoveNext();
        if (failure) return failure;
    }
    if (m_linePending) BuildActiveLine(m_lineSchedule, m_line);
    return {};
}

void CSessionFromDatabase::takeReading(const CDBDataData3& row, std::int64_t number) {
    if (row.m_data_time.isNull()) return m_passedOver.add(Cause::ReadingWithoutTime, number);
    // No channel of the first letter's schedule: those of the longer name have no entry.
    if (row.m_schedule.size() > 1 && m_longSchedules.contains(row.m_schedule))
        return m_passedOver.add(Cause::ReadingWithoutChannel, number);
    if (row.m_data_time != m_lineTime || row.m_sub_time != m_lineSubTime ||
        row.m_schedule != m_lineSchedule) {
        if (m_linePending) BuildActiveLine(m_lineSchedule, m_line);
        startLine(row);
        m_lineRow = number;
    }
    if (!m_linePending) return;
    const char letter = row.m_schedule.empty() ? '\0' : row.m_schedule.front();
    Session_Channel_Info* channel = slotOf(letter).find(row.m_schedule_index, row.m_label);
    if (!channel || !channel->hasEntry)
        return m_passedOver.add(Cause::ReadingWithoutChannel, number);
    if (!row.m_data_value) m_passedOver.add(Cause::ReadingWithoutValue, number);
    if (channel->line == m_lineNumber) m_passedOver.add(Cause::ReplacedReading, number);
    channel->line = m_lineNumber;
    channel->value = row.m_data_value.value_or(0);
    channel->status = row.m_data_status;
}

void CSessionFromDatabase::startLine(const CDBDataData3& row) {
    m_lineTime = row.m_data_time;
    m_lineSubTime = row.m_sub_time;
    m_lineSchedule = row.m_schedule;
    m_line.clear();
    appendLineHead({row.m_address, row.m_data_time, row.m_sub_time, row.m_schedule}, m_line);
    m_linePending = true;
    ++m_lineNumber;
}

void CSessionFromDatabase::BuildActiveLine(const std::string& schedule, std::string& line) {
    const char letter = schedule.empty() ? '\0' : schedule.front();
    for (const Session_Channel_Info& channel : slotOf(letter).channels()) {
        if (!channel.hasEntry) continue;
        appendValue(channel, line);
        if (channel.line != m_lineNumber) m_passedOver.add(Cause::RepeatedValue, m_lineRow);
    }
    line += ":\n";
    m_hasLines = true;
    WriteToFile(line);
}

bool CSessionFromDatabase::WriteToFile(std::string_view text) {
    return m_file.write(text);
}

} // namespace pellam
