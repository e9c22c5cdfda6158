#include "database/CDBDataData1.h"

namespace pellam {

void CDBDataData1::DoFieldExchange(CFieldExchange& exchange) {
    exchange.bind("Min([data_time])", m_data_time);
}

} // namespace pellam
