#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

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
    static std::uint64_t littleEndian(const char* data) {
        std::uint64_t word;
        std::memcpy(&word, data, sizeof word);
        if constexpr (std::endian::native == std::endian::big) word = __builtin_bswap64(word);
        return word;
    }

    // Looks eight bytes up in the tables from kFirst down, except the lowest kSkipped of them.
    template <std::size_t kFirst, std::size_t kSkipped, class Word, std::size_t... kIndex>
    static std::uint32_t lookUp(const Tables<Word>& tables, std::uint64_t word,
                                std::index_sequence<kIndex...> /*indices*/) {
        return (std::uint32_t{
                    tables[kFirst - kSkipped - kIndex][(word >> 8 * (kSkipped + kIndex)) & 0xFFU]} ^
                ...);
    }

    // Only as many bytes as the register has depend on the step before; the others are looked up
    // without waiting for it.
    template <class Word>
    static std::uint32_t advanceSixteen(const Tables<Word>& tables, const char* data,
                                        std::uint32_t crc) {
        constexpr std::size_t kOwn = sizeof(Word);
        const std::uint64_t low = littleEndian(data);
        const std::uint32_t ahead =
            lookUp<7, 0>(tables, littleEndian(data + 8), std::make_index_sequence<8>()) ^
            lookUp<15, kOwn>(tables, low, std::make_index_sequence<8 - kOwn>());
        return ahead ^ lookUp<15, 0>(tables, low ^ crc, std::make_index_sequence<kOwn>());
    }
};

/// CRC-16/ARC: reflected polynomial 0xA001, start 0, no inversion. Check value of "123456789":
/// 0xBB3D. Replay lines carry it.
class CCrc16 : private CCrc {
  public:
    /// The checksum of `length` bytes, continued from a previous result (0 to start).
    [[nodiscard]] std::uint32_t CalculateBlock(const char* data, std::size_t length,
                                               std::uint32_t previous) const;

    /// The checksum continued by one byte; its low 16 bits.
    [[nodiscard]] std::uint32_t CalculateCharacter(unsigned char byte,
                                                   std::uint32_t previous) const;
};

/// CRC-32 (ISO-HDLC): reflected polynomial 0xEDB88320, inverted at both ends. Check value of
/// "123456789": 0xCBF43926. Signature files carry it.
class CCrc32 : private CCrc {
  public:
    /// The checksum of `length` bytes, continued from a previous result (0 to start).
    [[nodiscard]] std::uint32_t CalculateBlock(const char* data, std::size_t length,
                                               std::uint32_t previous) const;

    /// One step of the register, not inverted. This program's rule: only the low 16 bits of the
    /// result are given.
    [[nodiscard]] std::uint32_t CalculateCharacter(unsigned char byte,
                                                   std::uint32_t previous) const;

  private:
    static const Tables<std::uint32_t> s_tables;
};

} // namespace pellam
