#include "views/scan/RowLocator.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace pellam {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

/// Takes digits off the front of a text; nothing when there are none or more than `most`.
std::optional<std::int64_t> takeNumber(std::string_view& text, std::size_t most) {
    std::size_t length = 0;
    std::int64_t number = 0;
    while (length < text.size() && isDigit(text[length])) {
        if (length == most) return std::nullopt;
        number = number * 10 + (text[length++] - '0');
    }
    if (length == 0) return std::nullopt;
    text.remove_prefix(length);
    return number;
}

bool takeOneOf(std::string_view& text, std::string_view characters) {
    if (text.empty() || characters.find(text.front()) == std::string_view::npos) return false;
    text.remove_prefix(1);
    return true;
}

std::int64_t takeFraction(std::string_view& text) {
    std::int64_t nanosecond = 0;
    int digits = 0;
    for (; !text.empty() && isDigit(text.front()); text.remove_prefix(1)) {
        if (digits < 9) nanosecond = nanosecond * 10 + (text.front() - '0'), ++digits;
    }
    for (; digits < 9; ++digits)
        nanosecond *= 10;
    return nanosecond;
}

} // namespace

std::optional<RowLocator::TimeKey> RowLocator::timeKey(std::string_view text) {
    text = trimmed(text);
    if (text.size() < 5 || !std::all_of(text.begin(), text.begin() + 4, isDigit)) {
        return std::nullopt;
    }
    constexpr std::array<std::string_view, 6> separators{"", "/-.", "/-.", " T", ":", ":"};
    constexpr std::array<std::int64_t, 6> least{0, 1, 1, 0, 0, 0};
    std::array<std::int64_t, 6> fields = least;
    bool more = true;
    for (std::size_t i = 0; i < fields.size() && more; ++i) {
        if (i > 0) more = takeOneOf(text, separators[i]);
        if (i == 1 && !more) return std::nullopt;
        if (!more || text.empty()) break;
        const auto number = takeNumber(text, i == 0 ? 4 : 2);
        if (!number) return std::nullopt;
        fields[i] = *number;
    }
    TimeKey key;
    if (more && takeOneOf(text, ".,")) key.nanosecond = takeFraction(text);
    if (!trimmed(text).empty()) return std::nullopt;
    for (std::size_t i = 0; i < fields.size(); ++i)
        key.second = key.second * 100 + fields[i];
    return key;
}

RowLocator::RowLocator(const GridData& grid, std::string_view wanted)
    : m_grid(grid),
      m_prefix(trimmed(wanted)),
      m_key(timeKey(m_prefix)) {
    if (m_prefix.empty()) {
        m_state = State::NotUnderstood;
    } else if (std::all_of(m_prefix.begin(), m_prefix.end(), isDigit)) {
        Row number = 0;
        const char* end = m_prefix.data() + m_prefix.size();
        const auto read = std::from_chars(m_prefix.data(), end, number);
        const bool exists = read.ec == std::errc() && number >= 1 && number <= grid.rowCount();
        m_state = exists ? State::Found : State::NoSuchRow;
        m_row = exists ? number - 1 : 0;
    }
}

bool RowLocator::matches(std::string_view time) const {
    if (!m_key) return time.starts_with(m_prefix);
    const auto key = timeKey(time);
    return key ? *key >= *m_key : time.starts_with(m_prefix);
}

RowLocator::State RowLocator::step(std::int64_t rows) {
    if (m_state != State::Searching) return m_state;
    CellBuffer buffer;
    for (; rows > 0; --rows, ++m_row) {
        if (m_row >= m_grid.rowCount()) {
            m_state = m_key ? State::NoRowAtOrAfter : State::NotUnderstood;
            return m_state;
        }
        if (matches(m_grid.text(0, m_row, buffer))) return m_state = State::Found;
    }
    return m_state;
}

} // namespace pellam
