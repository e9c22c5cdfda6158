#include "database/CSessionFromDatabase.h"

#include "../replay/LoadHarness.h"
#include "SessionRows.h"

#include <sys/stat.h>

namespace pellam {
namespace {

using test::CountedProgress;
using test::OdbcSetup;
using test::RecordedMessages;
using test::SessionRows;

struct Loaded {
    bool good = false;
    std::string text;
};

std::string fileText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class SessionTest : public testing::Test {
  protected:
    Loaded load(SessionRequest request) {
        request.dataSource = "Site";
        InlineCall call;
        CSessionFromDatabase session({messages, progress, call, corrections});
        const bool good = session.CreateFileFromDatabaseSession(request);
        error = session.LastError() ? session.LastError()->text : "";
        return {good, fileText(session.TempFileName())};
    }

    OdbcSetup odbc;
    RecordedMessages messages;
    CountedProgress progress;
    TimeCorrections corrections;
    std::string error;
};

TEST_F(SessionTest, WritesReplayText) {
    odbc.addSqlite("Site", SessionRows()
                               .channels("Run", "A|0|60|Temp|C|2|S|J\n")
                               .readings("Run", "0|2008-02-25 10:00:00|0|A|0|Temp|23.4|0|S|J\n")
                               .sql());
    const Loaded loaded = load({"", "Run", "", "", "", "*"});
    EXPECT_TRUE(loaded.good);
    EXPECT_EQ(messages.texts, "");
    EXPECT_EQ(loaded.text, R"(Descriptor
Name "Hembric"
Lock N
Desc "Run"
EndDescriptor

<IDATA_MAP>
S,0,0,10:0,1989,1,0,"",<A,"60lS",G,<"Temp","C",1,0,8,4,1>><B><C><D><E><F><G><H><I><J><K><X><V>>:

<ALL_DATA>
D,0,2008/02/25,10:00:00,0.000000,1:A,0,23.,$0l:
)");
}

} // namespace
} // namespace pellam
