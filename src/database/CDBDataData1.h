#pragma once

#include "database/CRecordset.h"

namespace pellam {

/// Table data_data: the earliest reading that matches the filter.
class CDBDataData1 : public CRecordset {
  public:
    using CRecordset::CRecordset;

    CTime m_data_time; ///< null where no reading matches

    [[nodiscard]] std::string_view GetDefaultSQL() const override { return "[data_data]"; }

  protected:
    void DoFieldExchange(CFieldExchange& exchange) override;
};

} // namespace pellam
