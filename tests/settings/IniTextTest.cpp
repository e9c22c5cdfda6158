#include "settings/IniText.h"

#include <gtest/gtest.h>

namespace pellam {
namespace {

using namespace std::string_literals;

struct Case {
    const char* name;
    std::string plain;
    std::string raw;
};

std::string nameOf(const testing::TestParamInfo<Case>& row) {
    return row.param.name;
}

class IniKeys : public testing::TestWithParam<Case> {};

TEST_P(IniKeys, BothWays) {
    EXPECT_EQ(escapeIniKey(GetParam().plain), GetParam().raw);
    EXPECT_EQ(unescapeIniKey(GetParam().raw), GetParam().plain);
}

INSTANTIATE_TEST_SUITE_P(All, IniKeys,
                         testing::Values(Case{"plain", "Ab9_-.", "Ab9_-."},
                                         Case{"groups", "Korvane/Pellam", "Korvane\\Pellam"},
                                         Case{"blank", "Recent File", "Recent%20File"},
                                         Case{"percent", "%y", "%25y"}, Case{"latin", "ä", "%E4"},
                                         Case{"wide", "€", "%U20AC"},
                                         Case{"pair", "𝄞", "%UD834%UDD1E"}),
                         nameOf);

class IniTexts : public testing::TestWithParam<Case> {};

TEST_P(IniTexts, BothWays) {
    EXPECT_EQ(escapeIniText(GetParam().plain), GetParam().raw);
    EXPECT_EQ(unescapeIniText(GetParam().raw), GetParam().plain);
}

INSTANTIATE_TEST_SUITE_P(
    All, IniTexts,
    testing::Values(Case{"empty", "", ""}, Case{"path", "/home/ü €/x", "/home/ü €/x"},
                    Case{"backslash", "C:\\new", "C:\\\\new"}, Case{"quotes", "\"q\"", "\\\"q\\\""},
                    Case{"list", "a,b", "\"a,b\""}, Case{"comment", "a;b", "\"a;b\""},
                    Case{"edge_blanks", " a ", "\" a \""},
                    Case{"line_ends", "a\r\n\tb", "a\\r\\n\\tb"},
                    Case{"digit_after_escape",
                         "\x01"
                         "1f",
                         "\\x1\\x31\\x66"},
                    Case{"at_sign", "@here", "@@here"}, Case{"zero", "a\0b"s, "@String(a\\0\\x62)"},
                    Case{"no_utf8", "\xE4\xFF", "@ByteArray(\\xe4\\xff)"}),
    nameOf);

class IniReading : public testing::TestWithParam<Case> {};

TEST_P(IniReading, HandWrittenValues) {
    EXPECT_EQ(unescapeIniText(GetParam().raw).value_or("(nothing)"), GetParam().plain);
}

INSTANTIATE_TEST_SUITE_P(
    All, IniReading,
    testing::Values(Case{"comment_behind", "x", "x ; y"}, Case{"semicolon_alone", ";", ";"},
                    Case{"comma_alone", ",", ","}, Case{"joined_quotes", "ab c", "\"a\"b \"c\" "},
                    Case{"octal", "AgBC", "\\x41g\\x42\\103"}, Case{"open_quote", "ab", "\"ab"},
                    Case{"lone_backslash", "a\\", "a\\"}, Case{"pair", "𝄞", "\\xd834\\xdd1e"},
                    Case{"half_pair", "\uFFFDx", "\\xd834x"},
                    Case{"number_too_large", "\uFFFD", "\\x123456789abc"},
                    Case{"other_kind", "(nothing)", "@Size(1 2)"},
                    Case{"invalid", "(nothing)", "@Invalid()"}),
    nameOf);

TEST(IniBytes, EveryByteBothWays) {
    std::string bytes;
    for (int i = 0; i < 256; ++i)
        bytes += static_cast<char>(i);
    const std::string raw = escapeIniBytes(bytes);
    EXPECT_EQ(unescapeIniBytes(raw), bytes);
    EXPECT_EQ(raw.find_first_of("\n\r"), std::string::npos);
    EXPECT_EQ(unescapeIniBytes("plain"), std::nullopt);
    EXPECT_EQ(unescapeIniBytes("@ByteArray(€)"), std::nullopt);
}

} // namespace
} // namespace pellam
