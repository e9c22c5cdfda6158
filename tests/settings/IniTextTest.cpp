#include "settings/IniText.h"

namespace pellam {
namespace {

using namespace std::string_literals;

TEST(IniKeys, BothWays) {
    for (const auto& [plain, raw] : std::initializer_list<std::pair<std::string, std::string>>{
             {"Ab9_-.", "Ab9_-."},
             {"Korvane/Pellam", "Korvane\\Pellam"},
             {"Recent File", "Recent%20File"},
             {"%y", "%25y"},
             {"ä", "%E4"},
             {"€", "%U20AC"},
             {"𝄞", "%UD834%UDD1E"}}) {
        EXPECT_EQ(escapeIniKey(plain), raw);
        EXPECT_EQ(unescapeIniKey(raw), plain);
    }
}

TEST(IniTexts, BothWays) {
    const Table<const char*, std::string, std::string> cases = {
        {"empty", "", ""},
        {"path", "/home/ü €/x", "/home/ü €/x"},
        {"backslash", "C:\\new", "C:\\\\new"},
        {"quotes", "\"q\"", "\\\"q\\\""},
        {"list", "a,b", "\"a,b\""},
        {"comment", "a;b", "\"a;b\""},
        {"edge blanks", " a ", "\" a \""},
        {"line ends", "a\r\n\tb", "a\\r\\n\\tb"},
        {"digit after escape", "\0011f", "\\x1\\x31\\x66"},
        {"at sign", "@here", "@@here"},
        {"zero", "a\0b"s, "@String(a\\0\\x62)"},
        {"no UTF-8", "\xE4\xFF", "@ByteArray(\\xe4\\xff)"},
    };
    for (const auto& [name, plain, raw] : cases) {
        EXPECT_EQ(escapeIniText(plain), raw) << name;
        EXPECT_EQ(unescapeIniText(raw), plain) << name;
    }
}

TEST(IniTexts, HandWrittenValues) {
    const Table<const char*, std::string, std::string> cases = {
        {"comment behind", "x", "x ; y"},
        {"semicolon alone", ";", ";"},
        {"comma alone", ",", ","},
        {"joined quotes", "ab c", "\"a\"b \"c\" "},
        {"octal", "AgBC", "\\x41g\\x42\\103"},
        {"open quote", "ab", "\"ab"},
        {"lone backslash", "a\\", "a\\"},
        {"pair", "𝄞", "\\xd834\\xdd1e"},
        {"half a pair", "\uFFFDx", "\\xd834x"},
        {"number too large", "\uFFFD", "\\x123456789abc"},
        {"other kind", "(nothing)", "@Size(1 2)"},
        {"invalid", "(nothing)", "@Invalid()"},
    };
    for (const auto& [name, plain, raw] : cases)
        EXPECT_EQ(unescapeIniText(raw).value_or("(nothing)"), plain) << name;
    EXPECT_EQ(unescapeIniBytes("@ByteArray(€)"), std::nullopt);
}

} // namespace
} // namespace pellam
