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

} // namespace pellam
