#include "logger/CConvertS10.h"
#include "logger/CConvertS14.h"
#include "logger/DataMapLabels.h"

#include <algorithm>

namespace pellam {
namespace {

const std::string kHeader10 = R"~(S,081044,2008/02/25,11:53:15,0.000488,11:0,4,1,0,"mast",)~";
const std::string kHeader14 = R"~(S,081044,2008/02/25,11:53:15,0.000488,14;0,4,1,0,7,"lake",)~";

std::string joined(bool done, std::string program) {
    if (!done) return program.empty() ? "-" : "failed, yet left " + program;
    std::replace(program.begin(), program.end(), '\n', '|');
    return program;
}

TEST(ConvertS10, ListsChannels) {
    // labels: label lines joined by '|'; "-" when the conversion fails
    const Table<const char*, std::string, const char*> cases = {
        {"DateHeader", kHeader10 + R"~(<A,"1M"S",G,<"Temp","degC(Ave)",0,0,8,4,1>>)~",
         "A.Temp.Ave(degC)|"},
        {"SecondsHeader", R"~(S,0,0,10:0,1989,1,0,"",<A,"60lS",G,<"Temp","C",0,0,8,4,1>>)~",
         "A.Temp(C)|"},
        {"EmptyUnits", kHeader10 + R"~(<B,"1S",<"Count","",0,0,8,4,1>>)~", "B.Count()|"},
        {"NotLogged", kHeader10 + R"~(<C,"1S",<"Wind"," m/s (Max)",0,0,8,4,2>>)~",
         "C.Wind.Max(m/s),NL|"},
        {"TimeAndDate", kHeader10 + R"~(<D,"1S",<"T","s(Tmx)",1>,<"U","d(Dmn)",2>>)~",
         "D.T.Tmx.Time(s)|D.U.Dmn.Date(d)|"},
        {"AverageBeforeMaximum", kHeader10 + R"~(<A,"1S",<"P","hPa(Max)(Ave)",0>>)~",
         "A.P.Ave(hPa)|"},
        {"MarkerInNameDoesNotCount", kHeader10 + R"~(<A,"1S",<"P(Max)","hPa",0>>)~",
         "A.P(Max)(hPa)|"},
        {"Format14MarkerDoesNotCount", kHeader10 + R"~(<A,"1S",<"P","hPa(Nms)",0>>)~", "A.P(hPa)|"},
        {"CommaBetweenQuotes", kHeader10 + R"~(<A,"1S",G,<"Temp, in","C",0>,<"b","V",0>>)~",
         "A.Temp, in(C)|A.b(V)|"},
        {"MissingQuote", kHeader10 + R"~(<A,"1S",G,<"Temp,"C",0>>)~", "A.Temp(C)|"},
        {"LaterSchedules",
         kHeader10 + R"~(<E,"1S",<"a","">><H,"",<"b","">><J,"",<"c","">><K,"",<"d","">>)~"
                     R"~(<I,"",<"e","">><V,"",<"f","">><X,"",<"g","">>)~",
         "E.a()|H.b()|J.c()|K.d()|I.e()|V.f()|X.g()|"},
        {"EmptySchedules", kHeader10 + R"~(<A><B,"1S",<"q","u">><C>:)~", "B.q(u)|"},
        {"QuotedLetterOpensNothing", kHeader10 + R"~(<A,"1S",<"B","u">,<"C",>>)~", "A.B(u)|A.C()|"},
        {"NothingBeforeTheFirstSchedule", kHeader10 + R"~(9,"x",<"lost","u"><A,"",<"p","u">>)~",
         "A.p(u)|"},
        {"CutInChannel", kHeader10 + R"~(<A,"1S",<"Te)~", ""},
        {"CutInFields", kHeader10 + R"~(<A,"1S",<"Temp","de)~", "A.Temp(de)|"},
        {"Unbalanced", kHeader10 + R"~(<<<A,"1S",<<"p","u">>>>>>>>,<"q","w")~", "A.p(u)|A.q(w)|"},
        {"HeaderTokensStopAtTheSections", R"~(S,0,0,10:0,1989,1,0<A,"1S",<"p","u">>)~", "-"},
        {"DateHeaderCut", "S,1,2008/02/25,11:53:15", "-"},
        {"WrongFormat", kHeader14 + R"~(<A,"1S",<"p","u">>)~", "-"},
        {"Empty", "", "-"},
    };
    for (const auto& [name, map, labels] : cases) {
        CConvertS10 converter(99);
        const bool done = converter.Convert(map);
        EXPECT_EQ(joined(done, converter.Program()), labels) << name;
    }
}

TEST(ConvertS14, ListsLoggedChannels) {
    const Table<const char*, std::string, const char*> cases = {
        {"Logged", kHeader14 + R"~(<X,"1S",<"1","Level","m(Ave)",0,0,0,0,0,"1">>)~",
         "X.Level.Ave(m)|"},
        {"LoggedAndShown", kHeader14 + R"~(<S,"1S",<"1","Flow","l/s(Nms)",0,0,0,0,0,3,0>>)~",
         "S.Flow.Nms(l/s)|"},
        {"NotLogged", kHeader14 + R"~(<A,"1S",<"1","Flow","l/s",0,0,0,0,0,2,0>>)~", ""},
        {"EndsWithTwo", kHeader14 + R"~(<A,"1S",<"1","Flow","l/s",0,0,0,0,0,1,2>>)~", ""},
        {"NoUnitsNoBrackets", kHeader14 + R"~(<K,"1S",<"1","Gate","",0,0,2,0,0,1,0>>)~",
         "K.Gate.Date|"},
        {"SecondsHeader", R"~(S,0,0,14;0,1,2,3,4,"",<A,"1S",<1,"p","u",0,0,1,0,0,1,0>>)~",
         "A.p.Time(u)|"},
        {"ThreeIgnoredTokens", R"~(S,0,0,14;0,1,2,3,4<A,"1S",<1,"p","u",0,0,1,0,0,1,0>>)~", "-"},
        {"WrongFormat", kHeader10 + R"~(<A,"1S",<1,"p","u",0,0,1,0,0,1,0>>)~", "-"},
    };
    for (const auto& [name, map, labels] : cases) {
        CConvertS14 converter;
        const bool done = converter.Convert(map, 3, '\0');
        EXPECT_EQ(joined(done, converter.Program()), labels) << name;
    }
    CConvertS14 oneSchedule;
    ASSERT_TRUE(oneSchedule.Convert(
        kHeader14 + "<X,1,<1,p,u,0,0,0,0,0,1,0>><A,1,<1,q,u,0,0,0,0,0,1,0>>", 0, 'A'));
    EXPECT_EQ(oneSchedule.Program(), "A.q(u)\n");
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
