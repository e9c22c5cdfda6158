#include "app/batch/LayoutOptions.h"

#include "delimited/layout/LayoutText.h"
#include "times/TimeForm.h"

#include <charconv>

namespace pellam {

namespace {

constexpr std::size_t kMostColumns = 100'000;

template <class Number>
std::optional<Number> numberOf(std::string_view text) {
    Number number{};
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end || text.empty()) return std::nullopt;
    return number;
}

std::string takeLine(std::string_view value, std::int64_t least,
                     std::optional<std::int64_t>& line) {
    line = numberOf<std::int64_t>(value);
    if (line && *line >= least) return {};
    return "needs the number of a line, not " + std::string(value);
}

// The part up to the next comma, taken off the front.
std::string_view takeItem(std::string_view& list) {
    const std::string_view item = list.substr(0, list.find(','));
    list.remove_prefix(item.size() < list.size() ? item.size() + 1 : list.size());
    return item;
}

} // namespace

std::string LayoutOptions::separator(std::string_view value, LayoutWishes& wishes) {
    wishes.separator = separatorOf(value);
    if (*wishes.separator != '\0') return {};
    return "needs comma, semicolon, tab, bar, blanks or a character, not " + std::string(value);
}

std::string LayoutOptions::decimal(std::string_view value, LayoutWishes& wishes) {
    if (value != "." && value != ",") return "needs '.' or ',', not " + std::string(value);
    wishes.decimal = value[0];
    return {};
}

std::string LayoutOptions::headingsLine(std::string_view value, LayoutWishes& wishes) {
    return takeLine(value, 0, wishes.headingsLine);
}

std::string LayoutOptions::unitsLine(std::string_view value, LayoutWishes& wishes) {
    return takeLine(value, 0, wishes.unitsLine);
}

std::string LayoutOptions::dataLine(std::string_view value, LayoutWishes& wishes) {
    return takeLine(value, 1, wishes.dataLine);
}

std::string LayoutOptions::timeColumns(std::string_view value, LayoutWishes& wishes) {
    auto& columns = wishes.timeColumns.emplace();
    if (value == "none") return {};
    for (std::string_view list = value; !list.empty();) {
        const auto number = numberOf<std::size_t>(takeItem(list));
        if (!number || *number < 1 || *number > kMostColumns)
            return "needs numbers of columns such as 1,2 or none, not " + std::string(value);
        columns.push_back(*number - 1);
    }
    return {};
}

std::string LayoutOptions::timeFormat(std::string_view value, LayoutWishes& wishes) {
    wishes.timeFormat = value;
    if (TimeForm::parse(value)) return {};
    return "needs a form such as dd/MM/yyyy HH:mm, epoch-ms or elapsed-s, not " +
           std::string(value);
}

std::string LayoutOptions::missing(std::string_view value, LayoutWishes& wishes) {
    auto& texts = wishes.missing.emplace();
    for (std::string_view list = value; !list.empty();) {
        const std::string_view text = takeItem(list);
        if (!text.empty()) texts.emplace_back(text);
    }
    return {};
}

} // namespace pellam
