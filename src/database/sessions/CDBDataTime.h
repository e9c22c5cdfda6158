#pragma once

#include "database/odbc/CRecordset.h"

namespace pellam {

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

} // namespace pellam
