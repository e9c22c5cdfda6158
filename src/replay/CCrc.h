#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace pellam {

/// What the reflected checksums share: lookup tables made by the compiler, and a block calculation
/// that takes sixteen bytes at a time.
class CCrc {
  protected:
    static constexpr std::size_t kSlices = 16;

    /// Table k gives the checksum of a byte that k zero bytes follow.
    template <class Word>
    using Tables = std::array<std::array<Word, 256>, kSlices>;

    template <class Word>
    static constexpr Tables<Word> makeTables(Word polynomial) {
        Tables<Word> tables{};
        for (unsigned byte = 0; byte < 256; ++byte) {
            unsigned crc = byte;
            for (int bit = 0; bit < 8; ++bit)
                crc = (crc >> 1) ^ ((crc & 1U) != 0 ? unsigned{polynomial} : 0U);
            tables[0][byte] = static_cast<Word>(crc);
        }
        for (std::size_t slice = 1; slice < kSlices; ++slice) {
            for (std::size_t byte = 0; byte < 256; ++byte) {
                const unsigned crc = tables[slice - 1][byte];
                tables[slice][byte] = static_cast<Word>((crc >> 8) ^ tables[0][crc & 0xFFU]);
            }
        }
        return tables;
    }

    /// The checksum register after `length` more bytes.
    template <class Word>
    static std::uint32_t advance(const Tables<Word>& tables, const char* data, std::size_t length,
                                 std::uint32_t crc) {
        for (; length >= kSlices; length -= kSlices, data += kSlices)
            crc = advanceSixteen(tables, data, crc);
        for (; length > 0; --length, ++data)
            crc = step(tables, static_cast<unsigned char>(*data), crc);
        return crc;
    }

    /// The checksum register after one more byte.
    template <class Word>
    static std::uint32_t step(const Tables<Word>& tables, unsigned char byte, std::uint32_t crc) {
        return (crc >> 8) ^ tables[0][(crc ^ byte) & 0xFFU];
    }

  private:
    static unsigned byteOf(std::uint64_t word, unsigned index) {
        return static_cast<unsigned>(word >> (8 * index)) & 0xFFU;
    }

    static std::uint64_t littleEndian(const char* data) {
        std::uint64_t word = 0;
        for (unsigned i = 0; i < 8; ++i)
            word |= std::uint64_t{static_cast<unsigned char>(data[i])} << (8 * i);
        return word;
    }

    template <class Word>
    static std::uint32_t advanceSixteen(const Tables<Word>& tables, const char* data,
                                        std::uint32_t crc) {
        const std::uint64_t low = littleEndian(data) ^ crc;
        const std::uint64_t high = littleEndian(data + 8);
        std::uint32_t fromLow = 0;
        std::uint32_t fromHigh = 0;
        for (unsigned i = 0; i < 8; ++i) {
            fromLow ^= tables[15 - i][byteOf(low, i)];
            fromHigh ^= tables[7 - i][byteOf(high, i)];
        }
        return fromLow ^ fromHigh;
    }
};

} // namespace pellam
