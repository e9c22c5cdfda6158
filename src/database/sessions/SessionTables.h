#pragma once

#include "database/odbc/CRecordset.h"

namespace pellam {

/// Table data_header: one row a session.
class CDBDataHeader : public CRecordset {
  public:
    using CRecordset::CRecordset;

    std::int32_t m_channel_count = 0; ///< channels of the session
    CTime m_session_date;
    std::string m_session_id; ///< the session's name
    std::string m_session_info;
    std::string m_session_notes;

    [[nodiscard]] std::string_view GetDefaultSQL() const override { return "[data_header]"; }

  protected:
    void DoFieldExchange(CFieldExchange& exchange) override;
};

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

/// Table data_data: one row a reading.
class CDBDataData3 : public CRecordset {
  public:
    using CRecordset::CRecordset;

    std::string m_address;
    std::int32_t m_data_status = 0;
    CTime m_data_time;
    std::optional<double> m_data_value; ///< nothing: a null
    std::string m_schedule;
    std::int32_t m_schedule_index = 0; ///< its channel's position in the schedule
    std::int32_t m_sub_time = 0;       ///< sub-second part of the time
    std::string m_label;
    std::string m_job;

    [[nodiscard]] std::string_view GetDefaultSQL() const override { return "[data_data]"; }

  protected:
    void DoFieldExchange(CFieldExchange& exchange) override;
};

/// Table data_data: one time of all readings that match the filter.
class CDBDataTime : public CRecordset {
  public:
    CTime m_data_time; ///< null where no reading matches

    [[nodiscard]] std::string_view GetDefaultSQL() const override { return "[data_data]"; }

  protected:
    /// `column` is an expression of the SELECT list, a literal.
    CDBDataTime(CDatabase& database, std::string_view column)
        : CRecordset(database),
          m_column(column) {}

    void DoFieldExchange(CFieldExchange& exchange) override {
        exchange.bind(m_column, m_data_time);
    }

  private:
    std::string_view m_column;
};

/// The earliest time.
class CDBDataData1 : public CDBDataTime {
  public:
    explicit CDBDataData1(CDatabase& database) : CDBDataTime(database, "Min([data_time])") {}
};

/// The latest time.
class CDBDataData2 : public CDBDataTime {
  public:
    explicit CDBDataData2(CDatabase& database) : CDBDataTime(database, "Max([data_time])") {}
};

} // namespace pellam
