#include "replay/load/TimeHead.h"

#include <algorithm>
#include <cstring>

namespace pellam {

namespace {

char* append(char* out, const char* limit, std::string_view text) {
    const auto room = static_cast<std::size_t>(limit - out);
    const std::size_t count = std::min(room, text.size());
    if (count > 0) std::memcpy(out, text.data(), count);
    return out + count;
}

} // namespace

bool TimeHead::read(FieldScanner& fields, std::string_view& job, std::string_view& time) {
    job = {};
    std::string_view field;
    if (!fields.next(field)) return false;
    if (!field.empty() && field[0] == '"') {
        job = field;
        if (!fields.next(field)) return false;
    }
    if (field.find('/') == std::string_view::npos) {
        time = m_clock.dateTime(field, m_separator, m_buffer);
        return true;
    }
    std::string_view clock;
    std::string_view fraction;
    if (!fields.next(clock) || !fields.next(fraction)) return false;
    time = dateForm(field, clock, fraction);
    return true;
}

std::string_view TimeHead::dateForm(std::string_view date, std::string_view time,
                                    std::string_view fraction) {
    const char* const limit = m_buffer.data() + m_buffer.size();
    char* out = append(m_buffer.data(), limit, date);
    out = append(out, limit, " ");
    out = append(out, limit, time);
    if (fraction.find('.') != std::string_view::npos) {
        const std::size_t zero = fraction.find("0.");
        if (zero == std::string_view::npos) {
            out = append(out, limit, fraction);
        } else {
            out = append(out, limit, fraction.substr(0, zero));
            out = append(out, limit, {&m_separator, 1});
            out = append(out, limit, fraction.substr(zero + 2));
        }
    }
    return {m_buffer.data(), static_cast<std::size_t>(out - m_buffer.data())};
}

} // namespace pellam
