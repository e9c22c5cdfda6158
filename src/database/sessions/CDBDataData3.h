#pragma once

#include "database/odbc/CRecordset.h"

namespace pellam {

/// Table data_data: one row a reading.
class CDBDataData3 : public CRecordset {
  public:
    using CRecordset::CRecordset;

    std::string m_address;
    std::int32_t m_data_status = 0;
    CTime m_data_time;
    double m_data_value = 0.0;
    std::string m_schedule;
    std::int32_t m_schedule_index = 0; ///< its channel's position in the schedule
    std::int32_t m_sub_time = 0;       ///< sub-second part of the time
    std::string m_label;
    std::string m_job;

    [[nodiscard]] std::string_view GetDefaultSQL() const override { return "[data_data]"; }

  protected:
    void DoFieldExchange(CFieldExchange& exchange) override;
};

} // namespace pellam
