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

// Character 254 alone marks a logger without an address, in a single byte or in UTF-8.
bool isNoAddress(std::string_view address) {
    return address == "\xFE" || address == "\xC3\xBE";
}

} // namespace

void appendLineHead(const LineHead& head, std::string& line) {
    line.append("D,").append(isNoAddress(head.address) ? "0" : head.address).append(",");
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
    line.append(",1:").append(head.schedule).append(",0");
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
