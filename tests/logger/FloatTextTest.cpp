#include "logger/FloatText.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdio>
#include <random>
#include <string>

namespace pellam {
namespace {

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
    const struct {
        float value;
        const char* text;
    } cases[] = {
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

    for (const auto& c : cases)
        EXPECT_EQ(written(std::bit_cast<std::uint32_t>(c.value)), c.text) << c.value;
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
