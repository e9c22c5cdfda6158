#include "database/sessions/CDBDataHeader.h"

namespace pellam {

void CDBDataHeader::DoFieldExchange(CFieldExchange& exchange) {
    exchange.bind("channel_count", m_channel_count);
    exchange.bind("session_date", m_session_date);
    exchange.bind("session_id", m_session_id);
    exchange.bind("session_info", m_session_info);
    exchange.bind("session_notes", m_session_notes);
}

} // namespace pellam
