#include "replay/checks/CCrc.h"

#include <random>
#include <string>

namespace pellam {
namespace {

std::uint32_t bitByBit(std::uint32_t polynomial, const char* data, std::size_t length,
                       std::uint32_t crc) {
    for (std::size_t i = 0; i < length; ++i) {
        crc ^= static_cast<unsigned char>(data[i]);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1U) != 0 ? polynomial : 0U);
    }
    return crc;
}

TEST(CCrc, CheckValues) {
    EXPECT_EQ(CCrc16().CalculateBlock("123456789", 9, 0), 0xBB3DU);
    EXPECT_EQ(CCrc32().CalculateBlock("123456789", 9, 0), 0xCBF43926U);
    EXPECT_EQ(CCrc16().CalculateBlock("", 0, 0x1234), 0x1234U);
}

TEST(CCrc, BlocksAgreeWithBitByBitAtAnyLengthOffsetAndChaining) {
    std::mt19937 random(20080225);
    std::string bytes(4096, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random());
    for (int round = 0; round < 2000; ++round) {
        const std::size_t offset = random() % 64;
        const std::size_t length = random() % (round < 1000 ? 64 : 3000);
        const std::size_t cut = random() % (length + 1);
        const char* const data = bytes.data() + offset;
        const CCrc16 crc16;
        const CCrc32 crc32;
        const std::uint32_t first16 = crc16.CalculateBlock(data, cut, 0);
        const std::uint32_t first32 = crc32.CalculateBlock(data, cut, 0);
        ASSERT_EQ(crc16.CalculateBlock(data + cut, length - cut, first16),
                  bitByBit(0xA001, data, length, 0));
        ASSERT_EQ(crc32.CalculateBlock(data + cut, length - cut, first32),
                  ~bitByBit(0xEDB88320, data, length, ~0U));
    }
}

TEST(CCrc, CharactersGiveTheLowSixteenBits) {
    for (unsigned byte = 0; byte < 256; byte += 17) {
        const auto character = static_cast<char>(byte);
        EXPECT_EQ(CCrc16().CalculateCharacter(static_cast<unsigned char>(byte), 0xABCD),
                  bitByBit(0xA001, &character, 1, 0xABCD));
        EXPECT_EQ(CCrc32().CalculateCharacter(static_cast<unsigned char>(byte), 0x89ABCDEF),
                  bitByBit(0xEDB88320, &character, 1, 0x89ABCDEF) & 0xFFFFU);
    }
}

} // namespace
} // namespace pellam
