#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// Puts a logger's binary data file together. Every number that could lie about its file can be
/// set.
class BinaryFileWriter {
  public:
    struct Channel {
        std::string name;
        std::string units;
        std::string format;
    };

    struct Ring {
        std::uint32_t recordSize = 0; ///< 0: that of the longest record
        std::int32_t oldest = 0;
        std::optional<std::uint32_t> newest; ///< absent: the last slot
        std::vector<std::string> records;    ///< padded with 0xEE to the record size
        std::optional<std::uint32_t> length; ///< of the section, where it is to lie
    };

    char letter = 'A';
    std::vector<Channel> channels;
    std::optional<std::uint32_t> channelCount;
    Ring data;
    Ring alarms;
    std::string end = prefix("EOF!", 0);
    std::optional<std::uint32_t> fileLength;

    /// All bytes of the file.
    [[nodiscard]] std::string bytes() const;

    /// The bytes before the first data record, and those behind the last, of a file whose data
    /// records the caller writes: `slots` of them of data.recordSize bytes.
    [[nodiscard]] std::string bytesBefore(std::uint32_t slots) const;
    [[nodiscard]] std::string bytesBehind() const;

    static std::string prefix(std::string_view tag, std::uint32_t length);
    static std::string section(std::string_view tag, const std::string& contents);
    /// A big-endian number.
    static std::string number(std::uint64_t value, int size);

    /// A value item; `value` is what follows its six bytes of head.
    static std::string item(int type, int status, const std::string& value);
    static std::string floatItem(float value);
    static std::string integerItem(std::int32_t value);
    static std::string textItem(const std::string& text);
    static std::string timeItem(std::uint64_t microseconds);
    static std::string intervalItem(std::uint64_t microseconds);

    static std::string dataRecord(std::uint64_t microseconds, const std::string& items);
    static std::string alarmRecord(unsigned word, std::uint64_t microseconds, unsigned first,
                                   unsigned second, const std::string& text);

  private:
    [[nodiscard]] std::string headers(const Ring& filled) const;
};

} // namespace pellam
