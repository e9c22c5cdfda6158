#pragma once

#include "database/sessions/CDBDataTime.h"

namespace pellam {

/// The latest time.
class CDBDataData2 : public CDBDataTime {
  public:
    explicit CDBDataData2(CDatabase& database) : CDBDataTime(database, "Max([data_time])") {}
};

} // namespace pellam
