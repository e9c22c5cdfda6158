#pragma once

#include "base/BlockWriter.h"
#include "logger/BinaryLayout.h"
#include "logger/FormatText.h"
#include "logger/TimestampText.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// Turns the records of a binary data file into lines of text.
class RecordText {
  public:
    struct Style {
        char listSeparator = ',';
        char decimalSeparator = '.'; ///< of times
        char floatDecimal = '.';
        /// Write every field so that a reader of delimited text gets it back as one field: quoted
        /// where it holds the separator or quotes, and without line ends.
        bool keepFieldsWhole = false;
    };

    RecordText(const Style& style, BlockWriter& output);

    /// Forgets the channels.
    void clear() { m_formats.clear(); }

    /// Adds a channel with the contents of its descriptor's format field.
    void addChannel(std::string_view format) { m_formats.emplace_back(format); }

    void reserve(std::size_t channels) { m_formats.reserve(channels); }

    /// Writes a column heading with the list separator before it: "A.name(units)". Names and units
    /// end at their first NUL, at the latest after 16 characters.
    void writeHeading(char letter, std::string_view name, std::string_view units);

    /// Writes one data record of ten bytes or more as a line. An item that its value or its slot
    /// has no room for ends the line there and is returned, its offset counted from the slot's
    /// first byte.
    binary::Shortage writeData(std::string_view slot);

    /// Writes one alarm record of twelve bytes or more as a line; `index` is the number to begin
    /// with, when there is one.
    void writeAlarm(std::string_view slot, const std::uint32_t* index);

    TimestampText& times() { return m_times; }

  private:
    char* writeItem(const char* item, std::size_t size, std::size_t channel, char* out);
    char* writeValue(const char* item, std::size_t size, std::size_t channel, char* out);
    char* writeTextValue(std::string_view text, const FormatText& format, char* out) const;
    char* keepWhole(char* begin, char* end) const;

    Style m_style;
    BlockWriter& m_output;
    TimestampText m_times;
    std::vector<FormatText> m_formats; ///< one a channel
};

} // namespace pellam
