#include "database/odbc/DataSources.h"
#include "database/sessions/SessionTables.h"

#include "OdbcSetup.h"
#include "SessionLoad.h"

namespace pellam {
namespace {

using test::OdbcSetup;
using test::shown;

std::string zeros(std::size_t count, const char* tail) {
    return std::string(count, '0').append(tail);
}

std::string repeated(const char* text, int count) {
    std::string all;
    while (count-- > 0)
        all += text;
    return all;
}

TEST(CRecordset, ReadsRowsInOrder) {
    OdbcSetup odbc;
    odbc.addSqlite("Site", OdbcSetup::tables().append(R"(
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

// Texts end at 255 characters, and without trailing white space.
TEST(CRecordset, CutsAndTrimsTexts) {
    const Table<const char*, std::string> cases = {
        {"printf('%0254d', 0) || 'x'", zeros(254, "x")},
        {"printf('%0256d', 0)", zeros(255, "")},
        {"printf('%0254d', 0) || 'éé'", zeros(254, "é")},
        {"printf('%0254d', 0) || '\U0001F321'", zeros(254, "\U0001F321")},
        {"replace(printf('%0300d', 0), '0', '\U0001F321')", repeated("\U0001F321", 255)},
        {"replace(printf('%0255d', 0), '0', '€')", repeated("€", 255)},
        {"printf('%0250d', 0) || '          '", zeros(250, "")},
        {"'  a' || char(9, 32, 13, 10)", "  a"},
        {"'   '", ""},
    };
    std::string sql = OdbcSetup::tables();
    for (const auto& [value, text] : cases)
        sql.append("INSERT INTO data_header(session_id) VALUES (").append(value).append(");\n");
    OdbcSetup odbc;
    odbc.addSqlite("Texts", sql);
    InlineCall call;
    CDatabase database(call);
    ASSERT_FALSE(database.OpenEx("DSN=Texts"));
    CDBDataHeader rows(database);
    ASSERT_FALSE(rows.Open(CRecordset::forwardOnly));
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(rows.m_session_id, text) << value;
        ASSERT_FALSE(rows.MoveNext());
    }
    EXPECT_TRUE(rows.IsEOF());
    EXPECT_FALSE(rows.IsBOF());
    EXPECT_FALSE(rows.MoveNext()) << "harmless at the end";
    rows.m_strFilter = "session_id = 'none'";
    ASSERT_FALSE(rows.Requery());
    EXPECT_TRUE(rows.IsBOF() && rows.IsEOF());
    rows.m_strFilter = "no_such_column = 1";
    const SqlFailure failure = rows.Requery();
    ASSERT_TRUE(failure);
    EXPECT_NE(failure->text.find("no_such_column"), std::string::npos) << failure->text;
    EXPECT_EQ(failure->state.size(), 5U);
    database.Close();
    EXPECT_TRUE(rows.Open(CRecordset::forwardOnly)) << "closed";
}

TEST(DataSources, AreListedWithTheirDescriptions) {
    OdbcSetup odbc;
    EXPECT_TRUE(dataSources().empty());
    EXPECT_EQ(firstDriverText(), "");
    odbc.addSource("Zeta", "MySQL ODBC 8", "");
    odbc.addSource("A name of thirty-one characters", "SQLite3", "");
    std::string all;
    for (const DataSource& source : dataSources())
        all += source.name + "=" + source.description + "\n";
    EXPECT_NE(all.find("Zeta=MySQL ODBC 8\n"), std::string::npos) << all;
    EXPECT_NE(all.find("A name of thirty-one characte=SQLite3\n"), std::string::npos) << all;
    EXPECT_EQ(firstDriverText(), dataSources().front().description);
    EXPECT_TRUE(isMySqlDriver("MySQL ODBC 8"));
    EXPECT_FALSE(isMySqlDriver("MariaDB Unicode"));
}

} // namespace
} // namespace pellam
