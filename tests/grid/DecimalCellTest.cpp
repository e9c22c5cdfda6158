#include "grid/DecimalCell.h"

#include "grid/DecimalText.h"

#include <array>
#include <cstdlib>
#include <random>
#include <string>

namespace pellam {
namespace {

using Zeros = DecimalCell::Zeros;

// Packs with the word-wise path from the middle of a buffer, so that what stands before the text
// must not matter, and checks it against the plain path.
std::string packed(const std::string& text, char separator, Zeros zeros) {
    Cell plain;
    const bool plainTook = DecimalCell::packPlainly(text, separator, zeros, plain);
    const std::string before = "9876543210,.-012";
    const std::string line = before + text + ";77";
    Cell quick;
    const char* const begin = line.data() + before.size();
    const bool quickTook = DecimalCell::pack(begin, begin + text.size(), separator, zeros, quick);
    EXPECT_EQ(quickTook, plainTook) << text;
    EXPECT_EQ(quick, plain) << text;
    if (!plainTook) return "refused";
    std::array<char, 48> buffer;
    return {buffer.data(), DecimalCell::write(plain, separator, buffer.data())};
}

TEST(DecimalCell, PacksPlainNumbersAndRefusesAllElse) {
    const Table<const char*, const char*, char, Zeros, const char*> cases = {
        {"zero", "0", '.', Zeros::Keep, "0"},
        {"minus zero", "-0", '.', Zeros::Keep, "-0"},
        {"zeros kept", "12.500", '.', Zeros::Keep, "12.500"},
        {"zeros cut", "12.500", '.', Zeros::Trim, "12.5"},
        {"point cut", "3.000", '.', Zeros::Trim, "3"},
        {"bare point cut", "23.", '.', Zeros::Trim, "23"},
        {"bare point kept as text", "23.", '.', Zeros::Keep, "refused"},
        {"whole number keeps its zeros", "1200", '.', Zeros::Trim, "1200"},
        {"all zeros", "0.000", '.', Zeros::Trim, "0"},
        {"negative zeros", "-0.00", '.', Zeros::Trim, "-0"},
        {"small fraction", "0.05", '.', Zeros::Keep, "0.05"},
        {"comma", "1234,5", ',', Zeros::Keep, "1234,5"},
        {"point in a comma grid", "1234.5", ',', Zeros::Keep, "refused"},
        {"eight digits", "12345678", '.', Zeros::Keep, "12345678"},
        {"nine digits", "123456789", '.', Zeros::Keep, "123456789"},
        {"long with point", "-1234567.125000", '.', Zeros::Trim, "-1234567.125"},
        {"sixteen digits", "9007199254740991", '.', Zeros::Keep, "9007199254740991"},
        {"past the mantissa", "9007199254740992", '.', Zeros::Keep, "refused"},
        {"sixteen digits and a point", "0.000123456789012", '.', Zeros::Keep, "0.000123456789012"},
        {"deep fraction", "0.0000000000000000000001", '.', Zeros::Keep, "0.0000000000000000000001"},
        {"too deep", "0.00000000000000000000001", '.', Zeros::Keep, "refused"},
        {"leading zero", "007", '.', Zeros::Keep, "refused"},
        {"long leading zero", "0012345678.5", '.', Zeros::Keep, "refused"},
        {"plus", "+5", '.', Zeros::Keep, "refused"},
        {"exponent", "1.5E3", '.', Zeros::Keep, "refused"},
        {"no whole part", ".5", '.', Zeros::Keep, "refused"},
        {"two points", "1.2.3", '.', Zeros::Keep, "refused"},
        {"two points, long", "192.168.100.10", '.', Zeros::Trim, "refused"},
        {"letter", "12a", '.', Zeros::Keep, "refused"},
        {"high byte", "12\xB2", '.', Zeros::Keep, "refused"},
        {"minus alone", "-", '.', Zeros::Keep, "refused"},
        {"inner minus", "1-2", '.', Zeros::Keep, "refused"},
        {"empty", "", '.', Zeros::Keep, "refused"},
        {"blank", " 1", '.', Zeros::Keep, "refused"},
    };
    for (const auto& [name, text, separator, zeros, expected] : cases) {
        EXPECT_EQ(packed(text, separator, zeros), expected) << name;
    }
}

TEST(DecimalCell, QuickPathEqualsPlainPathOnRandomTexts) {
    std::mt19937 random(20080225);
    const std::string alphabet = "00123456789..-,+eE 7";
    for (int i = 0; i < 400'000; ++i) {
        std::string text;
        const auto length = random() % 20;
        for (unsigned k = 0; k < length; ++k)
            text += alphabet[random() % (i % 2 ? 12U : 20U)];
        packed(text, random() % 4 ? '.' : ',', random() % 2 ? Zeros::Trim : Zeros::Keep);
        if (HasFailure()) return;
    }
}

TEST(DecimalCell, ValuesAreThoseOfTheCLibrary) {
    std::mt19937_64 random(81044);
    for (int i = 0; i < 200'000; ++i) {
        const std::uint64_t mantissa = random() & Cell::kMaximumMantissa >> random() % 50;
        const auto scale = static_cast<unsigned>(random() % (Cell::kMaximumScale + 1));
        const Cell cell = Cell::decimal(random() % 2 != 0, scale, mantissa);
        std::array<char, 48> buffer{};
        *DecimalCell::write(cell, '.', buffer.data()) = '\0';
        ASSERT_EQ(DecimalCell::value(cell), std::strtod(buffer.data(), nullptr)) << buffer.data();
    }
}

TEST(DecimalText, ReadsNumbersOfEveryForm) {
    const Table<const char*, char, const char*> cases = {
        {"12.5", '.', "12.5"},  {"12,5", ',', "12.5"},    {"12.5", ',', "12.5"},
        {"+7", '.', "7"},       {"1.5E+3", '.', "1500"},  {"1,5e-1", ',', "0.15"},
        {" 8 ", '.', "8"},      {"007", '.', "7"},        {".5", '.', "0.5"},
        {"1.2.3", '.', "none"}, {"abc", '.', "none"},     {"nan", '.', "none"},
        {"inf", '.', "none"},   {"", '.', "none"},        {"+-5", '.', "none"},
        {"1e999", '.', "none"}, {"1,234.5", ',', "none"}, {"10:00", '.', "none"},
        {"-", '.', "none"},
    };
    for (const auto& [text, separator, expected] : cases) {
        const auto value = parseDecimal(text, separator);
        std::array<char, 32> shown{};
        if (value) std::snprintf(shown.data(), shown.size(), "%g", *value);
        EXPECT_STREQ(value ? shown.data() : "none", expected) << text;
    }
}

} // namespace
} // namespace pellam
