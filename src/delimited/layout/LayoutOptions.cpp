#include "delimited/layout/LayoutOptions.h"

#include "delimited/layout/LayoutText.h"
#include "times/TimeForm.h"

#include <array>
#include <charconv>

namespace pellam {

namespace {

constexpr std::size_t kMostColumns = 100'000;
constexpr std::string_view kNoTexts = "none";

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
    const std::size_t first = item.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return item.substr(first, item.find_last_not_of(' ') + 1 - first);
}

using Take = std::string (*)(std::string_view value, LayoutWishes& wishes);

constexpr std::array<std::pair<std::string_view, Take>, 9> kTakes = {
    {{"separator", LayoutOptions::separator},
     {"quote", LayoutOptions::quote},
     {"decimal", LayoutOptions::decimal},
     {"headings-line", LayoutOptions::headingsLine},
     {"units-line", LayoutOptions::unitsLine},
     {"data-line", LayoutOptions::dataLine},
     {"time-columns", LayoutOptions::timeColumns},
     {"time-format", LayoutOptions::timeFormat},
     {"missing", LayoutOptions::missing}}};

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
    if (value == kNoTexts) return {};
    for (std::string_view list = value; !list.empty();) {
        const std::string_view text = takeItem(list);
        if (!text.empty()) texts.emplace_back(text);
    }
    return {};
}

std::string LayoutOptions::quote(std::string_view value, LayoutWishes& wishes) {
    const bool none = value == "none";
    if (!none && value != "\"" && value != "'") return "needs \", ' or none";
    wishes.quote = none ? '\0' : value[0];
    return {};
}

std::vector<std::pair<std::string, std::string>> LayoutOptions::listOf(const LayoutWishes& wishes) {
    std::vector<std::pair<std::string, std::string>> list;
    if (wishes.separator) list.emplace_back("separator", separatorName(*wishes.separator));
    if (wishes.quote)
        list.emplace_back("quote", *wishes.quote ? std::string(1, *wishes.quote) : "none");
    if (wishes.decimal) list.emplace_back("decimal", std::string(1, *wishes.decimal));
    if (wishes.headingsLine)
        list.emplace_back("headings-line", std::to_string(*wishes.headingsLine));
    if (wishes.unitsLine) list.emplace_back("units-line", std::to_string(*wishes.unitsLine));
    if (wishes.dataLine) list.emplace_back("data-line", std::to_string(*wishes.dataLine));
    if (wishes.timeColumns) list.emplace_back("time-columns", columnsText(*wishes.timeColumns));
    if (!wishes.timeFormat.empty()) list.emplace_back("time-format", wishes.timeFormat);
    if (wishes.missing) list.emplace_back("missing", textsText(*wishes.missing));
    return list;
}

bool LayoutOptions::take(std::string_view name, std::string_view value, LayoutWishes& wishes) {
    for (const auto& [option, function] : kTakes) {
        if (option != name) continue;
        LayoutWishes changed = wishes;
        if (!function(value, changed).empty()) return false;
        wishes = std::move(changed);
        return true;
    }
    return false;
}

std::string LayoutOptions::columnsText(const std::vector<std::size_t>& columns) {
    std::string text;
    for (const std::size_t column : columns)
        text += (text.empty() ? "" : ", ") + std::to_string(column + 1);
    return text.empty() ? "none" : text;
}

std::string LayoutOptions::textsText(const std::vector<std::string>& texts) {
    std::string list;
    for (const std::string& text : texts)
        list += (list.empty() ? "" : ", ") + text;
    return list == kNoTexts ? list + ',' : list;
}

} // namespace pellam
