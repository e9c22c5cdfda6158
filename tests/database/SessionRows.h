#pragma once

#include "OdbcSetup.h"

#include <sstream>
#include <string>

namespace pellam::test {

/// SQL that fills the session tables, from rows of words: one line a row, values separated by '|'.
class SessionRows {
  public:
    /// schedule|index|rate|label|units|value type|site|job
    SessionRows& channels(const std::string& session, const std::string& rows) {
        each(rows, [&](const std::vector<std::string>& row) {
            m_sql += "INSERT INTO data_details(address,schedule,schedule_index,"
                     "schedule_rate_in_seconds,label,units,value_type,site_id,job,session_id) "
                     "VALUES ('1'";
            for (const std::string& value : row)
                m_sql += "," + literal(value);
            m_sql += "," + literal(session) + ");\n";
        });
        return *this;
    }

    /// address|time|sub time|schedule|index|label|value|status|site|job
    SessionRows& readings(const std::string& session, const std::string& rows) {
        each(rows, [&](const std::vector<std::string>& row) {
            m_sql += "INSERT INTO data_data(address,data_time,sub_time,schedule,schedule_index,"
                     "label,data_value,data_status,site_id,job,session_id) VALUES (";
            for (const std::string& value : row)
                m_sql += literal(value) + ",";
            m_sql += literal(session) + ");\n";
        });
        return *this;
    }

    [[nodiscard]] const std::string& sql() const { return m_sql; }

    /// SQL for SQLite: reading the table of readings fails at this value.
    static std::string failingAt(int value) {
        return "ALTER TABLE data_data RENAME TO stored;"
               "CREATE INDEX in_order ON stored(session_id, data_time, sub_time, schedule, "
               "schedule_index);"
               "CREATE VIEW data_data AS SELECT address, data_status, data_time, schedule, "
               "schedule_index, sub_time, label, job, session_id, site_id, CASE WHEN data_value "
               "= " +
               std::to_string(value) +
               " THEN abs(-9223372036854775807 - 1) ELSE data_value END AS data_value FROM stored;";
    }

  private:
    static std::string literal(const std::string& value) {
        if (value == "NULL") return value;
        std::string text = "'";
        for (const char c : value)
            text.append(c == '\'' ? 2 : 1, c);
        return text + "'";
    }

    template <class Take>
    static void each(const std::string& rows, Take take) {
        std::istringstream lines(rows);
        for (std::string line; std::getline(lines, line);) {
            if (line.empty()) continue;
            std::vector<std::string> values;
            std::istringstream fields(line);
            for (std::string value; std::getline(fields, value, '|');)
                values.push_back(value);
            take(values);
        }
    }

    std::string m_sql = OdbcSetup::tables();
};

} // namespace pellam::test
