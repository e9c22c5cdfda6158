#include "database/sessions/CDBDataDetails.h"

namespace pellam {

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

} // namespace pellam
