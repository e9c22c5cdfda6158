#include "database/sessions/SessionTables.h"

namespace pellam {

void CDBDataHeader::DoFieldExchange(CFieldExchange& exchange) {
    exchange.bind("channel_count", m_channel_count);
    exchange.bind("session_date", m_session_date);
    exchange.bind("session_id", m_session_id);
    exchange.bind("session_info", m_session_info);
    exchange.bind("session_notes", m_session_notes);
}

void CDBDataDetails::DoFieldExchange(CFieldExchange& exchange) {
    exchange.bind("address", m_address);
    exchange.bind("data_alarm_max", m_data_alarm_max);
    exchange.bind("data_alarm_min", m_data_alarm_min);
    exchange.bind("label", m_label);
    exchange.bind("logged_index", m_logged_index);
    exchange.bind("port_id", m_port_id);
    exchange.bind("return_index", m_return_index);
    exchange.bind("schedule", m_schedule);
    exchange.bind("schedule_index", m_schedule_index);
    exchange.bind("schedule_rate_in_seconds", m_schedule_rate_in_seconds);
    exchange.bind("session_id", m_session_id);
    exchange.bind("session_index", m_session_index);
    exchange.bind("site_id", m_site_id);
    exchange.bind("units", m_units);
    exchange.bind("value_type", m_value_type);
    exchange.bind("job", m_job);
}

void CDBDataData3::DoFieldExchange(CFieldExchange& exchange) {
    exchange.bind("address", m_address);
    exchange.bind("data_status", m_data_status);
    exchange.bind("data_time", m_data_time);
    exchange.bind("data_value", m_data_value);
    exchange.bind("schedule", m_schedule);
    exchange.bind("schedule_index", m_schedule_index);
    exchange.bind("sub_time", m_sub_time);
    exchange.bind("label", m_label);
    exchange.bind("job", m_job);
}

} // namespace pellam
