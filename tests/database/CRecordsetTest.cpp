#include "database/CDBDataData1.h"
#include "database/CDBDataData2.h"
#include "database/CDBDataData3.h"
#include "database/CDBDataDetails.h"
#include "database/CDBDataHeader.h"
#include "database/DataSources.h"

#include "OdbcSetup.h"

#include <gtest/gtest.h>

namespace pellam {
namespace {

using test::OdbcSetup;

std::string shown(const CTime& time) {
    char text[48];
    char* end = time.writeDate(text);
    *end++ = ' ';
    return {text, time.writeTime(end)};
}

std::string tablesAnd(const char* rows) {
    std::string sql = R"(
CREATE TABLE data_header(channel_count INTEGER, session_date TIMESTAMP, session_id VARCHAR(400),
                         session_info VARCHAR(40), session_notes VARCHAR(40));
CREATE TABLE data_data(address VARCHAR(40), data_status INTEGER, data_time TIMESTAMP,
                       data_value DOUBLE, schedule VARCHAR(40), schedule_index INTEGER,
                       sub_time INTEGER, label VARCHAR(40), job VARCHAR(40),
                       session_id VARCHAR(40), site_id VARCHAR(40));
)";
    return sql.append(rows);
}

TEST(CRecordset, ReadsRowsInOrder) {
    OdbcSetup odbc;
    odbc.addSqlite("Site", tablesAnd(R"(
INSERT INTO data_header VALUES (3, '2024-02-01 10:11:12', 'Run 1  ', 'i', NULL);
INSERT INTO data_header VALUES (NULL, NULL, 'Run 2', NULL, 'n');
)"));
    InlineCall call;
    CDatabase database(call);
    const SqlFailure failure = database.OpenEx("DSN=Site");
    ASSERT_FALSE(failure) << failure->text;
    CDBDataHeader rows(database);
    const SqlFailure opened = rows.Open(CRecordset::forwardOnly);
    ASSERT_FALSE(opened) << opened->text;
    std::string all;
    while (!rows.IsEOF()) {
        all += std::to_string(rows.m_channel_count) + '|' + shown(rows.m_session_date) + '|' +
               rows.m_session_id + '|' + rows.m_session_info + '|' + rows.m_session_notes + '\n';
        ASSERT_FALSE(rows.MoveNext());
    }
    EXPECT_EQ(all, "3|2024/02/01 10:11:12|Run 1|i|\n0|0000/00/00 00:00:00|Run 2||n\n");
}

TEST(CRecordset, TimeFilter) {
    OdbcSetup odbc;
    odbc.addSqlite("Site", tablesAnd(R"(
INSERT INTO data_data VALUES ('1',0,'2024-02-01 10:11:12',1.5,'A',0,0,'L','J','S','T');
INSERT INTO data_data VALUES ('1',0,'2024-02-01 10:11:13',2.5,'A',0,0,'L','J','S','T');
)"));
    InlineCall call;
    CDatabase database(call);
    ASSERT_FALSE(database.OpenEx("DSN=Site"));
    CDBDataData1 rows(database);
    rows.m_strFilter = "data_time >= {ts '2024-02-01 10:11:13'} AND label = \"L\"";
    const SqlFailure opened = rows.Open(CRecordset::forwardOnly);
    ASSERT_FALSE(opened) << opened->text;
    EXPECT_EQ(shown(rows.m_data_time), "2024/02/01 10:11:13");
}

} // namespace
} // namespace pellam
