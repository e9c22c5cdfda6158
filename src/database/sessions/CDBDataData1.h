#pragma once

#include "database/sessions/CDBDataTime.h"

namespace pellam {

/// The earliest time.
class CDBDataData1 : public CDBDataTime {
  public:
    explicit CDBDataData1(CDatabase& database) : CDBDataTime(database, "Min([data_time])") {}
};

} // namespace pellam
