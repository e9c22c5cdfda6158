#include "logger/FloatText.h"
#include "logger/FormatText.h"

#include <bit>
#include <climits>
#include <cstdio>
#include <random>
#include <sstream>
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
    std::istringstream formats(
        "%n %s %f %c %p % %% %5 %5. %*d %.*d %65d %.65d %99999999999d %ld %hd "
        "%lld %d%d %d% %%d %'d %1$d a%nb");
    for (std::string format; formats >> format;) {
        EXPECT_EQ(integer(format, -12), "-12") << format;
        EXPECT_EQ(FormatText(format).formatsTexts(), format == "%s") << format;
    }
    EXPECT_EQ(integer("%-+ #0-+ #0-+ #0d", -12), "-12") << "too long";
    EXPECT_EQ(integer(std::string("%x\0%n", 5), 255), "ff");
    EXPECT_EQ(integer("word", 1), "word");
}

TEST(FormatText, WritesTexts) {
    const Table<const char*, const char*> cases = {
        {"%s", "value"},        {"%8s", "   value"}, {"%-8s|", "value   |"}, {"%.2s", "va"},
        {"%.0s", ""},           {"%4.1s", "   v"},   {"%2s", "value"},       {"<%s>", "<value>"},
        {"%08.3s", "     val"}, {"fixed", "fixed"}};
    for (const auto& [format, expected] : cases) {
        const FormatText read(format);
        ASSERT_TRUE(read.formatsTexts()) << format;
        char text[FormatText::kRoom];
        EXPECT_EQ(std::string(text, read.writeText("value", text)), expected) << format;
    }
    EXPECT_FALSE(FormatText().formatsTexts());
    EXPECT_FALSE(FormatText("%d").formatsTexts());
}

std::string written(std::uint32_t bits, char decimal = '.') {
    char text[FloatText::kRoom];
    return {text, FloatText::write(bits, decimal, text)};
}

std::string printed(std::uint32_t bits) {
    char text[FloatText::kRoom];
    const int size =
        std::snprintf(text, sizeof text, "%5.5f", static_cast<double>(std::bit_cast<float>(bits)));
    return {text, static_cast<std::size_t>(size)};
}

TEST(FloatText, KnownValues) {
    const Table<float, const char*> cases = {
        {0.0F, "0.00000"},       {-0.0F, "-0.00000"},
        {1.0F, "1.00000"},       {-1.5F, "-1.50000"},
        {0.015625F, "0.01562"},  // half, down to even
        {0.046875F, "0.04688"},  // half, up to even
        {4.9999e-6F, "0.00000"}, // below half of the last place
        {5.0001e-6F, "0.00001"}, {0.999996F, "1.00000"},
        {9.999999F, "10.00000"}, {16777216.0F, "16777216.00000"},
        {1e-45F, "0.00000"},     {-3.4028235e38F, "-340282346638528859811704183484516925440.00000"},
        {HUGE_VALF, "  inf"},    {-HUGE_VALF, " -inf"},
    };
    for (const auto& [value, text] : cases)
        EXPECT_EQ(written(std::bit_cast<std::uint32_t>(value)), text) << value;
    EXPECT_EQ(written(0x7FC00000), "  nan");
    EXPECT_EQ(written(0xFF800001), " -nan");
    EXPECT_EQ(written(std::bit_cast<std::uint32_t>(-2.25F), ','), "-2,25000");
}

TEST(FloatText, WritesWhatTheCLibraryPrints) {
    std::mt19937 generator(4711);
    const auto random = [&] { return static_cast<std::uint32_t>(generator()); };
    for (int i = 0; i < 150'000; ++i) {
        const std::uint32_t any = random();
        // Near one, where the decimals matter: an exponent between 2^-20 and 2^27.
        const std::uint32_t near = (any & 0x807FFFFFU) | (107 + random() % 48) << 23;
        // Halves in the sixth decimal: a few bits behind a point.
        const auto half =
            static_cast<float>(any % 8'000'000) / static_cast<float>(1U << random() % 24);
        for (const std::uint32_t bits : {any, near, std::bit_cast<std::uint32_t>(half)})
            ASSERT_EQ(written(bits), printed(bits)) << std::hex << bits;
    }
}

} // namespace
} // namespace pellam
