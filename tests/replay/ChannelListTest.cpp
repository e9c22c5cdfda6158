#include "replay/load/ChannelList.h"

namespace pellam {
namespace {

std::string joined(const std::vector<std::string>& list) {
    std::string text;
    for (const std::string& item : list)
        text += item + '|';
    return text;
}

TEST(ChannelList, NumbersStartAgainWithEachScheduleAndPassOverWhatIsNotLogged) {
    EXPECT_EQ(joined(offeredChannels("", R"(S,0,0,10:0,1989,1,0,"",<B,"1S",<"a","u">,)"
                                         R"(<"b","v",0,0,8,4,2>,<"c{9}","w">><D,"1S",<"d","">>:)")),
              "B.a(u){0}|B.c{9}(w){1}|D.d(){0}|");
    EXPECT_EQ(joined(offeredChannels("", "S,0,0,12:0")), "");
}

TEST(ChannelList, FindsTheColumnByLetterAndNumber) {
    const std::vector<std::string> chosen{"A.x(C){1}", "B.y{3}(C){0}", "B.z(C){12}", ""};
    EXPECT_EQ(FindColumnFromArray(chosen, 'A', 1), 1);
    EXPECT_EQ(FindColumnFromArray(chosen, 'B', 0), 2);
    EXPECT_EQ(FindColumnFromArray(chosen, 'B', 12), 3);
    EXPECT_EQ(FindColumnFromArray(chosen, 'B', 3), -1);
    EXPECT_EQ(FindColumnFromArray(chosen, 'A', 0), -1);
}

} // namespace
} // namespace pellam
