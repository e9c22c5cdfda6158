#include "grid/TimeCell.h"

#include "base/CalendarText.h"

#include <cstddef>

namespace pellam {

namespace {

constexpr unsigned kYears = 512;

// Value of two digits; at least 100 when one of them is none.
unsigned twoDigits(const char* at) {
    const auto tens = static_cast<unsigned>(static_cast<unsigned char>(at[0])) - '0';
    const auto ones = static_cast<unsigned>(static_cast<unsigned char>(at[1])) - '0';
    return tens > 9 || ones > 9 ? 100 : tens * 10 + ones;
}

bool packFraction(std::string_view text, std::uint64_t& packed) {
    const std::size_t digits = text.size() - 1;
    if ((text[0] != '.' && text[0] != ',') || digits < 1 || digits > 6) return false;
    std::uint64_t value = 0;
    for (const char c : text.substr(1)) {
        if (c < '0' || c > '9') return false;
        value = value * 10 + static_cast<unsigned>(c - '0');
    }
    packed = value << 4 | digits << 1 | (text[0] == ',' ? 1U : 0U);
    return true;
}

} // namespace

bool TimeCell::pack(std::string_view text, Cell& cell) {
    constexpr std::size_t kWhole = 19;
    if (text.size() < kWhole || text.size() > kWhole + 7) return false;
    const char* const at = text.data();
    const char date = at[4];
    const char gap = at[10];
    if (at[7] != date || at[13] != ':' || at[16] != ':') return false;
    Cell::Kind kind;
    if (date == '/' && gap == ' ') {
        kind = Cell::Kind::TimeSlash;
    } else if (date == '-' && (gap == ' ' || gap == 'T')) {
        kind = gap == ' ' ? Cell::Kind::TimeDash : Cell::Kind::TimeDashLetter;
    } else {
        return false;
    }
    const unsigned century = twoDigits(at);
    const unsigned yearOfCentury = twoDigits(at + 2);
    const unsigned month = twoDigits(at + 5);
    const unsigned day = twoDigits(at + 8);
    const unsigned hour = twoDigits(at + 11);
    const unsigned minute = twoDigits(at + 14);
    const unsigned second = twoDigits(at + 17);
    const unsigned year = century * 100 + yearOfCentury - kFirstYear;
    if (century > 99 || yearOfCentury > 99 || year >= kYears || month > 15 || day > 31 ||
        hour > 31 || minute > 63 || second > 63) {
        return false;
    }
    std::uint64_t fraction = 0;
    if (text.size() > kWhole && !packFraction(text.substr(kWhole), fraction)) return false;
    std::uint64_t packed = year;
    packed = packed << 4 | month;
    packed = packed << 5 | day;
    packed = packed << 5 | hour;
    packed = packed << 6 | minute;
    packed = packed << 6 | second;
    cell = Cell(kind, packed << 24 | fraction);
    return true;
}

char* TimeCell::write(Cell cell, char* out) {
    const Fields f = fields(cell);
    const char date = cell.kind() == Cell::Kind::TimeSlash ? '/' : '-';
    out =
        writeDate(out, f.year, static_cast<unsigned>(f.month), static_cast<unsigned>(f.day), date);
    *out++ = cell.kind() == Cell::Kind::TimeDashLetter ? 'T' : ' ';
    out = writeTime(out, static_cast<unsigned>(f.hour), static_cast<unsigned>(f.minute),
                    static_cast<unsigned>(f.second));
    if (f.fractionDigits > 0) {
        *out++ = (cell.payload() & 1) != 0 ? ',' : '.';
        std::uint32_t rest = f.fraction;
        for (unsigned i = f.fractionDigits; i > 0; --i) {
            out[i - 1] = static_cast<char>('0' + rest % 10);
            rest /= 10;
        }
        out += f.fractionDigits;
    }
    return out;
}

} // namespace pellam
