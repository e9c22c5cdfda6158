#include "database/odbc/CTime.h"

#include "base/CalendarText.h"

#include <cstdlib>
#include <ctime>

namespace pellam {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Takes numbers and marks off the front of a text.
class Taker {
  public:
    explicit Taker(std::string_view text) : m_rest(text) {}

    template <class Number>
    Taker& digits(std::size_t count, Number& value) {
        int number = 0;
        for (std::size_t i = 0; i < count; ++i) {
            if (i >= m_rest.size() || !isDigit(m_rest[i])) return fail();
            number = number * 10 + (m_rest[i] - '0');
        }
        value = static_cast<Number>(number);
        m_rest.remove_prefix(count);
        return *this;
    }

    Taker& mark(std::string_view any) {
        if (m_rest.empty() || any.find(m_rest[0]) == std::string_view::npos) return fail();
        m_rest.remove_prefix(1);
        return *this;
    }

    Taker& fraction() {
        if (m_rest.empty()) return *this;
        mark(".");
        while (!m_rest.empty() && isDigit(m_rest[0]))
            m_rest.remove_prefix(1);
        return *this;
    }

    [[nodiscard]] bool atEnd() const { return m_good && m_rest.empty(); }

  private:
    Taker& fail() {
        m_good = false;
        m_rest = {};
        return *this;
    }

    std::string_view m_rest;
    bool m_good = true;
};

bool inCalendar(const CTime& time) {
    return time.month >= 1 && time.month <= 12 && time.day >= 1 && time.day <= 31 &&
           time.hour <= 23 && time.minute <= 59 && time.second <= 61;
}

} // namespace

CTime CTime::parse(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos) return {};
    text = text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
    CTime time;
    Taker taker(text);
    taker.digits(4, time.year).mark("-").digits(2, time.month).mark("-").digits(2, time.day);
    if (!taker.atEnd()) {
        taker.mark(" T").digits(2, time.hour).mark(":").digits(2, time.minute).mark(":");
        taker.digits(2, time.second).fraction();
    }
    return taker.atEnd() && inCalendar(time) ? time : CTime{};
}

CTime CTime::now() {
    const std::time_t moment = std::time(nullptr);
    std::tm fields{};
    localtime_r(&moment, &fields);
    return {fields.tm_year + 1900,
            static_cast<std::uint8_t>(fields.tm_mon + 1),
            static_cast<std::uint8_t>(fields.tm_mday),
            static_cast<std::uint8_t>(fields.tm_hour),
            static_cast<std::uint8_t>(fields.tm_min),
            static_cast<std::uint8_t>(fields.tm_sec)};
}

// A driver may hand over anything: two digits are taken of every field.
char* CTime::writeDate(char* out) const {
    return pellam::writeDate(out, year, month % 100U, day % 100U);
}

char* CTime::writeTime(char* out) const {
    return pellam::writeTime(out, hour % 100U, minute % 100U, second % 100U);
}

} // namespace pellam
