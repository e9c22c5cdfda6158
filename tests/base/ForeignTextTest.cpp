#include "base/FileUrl.h"
#include "base/Utf8.h"

#include <unistd.h>

namespace pellam {
namespace {

TEST(FileUrl, IsAFileOfThisComputerOrNothing) {
    char host[256] = {};
    ASSERT_EQ(::gethostname(host, sizeof host - 1), 0);
    // expected: its path
    const Table<std::string, const char*> cases = {
        {"file:///data/mast.dlr", "/data/mast.dlr"},
        {"FILE:/data/mast.dlr", "/data/mast.dlr"},
        {"file://localhost/a", "/a"},
        {"file://" + std::string(host) + "/a", "/a"},
        {"file:///100%25%20a%0ab/%E4%c3%a4.dlr", "/100% a\nb/\xE4\u00E4.dlr"},
        {"file:///-n%22%60;$(x)", "/-n\"`;$(x)"},
        {"file:///a?b#c", "/a"},
        {"file:///a%3Fb%23c", "/a?b#c"},
        {"file://other.example/etc/a.dlr", "nothing"},
        {"file://etc/passwd", "nothing"},
        {"file:a.dlr", "nothing"},
        {"file:///a%2Fb", "nothing"},
        {"file:///a%00b", "nothing"},
        {"file:///a%2", "nothing"},
        {"file:///a%-1b", "nothing"},
        {"file:///a%+1b", "nothing"},
        {"http://host/a.dlr", "nothing"},
        {"sftp:///a.dlr", "nothing"},
        {"/file:///a", "nothing"},
        {"", "nothing"},
    };
    for (const auto& [url, foreign] : Table<const char*, bool>{{"http://h/a.dlr", true},
                                                               {"SMB://h/a", true},
                                                               {"file://other.example/a", true},
                                                               {"file:///a", false},
                                                               {"/a/b://c", false},
                                                               {"://c", false},
                                                               {"a.dlr", false}})
        EXPECT_EQ(isForeignUrl(url), foreign) << url;
    for (const auto& [url, expected] : cases)
        EXPECT_EQ(localFileOf(url).value_or("nothing"), expected) << url;
}

TEST(ForTerminal, NothingIsLeftThatATerminalObeys) {
    const Table<const char*, const char*> cases = {
        {"key: value\n\tx\n", "key: value\n\tx\n"},
        {"\x1B]0;t\a\x1B[2J", "\uFFFD]0;t\uFFFD\uFFFD[2J"},
        {"a\rb\b\x7F", "a\uFFFDb\uFFFD\uFFFD"},
        {"\xC2\x9B"
         "2J\xC2\x80\xC2\xA0\u0141\u201C\xC2",
         "\uFFFD2J\uFFFD\xC2\xA0\u0141\u201C\xC2"},
        {"caf\xE9.dlr", "caf\xE9.dlr"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(forTerminal(text), expected);
}

} // namespace
} // namespace pellam
