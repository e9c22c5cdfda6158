#include "logger/DataMapConverter.h"

#include "base/LeadingNumber.h"

#include <algorithm>
#include <optional>

namespace pellam {

namespace {

struct Marker {
    std::string_view inMap;
    std::string_view suffix;
};

// The first that a channel contains decides. The last three belong to format 14 alone.
constexpr std::array<Marker, 12> kMarkers{{{"(Ave)", ".Ave"},
                                           {"(SD)", ".SD"},
                                           {"(Max)", ".Max"},
                                           {"(Min)", ".Min"},
                                           {"(Tmx)", ".Tmx"},
                                           {"(Tmn)", ".Tmn"},
                                           {"(Dmx)", ".Dmx"},
                                           {"(Dmn)", ".Dmn"},
                                           {"(Int)", ".Int"},
                                           {"(Imx)", ".Imx"},
                                           {"(Imn)", ".Imn"},
                                           {"(Nms)", ".Nms"}}};

constexpr std::string_view kAny = ",:;";
constexpr std::string_view kComma = ",";

// Takes tokens off the front of a text. Empty ones do not count.
class Tokens {
  public:
    explicit Tokens(std::string_view text) : m_rest(text) {}

    std::optional<std::string_view> next(std::string_view delimiters) {
        const std::size_t begin = m_rest.find_first_not_of(delimiters);
        if (begin == std::string_view::npos) return std::nullopt;
        const std::size_t end = std::min(m_rest.find_first_of(delimiters, begin), m_rest.size());
        const std::string_view token = m_rest.substr(begin, end - begin);
        m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
        return token;
    }

    bool skip(int count, std::string_view delimiters) {
        for (; count > 0; --count) {
            if (!next(delimiters)) return false;
        }
        return true;
    }

  private:
    std::string_view m_rest;
};

} // namespace

void DataMapConverter::StripQuotes(std::string& text) {
    std::erase(text, '"');
    if (text.ends_with(',')) text.pop_back();
}

std::string_view DataMapConverter::unitsOf(std::string_view field) {
    field = field.substr(0, field.find('('));
    const std::size_t begin = field.find_first_not_of(' ');
    if (begin == std::string_view::npos) return {};
    return field.substr(begin, field.find_last_not_of(' ') + 1 - begin);
}

bool DataMapConverter::convertMap(std::string_view map) {
    m_program.clear();
    m_letter = '\0';
    const std::size_t header = std::min(map.find('<'), map.size());
    if (!readHeader(map.substr(0, header))) return false;
    Tokens sections(map.substr(header));
    while (const auto token = sections.next("<>\r\n"))
        readSection(*token);
    return true;
}

bool DataMapConverter::readHeader(std::string_view header) {
    Tokens tokens(header);
    if (!tokens.next(kAny)) return false;
    if (!tokens.next(kComma)) return false;
    const auto date = tokens.next(kAny);
    if (!date) return false;
    // A date is followed by a time and a fraction; a plain number of seconds stands alone.
    if (date->find('/') != std::string_view::npos && !tokens.skip(2, kComma)) return false;
    const auto format = tokens.next(kAny);
    if (!format || !readsFormat(leadingInteger(*format))) return false;
    return tokens.skip(1 + m_ignoredHeaderTokens + 1, kAny);
}

void DataMapConverter::readSection(std::string_view token) {
    if (token.size() < 2) return;
    if (isScheduleLetter(token[0]) && token[1] == ',') {
        m_letter = token[0];
        return;
    }
    // Before the first schedule no channel has an owner.
    if (m_letter == '\0' || token.find(',') == std::string_view::npos) return;
    m_stripped = token;
    StripQuotes(m_stripped);
    Channel channel;
    channel.whole = m_stripped;
    splitFields(token, channel);
    appendChannel(channel);
}

void DataMapConverter::splitFields(std::string_view token, Channel& channel) const {
    // A comma between quotes is part of a name, unless a quote is missing.
    const bool paired = std::count(token.begin(), token.end(), '"') % 2 == 0;
    const std::string_view text = m_stripped;
    bool quoted = false;
    std::size_t field = 0;
    std::size_t begin = 0;
    std::size_t at = 0;
    const auto endField = [&] {
        if (field < kFields) channel.fields[field] = text.substr(begin, at - begin);
        begin = std::min(at + 1, text.size());
        if (field++ == 0) channel.afterName = text.substr(begin);
    };
    for (const char c : token) {
        if (c == '"') {
            quoted = paired && !quoted;
            continue;
        }
        if (c == ',' && !quoted && at < text.size()) endField();
        ++at;
    }
    at = text.size();
    endField();
}

void DataMapConverter::appendName(std::string_view name, std::string_view text,
                                  std::size_t markerCount, std::string_view kind) {
    m_program += m_letter;
    m_program += '.';
    m_program += name;
    const auto* const end = kMarkers.begin() + markerCount;
    const auto* const marker = std::find_if(kMarkers.begin(), end, [text](const Marker& m) {
        return text.find(m.inMap) != std::string_view::npos;
    });
    if (marker != end) m_program += marker->suffix;
    const std::int32_t number = leadingInteger(kind);
    if (number == 1) m_program += ".Time";
    if (number == 2) m_program += ".Date";
}

} // namespace pellam
