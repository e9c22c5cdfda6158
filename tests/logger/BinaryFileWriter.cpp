#include "BinaryFileWriter.h"

#include <bit>

namespace pellam {

namespace {

using Ring = BinaryFileWriter::Ring;

std::string padded(const std::string& text, std::size_t size, char with = '\0') {
    std::string bytes(size, with);
    text.copy(bytes.data(), size);
    return bytes;
}

Ring filled(Ring ring) {
    for (const std::string& record : ring.records) {
        if (ring.recordSize < record.size())
            ring.recordSize = static_cast<std::uint32_t>(record.size());
    }
    if (!ring.newest) ring.newest = static_cast<std::uint32_t>(ring.records.size()) - 1;
    return ring;
}

std::string descriptor(const Ring& ring) {
    using Writer = BinaryFileWriter;
    return Writer::number(ring.recordSize, 4) +
           Writer::number(static_cast<std::uint32_t>(ring.oldest), 4) +
           Writer::number(*ring.newest, 4);
}

std::string slots(const Ring& ring) {
    std::string contents;
    for (const std::string& record : ring.records)
        contents += padded(record, ring.recordSize, '\xEE');
    return contents;
}

} // namespace

std::string BinaryFileWriter::number(std::uint64_t value, int size) {
    std::string text;
    for (int i = size - 1; i >= 0; --i)
        text += static_cast<char>(value >> 8 * i & 0xFF);
    return text;
}

std::string BinaryFileWriter::prefix(std::string_view tag, std::uint32_t length) {
    return std::string(tag) + number(length, 4);
}

std::string BinaryFileWriter::section(std::string_view tag, const std::string& contents) {
    return prefix(tag, static_cast<std::uint32_t>(contents.size())) + contents;
}

std::string BinaryFileWriter::item(int type, int status, const std::string& value) {
    return number(4 + value.size(), 1) + number(static_cast<unsigned>(type << 4 | status), 1) +
           number(0x5A5B5C5D, 4) + value;
}

std::string BinaryFileWriter::floatItem(float value) {
    return item(1, 1, number(std::bit_cast<std::uint32_t>(value), 4));
}

std::string BinaryFileWriter::integerItem(std::int32_t value) {
    return item(2, 1, number(static_cast<std::uint32_t>(value), 4));
}

std::string BinaryFileWriter::textItem(const std::string& text) {
    return item(3, 1, text + '\0');
}

std::string BinaryFileWriter::timeItem(std::uint64_t microseconds) {
    return item(4, 1, number(microseconds, 8));
}

std::string BinaryFileWriter::intervalItem(std::uint64_t microseconds) {
    return item(5, 1, number(microseconds, 8));
}

std::string BinaryFileWriter::dataRecord(std::uint64_t microseconds, const std::string& items) {
    return number(0x1234, 2) + number(microseconds, 8) + items;
}

std::string BinaryFileWriter::alarmRecord(unsigned word, std::uint64_t microseconds, unsigned first,
                                          unsigned second, const std::string& text) {
    return number(word, 2) + number(microseconds, 8) + number(first, 1) + number(second, 1) + text +
           '\0';
}

std::string BinaryFileWriter::headers(const Ring& dataRing) const {
    std::string contents =
        descriptor(dataRing) +
        number(channelCount.value_or(static_cast<std::uint32_t>(channels.size())), 4);
    for (const Channel& channel : channels) {
        contents += padded(channel.name, 32) + padded(channel.units, 16) +
                    padded(channel.format, 16) + std::string(16, '\x7E');
    }
    const std::string file =
        std::string(36, '\x7D') + number(0x11223300U + (letter & 0xFFU), 4) + number(0x44556677, 4);
    return section("HDR1", file) + section("DHDR", contents) +
           section("AHDR", descriptor(filled(alarms)));
}

std::string BinaryFileWriter::bytes() const {
    return bytesBefore(static_cast<std::uint32_t>(data.records.size())) + slots(filled(data)) +
           bytesBehind();
}

std::string BinaryFileWriter::bytesBefore(std::uint32_t slotCount) const {
    Ring ring = filled(data);
    if (!data.newest) ring.newest = slotCount - 1;
    const std::uint32_t length = slotCount * ring.recordSize;
    const std::string contents = headers(ring) + prefix("DATA", ring.length.value_or(length));
    const std::size_t whole = contents.size() + length + bytesBehind().size();
    return prefix("DTDT", fileLength.value_or(static_cast<std::uint32_t>(whole))) + contents;
}

std::string BinaryFileWriter::bytesBehind() const {
    const Ring ring = filled(alarms);
    const std::string contents = slots(ring);
    const auto length = static_cast<std::uint32_t>(contents.size());
    return prefix("ALRM", ring.length.value_or(length)) + contents + end;
}

} // namespace pellam
