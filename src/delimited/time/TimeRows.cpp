#include "delimited/time/TimeRows.h"

#include "delimited/time/TimeColumns.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace pellam {

namespace {

constexpr std::size_t kRows = 120;    ///< consecutive rows looked at
constexpr std::size_t kTailRows = 60; ///< and rows of the end

/// Days of a year before each month.
constexpr std::array<int, 12> kBefore = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};

} // namespace

TimeRows::TimeRows(const SampleRecords& head, const SampleRecords& tail, const SampleTable& table,
                   const std::vector<std::string>& names)
    : m_table(table),
      m_names(names) {
    for (std::size_t i = table.first; i < table.end && m_rows.size() < kRows; ++i) {
        if (!head[i].blank) m_rows.push_back(head.fields(i));
    }
    m_consecutive = m_rows.size();
    const std::size_t from = tail.size() > kTailRows ? tail.size() - kTailRows : 0;
    for (std::size_t i = from; i < tail.size(); ++i) {
        if (tail[i].fields == table.columns && tail[i].readings > 0)
            m_rows.push_back(tail.fields(i));
    }
    if (tail.size() == 0 && table.end > kTailRows + table.first) {
        for (std::size_t i = std::max(table.first + m_consecutive, table.end - kTailRows);
             i < table.end; ++i) {
            if (!head[i].blank) m_rows.push_back(head.fields(i));
        }
    }
}

std::vector<std::string> TimeRows::texts(const std::vector<std::size_t>& columns,
                                         int padded) const {
    std::vector<std::string> joined;
    joined.reserve(m_rows.size());
    std::vector<std::string_view> parts(columns.size());
    for (const auto& row : m_rows) {
        for (std::size_t i = 0; i < columns.size(); ++i)
            parts[i] = textAt(row, columns[i]);
        joined.push_back(joinedTime(parts, padded));
    }
    return joined;
}

std::pair<double, double> TimeRows::range(std::size_t column) const {
    double least = NAN;
    double most = NAN;
    for (const auto& row : m_rows) {
        std::string_view text = textAt(row, column);
        if (text.ends_with(" UTC")) text.remove_suffix(4);
        double value = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        if (error != std::errc() || end != text.data() + text.size() || value != std::floor(value))
            return {NAN, NAN};
        if (!(least <= value)) least = value;
        if (!(most >= value)) most = value;
    }
    return {least, most};
}

bool TimeRows::minutesFit(std::size_t column) const {
    return std::all_of(m_rows.begin(), m_rows.end(), [&](const auto& row) {
        int value = 0;
        const std::string_view text = textAt(row, column);
        std::from_chars(text.data(), text.data() + text.size(), value);
        return value % 100 < 60;
    });
}

bool TimeRows::isDigits(std::size_t column, std::size_t digits) const {
    return std::all_of(m_rows.begin(), m_rows.end(), [&](const auto& row) {
        const std::string_view text = textAt(row, column);
        const std::string_view whole = text.substr(0, text.find('.'));
        return whole.size() == digits &&
               whole.find_first_not_of("0123456789") == std::string_view::npos;
    });
}

bool TimeRows::isPointClock(std::size_t column) const {
    return std::all_of(m_rows.begin(), m_rows.end(), [&](const auto& row) {
        const std::string_view text = textAt(row, column);
        return text.empty() || (text.size() == 8 && text[2] == '.' && text[5] == '.' &&
                                text[0] < '3' && text[3] < '6' && text[6] < '6');
    });
}

bool TimeRows::daysAgree(std::size_t year) const {
    return std::all_of(m_rows.begin(), m_rows.end(), [&](const auto& row) {
        std::array<int, 4> part{};
        for (std::size_t i = 0; i < part.size(); ++i) {
            const std::string_view text = textAt(row, year + i);
            std::from_chars(text.data(), text.data() + text.size(), part[i]);
        }
        const auto [y, dayOfYear, month, day] = part;
        if (month < 1 || month > 12) return false;
        const bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
        return dayOfYear ==
               kBefore[static_cast<std::size_t>(month - 1)] + day + (leap && month > 2 ? 1 : 0);
    });
}

std::vector<double> TimeRows::values(std::size_t column) const {
    std::vector<double> numbers;
    for (std::size_t i = 0; i < m_consecutive; ++i) {
        std::string text(textAt(m_rows[i], column));
        std::replace(text.begin(), text.end(), ',', '.');
        const char* begin = text.data() + (text.starts_with('+') ? 1 : 0);
        double value = 0;
        const auto [end, error] = std::from_chars(begin, text.data() + text.size(), value);
        if (error == std::errc() && end != begin) numbers.push_back(value);
    }
    return numbers;
}

bool TimeRows::counts(std::size_t column) const {
    const std::vector<double> numbers = values(column);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (numbers[i] != static_cast<double>(i + 1)) return false;
    }
    return numbers.size() == m_consecutive;
}

bool TimeRows::rises(std::size_t column) const {
    const std::vector<double> numbers = values(column);
    std::size_t up = 0;
    for (std::size_t i = 1; i < numbers.size(); ++i)
        up += numbers[i] >= numbers[i - 1];
    return numbers.size() < 2 || (up + 1) * 10 >= numbers.size() * 8;
}

bool TimeRows::risesEvenly(std::size_t column) const {
    const std::vector<double> numbers = values(column);
    if (numbers.size() < 4) return false;
    const double step =
        (numbers.back() - numbers.front()) / static_cast<double>(numbers.size() - 1);
    if (!(step > 0) || step == std::floor(step)) return false;
    for (std::size_t i = 1; i < numbers.size(); ++i) {
        const double here = numbers[i] - numbers[i - 1];
        if (here < 0.5 * step || here > 1.5 * step) return false;
    }
    return true;
}

} // namespace pellam
