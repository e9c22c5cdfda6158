#include "database/sessions/CDBDataData3.h"

namespace pellam {

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
