#pragma once

#include "database/odbc/CRecordset.h"

namespace pellam {

/// Table data_details: one row a channel of a session.
class CDBDataDetails : public CRecordset {
  public:
    using CRecordset::CRecordset;

    std::string m_address;
    double m_data_alarm_max = 0.0;
    double m_data_alarm_min = 0.0;
    std::string m_label;
    std::int32_t m_logged_index = 0;
    std::string m_port_id;
    std::int32_t m_return_index = 0;
    std::string m_schedule;
    std::int32_t m_schedule_index = 0; ///< position in its schedule; -1: known by its label
    std::int32_t m_schedule_rate_in_seconds = 0;
    std::string m_session_id;
    std::int32_t m_session_index = 0;
    std::string m_site_id;
    std::string m_units;
    std::int32_t m_value_type = 0;
    std::string m_job;

    [[nodiscard]] std::string_view GetDefaultSQL() const override { return "[data_details]"; }

  protected:
    void DoFieldExchange(CFieldExchange& exchange) override;
};

} // namespace pellam
