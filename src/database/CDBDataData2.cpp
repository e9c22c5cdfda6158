#include "database/CDBDataData2.h"

namespace pellam {

void CDBDataData2::DoFieldExchange(CFieldExchange& exchange) {
    exchange.bind("Max([data_time])", m_data_time);
}

} // namespace pellam
