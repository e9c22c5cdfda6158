#include "logger/FormatText.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <random>
#include <string>

namespace pellam {
namespace {

std::string integer(const std::string& format, std::int32_t value) {
    char text[FormatText::kRoom];
    return {text, FormatText(format).writeInteger(value, text)};
}

std::string printed(const std::string& format, std::int32_t value) {
    char text[FormatText::kRoom];
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    const int size = std::snprintf(text, sizeof text, format.c_str(), value);
#pragma GCC diagnostic pop
    return {text, static_cast<std::size_t>(size)};
}

TEST(FormatText, WritesIntegersLikeTheCLibrary) {
    std::mt19937 random(99);
    const auto one = [&](std::string_view of) { return std::string(1, of[random() % of.size()]); };
    for (int i = 0; i < 100'000; ++i) {
        std::string format = random() % 4 ? "" : one("<m ");
        format += '%';
        while (random() % 2 && format.size() < 7)
            format += one("-+ #0");
        if (random() % 2) format += std::to_string(1 + random() % 64);
        if (random() % 3 == 0) format += random() % 5 ? "." + std::to_string(random() % 65) : ".";
        format += one("diuxXo");
        if (random() % 4 == 0) format += one(">m\t");
        static constexpr std::int32_t kEdges[] = {0, 1, -1, 7, 8, INT_MIN, INT_MAX};
        const std::int32_t value =
            random() % 3 ? kEdges[random() % 7]
                         : static_cast<std::int32_t>(random()) >> static_cast<int>(random() % 31);
        ASSERT_EQ(integer(format, value), printed(format, value)) << format << ' ' << value;
    }
}

TEST(FormatText, FormatsThatCouldDoHarmCountAsEmpty) {
    for (const char* format : {"%n",    "%s",
                               "%f",    "%c",
                               "%p",    "%",
                               "%%",    "%5",
                               "%5.",   "%*d",
                               "%.*d",  "%65d",
                               "%.65d", "%99999999999d",
                               "%ld",   "%hd",
                               "%lld",  "%d%d",
                               "%d%",   "%%d",
                               "%'d",   "%1$d",
                               "a%nb",  "%-+ #0-+ #0-+ #0d"}) {
        EXPECT_EQ(integer(format, -12), "-12") << format;
        EXPECT_EQ(FormatText(format).formatsTexts(), std::string(format) == "%s") << format;
    }
    EXPECT_EQ(integer(std::string("%x\0%n", 5), 255), "ff");
    EXPECT_EQ(integer("word", 1), "word");
}

TEST(FormatText, WritesTexts) {
    const struct {
        const char* format;
        const char* expected;
    } cases[] = {{"%s", "value"},   {"%8s", "   value"}, {"%-8s|", "value   |"},
                 {"%.2s", "va"},    {"%.0s", ""},        {"%4.1s", "   v"},
                 {"%2s", "value"},  {"<%s>", "<value>"}, {"%08.3s", "     val"},
                 {"fixed", "fixed"}};

    for (const auto& c : cases) {
        const FormatText format(c.format);
        ASSERT_TRUE(format.formatsTexts()) << c.format;
        char text[FormatText::kRoom];
        EXPECT_EQ(std::string(text, format.writeText("value", text)), c.expected) << c.format;
    }
    EXPECT_FALSE(FormatText().formatsTexts());
    EXPECT_FALSE(FormatText("%d").formatsTexts());
}

} // namespace
} // namespace pellam
