#include "logger/CConvertS10.h"
#include "logger/CConvertS14.h"
#include "logger/DataMapLabels.h"

#include <gtest/gtest.h>

namespace pellam {
namespace {

const std::string kHeader10 = R"~(S,081044,2008/02/25,11:53:15,0.000488,11:0,4,1,0,"mast",)~";
const std::string kHeader14 = R"~(S,081044,2008/02/25,11:53:15,0.000488,14;0,4,1,0,7,"lake",)~";

struct MapCase {
    const char* name;
    std::string map;
    const char* labels; ///< label lines joined by '|'; "-" when the conversion fails
};

std::ostream& operator<<(std::ostream& out, const MapCase& mapCase) {
    return out << mapCase.name;
}

std::string joined(bool done, std::string program) {
    if (!done) return program.empty() ? "-" : "failed, yet left " + program;
    std::replace(program.begin(), program.end(), '\n', '|');
    return program;
}

auto named() {
    return [](const auto& info) { return std::string(info.param.name); };
}

class ConvertS10Test : public testing::TestWithParam<MapCase> {};

TEST_P(ConvertS10Test, ListsChannels) {
    CConvertS10 converter(99);
    const bool done = converter.Convert(GetParam().map);
    EXPECT_EQ(joined(done, converter.Program()), GetParam().labels);
}

INSTANTIATE_TEST_SUITE_P(
    Maps, ConvertS10Test,
    testing::Values(
        MapCase{"DateHeader", kHeader10 + R"~(<A,"1M"S",G,<"Temp","degC(Ave)",0,0,8,4,1>>)~",
                "A.Temp.Ave(degC)|"},
        MapCase{"SecondsHeader", R"~(S,0,0,10:0,1989,1,0,"",<A,"60lS",G,<"Temp","C",0,0,8,4,1>>)~",
                "A.Temp(C)|"},
        MapCase{"EmptyUnits", kHeader10 + R"~(<B,"1S",<"Count","",0,0,8,4,1>>)~", "B.Count()|"},
        MapCase{"NotLogged", kHeader10 + R"~(<C,"1S",<"Wind"," m/s (Max)",0,0,8,4,2>>)~",
                "C.Wind.Max(m/s),NL|"},
        MapCase{"TimeAndDate", kHeader10 + R"~(<D,"1S",<"T","s(Tmx)",1>,<"U","d(Dmn)",2>>)~",
                "D.T.Tmx.Time(s)|D.U.Dmn.Date(d)|"},
        MapCase{"AverageBeforeMaximum", kHeader10 + R"~(<A,"1S",<"P","hPa(Max)(Ave)",0>>)~",
                "A.P.Ave(hPa)|"},
        MapCase{"MarkerInNameDoesNotCount", kHeader10 + R"~(<A,"1S",<"P(Max)","hPa",0>>)~",
                "A.P(Max)(hPa)|"},
        MapCase{"Format14MarkerDoesNotCount", kHeader10 + R"~(<A,"1S",<"P","hPa(Nms)",0>>)~",
                "A.P(hPa)|"},
        MapCase{"CommaBetweenQuotes", kHeader10 + R"~(<A,"1S",G,<"Temp, in","C",0>,<"b","V",0>>)~",
                "A.Temp, in(C)|A.b(V)|"},
        MapCase{"MissingQuote", kHeader10 + R"~(<A,"1S",G,<"Temp,"C",0>>)~", "A.Temp(C)|"},
        MapCase{"LaterSchedules",
                kHeader10 + R"~(<E,"1S",<"a","">><H,"",<"b","">><J,"",<"c","">><K,"",<"d","">>)~"
                            R"~(<I,"",<"e","">><V,"",<"f","">><X,"",<"g","">>)~",
                "E.a()|H.b()|J.c()|K.d()|I.e()|V.f()|X.g()|"},
        MapCase{"EmptySchedules", kHeader10 + R"~(<A><B,"1S",<"q","u">><C>:)~", "B.q(u)|"},
        MapCase{"QuotedLetterOpensNothing", kHeader10 + R"~(<A,"1S",<"B","u">,<"C",>>)~",
                "A.B(u)|A.C()|"},
        MapCase{"NothingBeforeTheFirstSchedule",
                kHeader10 + R"~(9,"x",<"lost","u"><A,"",<"p","u">>)~", "A.p(u)|"},
        MapCase{"CutInChannel", kHeader10 + R"~(<A,"1S",<"Te)~", ""},
        MapCase{"CutInFields", kHeader10 + R"~(<A,"1S",<"Temp","de)~", "A.Temp(de)|"},
        MapCase{"Unbalanced", kHeader10 + R"~(<<<A,"1S",<<"p","u">>>>>>>>,<"q","w")~",
                "A.p(u)|A.q(w)|"},
        MapCase{"HeaderTokensStopAtTheSections", R"~(S,0,0,10:0,1989,1,0<A,"1S",<"p","u">>)~", "-"},
        MapCase{"DateHeaderCut", "S,1,2008/02/25,11:53:15", "-"},
        MapCase{"WrongFormat", kHeader14 + R"~(<A,"1S",<"p","u">>)~", "-"},
        MapCase{"Empty", "", "-"}),
    named());

class ConvertS14Test : public testing::TestWithParam<MapCase> {};

TEST_P(ConvertS14Test, ListsLoggedChannels) {
    CConvertS14 converter;
    const bool done = converter.Convert(GetParam().map, 3, '\0');
    EXPECT_EQ(joined(done, converter.Program()), GetParam().labels);
}

INSTANTIATE_TEST_SUITE_P(
    Maps, ConvertS14Test,
    testing::Values(
        MapCase{"Logged", kHeader14 + R"~(<X,"1S",<"1","Level","m(Ave)",0,0,0,0,0,"1">>)~",
                "X.Level.Ave(m)|"},
        MapCase{"LoggedAndShown", kHeader14 + R"~(<S,"1S",<"1","Flow","l/s(Nms)",0,0,0,0,0,3,0>>)~",
                "S.Flow.Nms(l/s)|"},
        MapCase{"NotLogged", kHeader14 + R"~(<A,"1S",<"1","Flow","l/s",0,0,0,0,0,2,0>>)~", ""},
        MapCase{"EndsWithTwo", kHeader14 + R"~(<A,"1S",<"1","Flow","l/s",0,0,0,0,0,1,2>>)~", ""},
        MapCase{"NoUnitsNoBrackets", kHeader14 + R"~(<K,"1S",<"1","Gate","",0,0,2,0,0,1,0>>)~",
                "K.Gate.Date|"},
        MapCase{"SecondsHeader", R"~(S,0,0,14;0,1,2,3,4,"",<A,"1S",<1,"p","u",0,0,1,0,0,1,0>>)~",
                "A.p.Time(u)|"},
        MapCase{"ThreeIgnoredTokens", R"~(S,0,0,14;0,1,2,3,4<A,"1S",<1,"p","u",0,0,1,0,0,1,0>>)~",
                "-"},
        MapCase{"WrongFormat", kHeader10 + R"~(<A,"1S",<1,"p","u",0,0,1,0,0,1,0>>)~", "-"}),
    named());

TEST(ConvertS14, LetterFilterKeepsOneSchedule) {
    CConvertS14 converter;
    ASSERT_TRUE(converter.Convert(
        kHeader14 + "<X,1,<1,p,u,0,0,0,0,0,1,0>><A,1,<1,q,u,0,0,0,0,0,1,0>>", 0, 'A'));
    EXPECT_EQ(converter.Program(), "A.q(u)\n");
}

TEST(DataMapLabels, ChoosesTheDialect) {
    const std::string s10 = R"~(S,1,0,11:0,1,2,3,"",<A,"1S",<"p","u">>)~";
    const std::string s14 = R"~(S,1,0,14;0,1,2,3,4,"",<A,"1S",<1,"q","w",0,0,0,0,0,1,0>>)~";
    const auto first = [](std::string_view type, const std::string& map) {
        const auto labels = convertDataMap(type, map);
        return labels.empty() ? std::string("none") : labels.front();
    };
    EXPECT_EQ(first("Unknown", s10), "A.p(u)");
    EXPECT_EQ(first("", s14), "A.q(w)");
    EXPECT_EQ(first("ql810", s10), "none"); // the type decides, and then the format is wrong
    EXPECT_EQ(first("ql5xx", R"~(S,1,0;10;0,1,2,3,"",<A,"1S",<"p","u">>)~"), "A.p(u)");
    EXPECT_EQ(first("", R"~(S,1,0;10;0,1,2,3,"",<A,"1S",<"p","u">>)~"), "none");
}

TEST(DataMapConverter, StripsQuotesAndOneComma) {
    for (const auto& [text, stripped] :
         {std::pair{"\"a\",\"b\",,", "a,b,"}, {"\"\"", ""}, {",", ""}, {"", ""}}) {
        std::string changed = text;
        DataMapConverter::StripQuotes(changed);
        EXPECT_EQ(changed, stripped) << text;
    }
}

TEST(ConvertS10, DummySpanAppendsOnlyWhatIsAbsent) {
    std::vector<std::string> list{"a"};
    EXPECT_EQ(CConvertS10::GetDummySpan(list, "b"), 2);
    EXPECT_EQ(CConvertS10::GetDummySpan(list, "a"), 1);
    EXPECT_EQ(list.size(), 2U);
}

} // namespace
} // namespace pellam
