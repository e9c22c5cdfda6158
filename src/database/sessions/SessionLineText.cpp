#include "database/sessions/SessionLineText.h"

#include "database/sessions/SessionValueText.h"

#include <array>
#include <charconv>

namespace pellam {

namespace {

template <class Number>
void appendNumber(Number number, std::string& line) {
    std::array<char, 16> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    line.append(text.data(), end);
}

// Each character of `unfit` becomes the one at its place in `instead`.
void appendWithout(std::string_view unfit, std::string_view instead, std::string_view text,
                   std::string& line) {
    for (const char c : text) {
        const std::size_t at = unfit.find(c);
        line += at == std::string_view::npos ? c : instead[at];
    }
}

// Character 254 alone marks a logger without an address, in a single byte or in UTF-8.
bool isNoAddress(std::string_view address) {
    return address == "\xFE" || address == "\xC3\xBE";
}

} // namespace

void appendLineHead(const LineHead& head, std::string& line) {
    constexpr std::string_view kUnfit = ",\r\n";
    constexpr std::string_view kInstead = ".  ";
    line.append("D,");
    appendWithout(kUnfit, kInstead, isNoAddress(head.address) ? "0" : head.address, line);
    line += ',';
    std::array<char, 48> text;
    char* end = head.time.writeDate(text.data());
    *end++ = ',';
    end = head.time.writeTime(end);
    line.append(text.data(), end);
    if (head.subTime > 0) {
        line.append(",0.");
        appendNumber(head.subTime, line);
    } else {
        line.append(",0.000000");
    }
    line.append(",1:");
    appendWithout(kUnfit, kInstead, head.schedule, line);
    line.append(",0");
}

void appendChannelTexts(std::string_view label, std::string_view units, std::string& line) {
    constexpr std::string_view kUnfit = "<>\r\n";
    constexpr std::string_view kInstead = "[]  ";
    line += '"';
    appendWithout(kUnfit, kInstead, label, line);
    line.append("\",\"");
    appendWithout(kUnfit, kInstead, units, line);
    line += '"';
}

void appendValue(const Session_Channel_Info& channel, std::string& line) {
    std::array<char, SessionValueText::kRoom> text;
    char* const begin = text.data();
    char* end;
    if (channel.label.find("Date") != std::string::npos) {
        end = SessionValueText::writeDate(channel.value, begin);
    } else if (channel.label.find("Time") != std::string::npos) {
        end = SessionValueText::writeTime(channel.value, begin);
    } else {
        end = SessionValueText::writeWhole(channel.value, begin);
    }
    line.append(1, ',').append(begin, end).append(",$");
    appendNumber(static_cast<std::uint32_t>(channel.status), line);
    line.append(1, 'l');
}

std::string_view typeCode(std::int32_t valueType) {
    switch (valueType) {
    case 2:
        return "1";
    case 4:
        return "2";
    case 8:
        return "3";
    case 16:
        return "4";
    default:
        return "0";
    }
}

} // namespace pellam
