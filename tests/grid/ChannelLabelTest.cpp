#include "grid/ChannelLabel.h"
#include "Table.h"

#include <string>

namespace pellam {
namespace {

TEST(ChannelLabel, Parts) {
    // label, name, units; "?" for units that are unclear
    const Table<const char*, const char*, const char*> cases = {
        {"A.Temp.Ave(degC)", "A.Temp.Ave", "degC"},
        {"Flow (in) (l/s)", "Flow (in) ", "l/s"},
        {"Heat (W/(m2 K))", "Heat ", "W/(m2 K)"},
        {"Temp (C) max", "Temp (C) max", "C"},
        {"A.Gust()", "A.Gust", ""},
        {"x() (m)", "x() ", "m"},
        {"x (m)()", "x ", "m"},
        {"x() y", "x() y", ""},
        {"(only)", "(only)", "only"},
        {"()", "()", ""},
        {"Wind [m/s]", "Wind ", "m/s"},
        {"Wind, m/s", "Wind", "m/s"},
        {"Wind, m/s (S/N: 7)", "Wind, m/s (S/N: 7)", "m/s"},
        {"Wind, gust (km/h)", "Wind, gust ", "km/h"},
        {"CV[3]", "CV[3]", ""},
        {"Wind)", "Wind)", ""},
        {"a (b", "a (b", "?"},
        {"a) (b", "a) (b", "?"},
        {"a (b (c)", "a (b ", "c"},
        {"a (b))", "a (b))", "?"},
        {"A.b(C){1}", "A.b(C){1}", "C"},
        {"", "", ""},
    };
    for (const auto& [text, name, units] : cases) {
        const ChannelLabel label(text);
        EXPECT_EQ(label.text, text);
        EXPECT_EQ(label.name, name) << text;
        EXPECT_EQ(label.unitsUnclear ? "?" : label.units, units) << text;
        EXPECT_EQ(label.letter, text[0]);
        EXPECT_EQ(label.number, -1);
    }
}

TEST(ChannelLabel, NumberIsTheLastBracedOne) {
    const auto label = ChannelLabel::numbered("A.t{2}(C){13}");
    EXPECT_EQ(label.text, "A.t{2}(C)");
    EXPECT_EQ(label.units, "C");
    EXPECT_EQ(label.number, 13);
    for (const char* text : {"A.t", "A.t{}", "A.t{x}", "A.t{-1}", "A.t{1}(C)", "{99999999999}"}) {
        EXPECT_EQ(ChannelLabel::numbered(text).text, text);
        EXPECT_EQ(ChannelLabel::numbered(text).number, -1) << text;
    }
}

} // namespace
} // namespace pellam
