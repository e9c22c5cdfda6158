#include "replay/load/TimeHead.h"

#include <algorithm>

namespace pellam {

bool TimeHead::read(FieldScanner& fields, std::string_view& job, std::string_view& time) {
    job = {};
    m_leftOut = false;
    std::string_view field;
    if (!fields.next(field)) return false;
    if (!field.empty() && field[0] == '"') {
        job = field;
        if (!fields.next(field)) return false;
    }
    if (field.find('/') == std::string_view::npos) {
        const std::string_view text = LoggerClock::dateTime(field, m_separator, m_buffer);
        time = text.empty() ? field : text;
        return true;
    }
    std::string_view clock;
    std::string_view fraction;
    if (!fields.next(clock) || !fields.next(fraction)) return false;
    m_leftOut = fraction.find('.') == std::string_view::npos &&
                fraction.find_first_not_of("0 ") != std::string_view::npos;
    time = dateForm(field, clock, fraction);
    return true;
}

std::string_view TimeHead::dateForm(std::string_view date, std::string_view time,
                                    std::string_view fraction) {
    const std::size_t longest = date.size() + time.size() + fraction.size() + 2;
    if (m_dateForm.size() < longest) m_dateForm.resize(longest);
    char* out = m_dateForm.data();
    const auto append = [&out](std::string_view text) {
        out = std::copy(text.begin(), text.end(), out);
    };
    append(date);
    *out++ = ' ';
    append(time);
    if (fraction.find('.') != std::string_view::npos) {
        const std::size_t zero = fraction.find("0.");
        append(fraction.substr(0, zero));
        if (zero != std::string_view::npos) {
            *out++ = m_separator;
            append(fraction.substr(zero + 2));
        }
    }
    return {m_dateForm.data(), static_cast<std::size_t>(out - m_dateForm.data())};
}

} // namespace pellam
