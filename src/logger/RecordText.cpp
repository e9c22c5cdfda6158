#include "logger/RecordText.h"

#include "base/QuotedField.h"
#include "logger/FloatText.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace pellam {

using namespace binary;

namespace {

constexpr std::string_view kHexadecimal = "0123456789abcdef";
constexpr std::size_t kNameSize = 16;
constexpr std::uint8_t kPresentFloat = 0x11;

char* copyTo(char* out, std::string_view text) {
    return std::copy(text.begin(), text.end(), out);
}

std::string_view untilNul(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

/// Bytes that an item with a value must have.
std::size_t itemSize(std::uint8_t kind) {
    if ((kind & 0x0F) != static_cast<std::uint8_t>(ValueStatus::Present)) return kItemHeadSize;
    switch (static_cast<ValueType>(kind >> 4)) {
    case ValueType::Float:
    case ValueType::Integer:
        return kItemValueOffset + 4;
    case ValueType::Timestamp:
    case ValueType::Interval:
        return kItemValueOffset + 8;
    case ValueType::Text:
        return kItemValueOffset;
    }
    return kItemHeadSize;
}

/// Copies a text with a space for every byte that is no printable ASCII character.
char* writePrintable(std::string_view text, char* out) {
    return std::transform(text.begin(), text.end(), out,
                          [](char c) { return static_cast<signed char>(c) < 32 ? ' ' : c; });
}

char* writeHexadecimal(std::uint32_t value, int digits, char* out) {
    for (int i = digits - 1; i >= 0; --i)
        *out++ = kHexadecimal[value >> 4 * i & 0xF];
    return out;
}

char* writeUnknown(const char* value, char* out) {
    *out++ = '?';
    return writeHexadecimal(littleEndian32(value), 8, out);
}

std::string_view statusWord(std::uint8_t status) {
    switch (static_cast<ValueStatus>(status)) {
    case ValueStatus::NotYetSet:
        return "NotYetSet";
    case ValueStatus::Overrange:
        return "Overrange";
    case ValueStatus::Underrange:
        return "Underrange";
    case ValueStatus::ReferenceError:
        return "RefError";
    case ValueStatus::Discontinuity:
        return "Discontinuity";
    case ValueStatus::Present:
        break;
    }
    return {};
}

} // namespace

RecordText::RecordText(const Style& style, BlockWriter& output)
    : m_style(style),
      m_output(output),
      m_times(style.decimalSeparator) {}

void RecordText::writeHeading(char letter, std::string_view name, std::string_view units) {
    char* out = m_output.room();
    *out++ = m_style.listSeparator;
    char* const begin = out;
    *out++ = letter;
    *out++ = '.';
    out = copyTo(out, untilNul(name.substr(0, kNameSize)));
    units = untilNul(units.substr(0, kNameSize));
    if (!units.empty()) {
        *out++ = '(';
        out = copyTo(out, units);
        *out++ = ')';
    }
    if (m_style.keepFieldsWhole) out = keepWhole(begin, out);
    m_output.advance(out);
}

Shortage RecordText::writeData(std::string_view slot) {
    char* out = m_times.write(u64(slot.data() + 2), m_output.room());
    m_output.advance(out);
    std::size_t at = kDataRecordHeadSize;
    Shortage shortage;
    for (std::size_t channel = 0; channel < m_formats.size(); ++channel) {
        const std::size_t left = slot.size() - at;
        const char* const item = slot.data() + at;
        const std::size_t size = left < kItemHeadSize ? kItemHeadSize : kItemHeadSize + u8(item);
        const std::size_t given = std::min(size, left);
        const std::size_t needed = left < kItemHeadSize ? size : itemSize(u8(item + 1));
        if (!shortage && given < std::max(size, needed))
            shortage = {at, given, std::max(size, needed)};
        if (given < needed) break;
        out = m_output.room();
        *out++ = m_style.listSeparator;
        if (u8(item + 1) == kPresentFloat) {
            out = FloatText::write(u32(item + kItemValueOffset), m_style.floatDecimal, out);
        } else if (left >= kItemValueOffset + 4) {
            out = writeItem(item, given, channel, out);
        } else {
            // An item without a value may stand at the very end of its slot.
            std::array<char, kItemValueOffset + 4> padded{};
            std::copy_n(item, left, padded.data());
            out = writeItem(padded.data(), given, channel, out);
        }
        m_output.advance(out);
        at += given;
    }
    m_output.append("\n");
    return shortage;
}

// `size`: the bytes that the item has in its slot. Ten bytes can be read.
char* RecordText::writeItem(const char* item, std::size_t size, std::size_t channel, char* out) {
    const auto status = static_cast<std::uint8_t>(u8(item + 1) & 0x0F);
    if (status == static_cast<std::uint8_t>(ValueStatus::Present)) {
        char* const end = writeValue(item, size, channel, out);
        return m_style.keepFieldsWhole ? keepWhole(out, end) : end;
    }
    const std::string_view word = statusWord(status);
    return word.empty() ? writeUnknown(item + kItemValueOffset, out) : copyTo(out, word);
}

char* RecordText::writeValue(const char* item, std::size_t size, std::size_t channel, char* out) {
    const FormatText& format = m_formats[channel];
    const char* const value = item + kItemValueOffset;
    switch (static_cast<ValueType>(u8(item + 1) >> 4)) {
    case ValueType::Float:
        return FloatText::write(u32(value), m_style.floatDecimal, out);
    case ValueType::Integer:
        return format.writeInteger(static_cast<std::int32_t>(u32(value)), out);
    case ValueType::Text:
        return writeTextValue(untilNul({value, size - kItemValueOffset}), format, out);
    case ValueType::Timestamp:
        return m_times.write(u64(value), out);
    case ValueType::Interval:
        return m_times.writeInterval(u64(value), out);
    }
    return writeUnknown(value, out);
}

char* RecordText::writeTextValue(std::string_view text, const FormatText& format, char* out) const {
    std::array<char, 256> printable;
    const char* const end = writePrintable(text, printable.data());
    const std::string_view shown(printable.data(),
                                 static_cast<std::size_t>(end - printable.data()));
    if (format.formatsTexts()) return format.writeText(shown, out);
    *out++ = '"';
    out = copyTo(out, shown);
    *out++ = '"';
    return out;
}

// Rewrites a field that a reader of delimited text would tear apart.
char* RecordText::keepWhole(char* begin, char* end) const {
    const auto endsLine = [](char c) { return c == '\n' || c == '\r' || c == '\0'; };
    std::replace_if(begin, end, endsLine, ' ');
    std::string_view field(begin, static_cast<std::size_t>(end - begin));
    const bool quoted = field.size() >= 2 && field.front() == '"' && field.back() == '"';
    if (quoted) field = field.substr(1, field.size() - 2);
    const bool plain =
        !field.starts_with('"') && field.find(m_style.listSeparator) == std::string_view::npos;
    if (quoted ? field.find('"') == std::string_view::npos : plain) return end;
    return writeQuoted(std::string(field), begin);
}

void RecordText::writeAlarm(std::string_view slot, const std::uint32_t* index) {
    char* out = m_output.room();
    if (index) {
        const std::string number = std::to_string(*index);
        out = std::fill_n(out, number.size() < 5 ? 5 - number.size() : 0, ' ');
        out = copyTo(copyTo(out, number), ": ");
        out = writeHexadecimal(u16(slot.data()), 4, out);
        *out++ = ',';
    }
    out = copyTo(m_times.write(u64(slot.data() + 2), out), ",ALARM");
    out = copyTo(out, std::to_string(u8(slot.data() + 10)));
    *out++ = ',';
    out = copyTo(out, std::to_string(u8(slot.data() + 11)));
    m_output.advance(copyTo(out, ",\""));
    std::string_view text = untilNul(slot.substr(kAlarmRecordHeadSize));
    while (!text.empty()) {
        const std::string_view piece = text.substr(0, BlockWriter::kRoom);
        m_output.advance(writePrintable(piece, m_output.room()));
        text.remove_prefix(piece.size());
    }
    m_output.append("\"\n");
}

} // namespace pellam
