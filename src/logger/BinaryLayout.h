#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace pellam {

/// Reverses eight bytes in place: a big-endian 64-bit number becomes one of this machine.
inline void rev64(unsigned char* bytes) {
    static_assert(std::endian::native == std::endian::little, "files are big-endian");
    std::uint64_t word;
    std::memcpy(&word, bytes, sizeof word);
    word = __builtin_bswap64(word);
    std::memcpy(bytes, &word, sizeof word);
}

/// How the loggers lay out their binary data files. All numbers are big-endian; all sizes are in
/// bytes.
namespace binary {

inline std::uint8_t u8(const char* at) {
    return static_cast<std::uint8_t>(*at);
}

inline std::uint32_t littleEndian32(const char* at) {
    std::uint32_t word;
    std::memcpy(&word, at, sizeof word);
    return word;
}

inline std::uint16_t u16(const char* at) {
    std::uint16_t word;
    std::memcpy(&word, at, sizeof word);
    return __builtin_bswap16(word);
}

inline std::uint32_t u32(const char* at) {
    return __builtin_bswap32(littleEndian32(at));
}

inline std::uint64_t u64(const char* at) {
    unsigned char bytes[8];
    std::memcpy(bytes, at, sizeof bytes);
    rev64(bytes);
    std::uint64_t value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

constexpr std::uint32_t tag(const char (&text)[5]) {
    std::uint32_t word = 0;
    for (int i = 0; i < 4; ++i)
        word = word << 8 | static_cast<unsigned char>(text[i]);
    return word;
}

inline constexpr std::uint32_t kFileTag = tag("DTDT");        ///< holds all other sections
inline constexpr std::uint32_t kFileHeaderTag = tag("HDR1");  ///< file header
inline constexpr std::uint32_t kDataHeaderTag = tag("DHDR");  ///< ring and channels
inline constexpr std::uint32_t kAlarmHeaderTag = tag("AHDR"); ///< ring
inline constexpr std::uint32_t kDataTag = tag("DATA");        ///< slots of data records
inline constexpr std::uint32_t kAlarmTag = tag("ALRM");       ///< slots of alarm records
inline constexpr std::uint32_t kEndTag = tag("EOF!");         ///< the end, without contents

inline constexpr std::size_t kPrefixSize = 8;
inline constexpr std::size_t kFileHeaderSize = 44; ///< up to the last word that is defined
inline constexpr std::size_t kHeaderCharacterOffset = 36;
inline constexpr std::size_t kRingSize = 12;
inline constexpr std::size_t kDataHeaderSize = 16; ///< ring and channel count
inline constexpr std::size_t kChannelSize = 80;
inline constexpr std::size_t kDataRecordHeadSize = 10;
inline constexpr std::size_t kAlarmRecordHeadSize = 12;
inline constexpr std::size_t kItemHeadSize = 2;
inline constexpr std::size_t kItemValueOffset = 6;

/// The head of a section.
struct SectionPrefix {
    std::uint32_t tag = 0;
    std::uint32_t length = 0; ///< of the contents, the prefix not counted
};

/// Which slots of a section hold records.
struct RingDescriptor {
    std::uint32_t recordSize = 0; ///< of one slot
    std::int32_t oldest = 0;      ///< slot of the oldest record; negative when there is none
    std::uint32_t newest = 0;     ///< slot of the newest record

    static RingDescriptor read(const char* at) {
        return {u32(at), static_cast<std::int32_t>(u32(at + 4)), u32(at + 8)};
    }

    /// The records that it names in a section of so many slots; `oldest` is not negative.
    [[nodiscard]] std::uint64_t named(std::uint64_t slots) const {
        const auto first = static_cast<std::uint32_t>(oldest);
        if (first <= newest) return std::uint64_t{newest} - first + 1;
        const std::uint64_t free = first - newest - 1;
        return slots > free ? slots - free : 0;
    }
};

/// Bytes that a place of a file should have and has not.
struct Shortage {
    std::uint64_t offset = 0; ///< in the file
    std::uint64_t found = 0;
    std::uint64_t expected = 0; ///< 0 when nothing is short

    explicit operator bool() const { return expected > 0; }
};

enum class ValueType : std::uint8_t { Float = 1, Integer, Text, Timestamp, Interval };

enum class ValueStatus : std::uint8_t {
    Present = 1,
    NotYetSet = 2,
    Overrange = 3,
    Underrange = 4,
    ReferenceError = 7,
    Discontinuity = 11
};

} // namespace binary
} // namespace pellam
