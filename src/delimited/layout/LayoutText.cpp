#include "delimited/layout/LayoutText.h"

#include <algorithm>
#include <array>

namespace pellam {

namespace {

constexpr std::array<std::pair<char, std::string_view>, 5> kSeparators = {
    {{',', "comma"},
     {';', "semicolon"},
     {'\t', "tab"},
     {'|', "bar"},
     {Dialect::kBlankRuns, "blanks"}}};

// "3" or "lines 3 and 4": one behind a list.
template <class Number>
std::string listed(const std::vector<Number>& numbers, Number add, const char* last) {
    std::string text;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (i > 0) text += i + 1 == numbers.size() ? last : ", ";
        text += std::to_string(numbers[i] + add);
    }
    return text;
}

std::string counted(std::int64_t count, const std::string& thing) {
    return std::to_string(count) + ' ' + thing + (count == 1 ? "" : "s");
}

std::string timeSummary(const TextLayout& layout) {
    if (layout.timeColumns.empty()) return "no time, rows are counted";
    const bool one = layout.timeColumns.size() == 1;
    if (one && layout.timeColumns[0] == 0 && !layout.timeParts && !layout.timeGuessed) return {};
    std::string text = one ? "time from column " : "time from columns ";
    text += listed<std::size_t>(layout.timeColumns, 1, " and ");
    if (layout.timeGuessed) text += " read as " + layout.timeForm.name();
    return text;
}

std::string headingsSummary(const TextLayout& layout) {
    if (layout.headingsLine == 0) return "no headings";
    if (layout.headingLines > 1)
        return "headings from lines " + std::to_string(layout.headingsLine) + " to " +
               std::to_string(layout.headingsLine + layout.headingLines - 1);
    return layout.headingsLine > 1 ? "headings from line " + std::to_string(layout.headingsLine)
                                   : std::string();
}

} // namespace

std::string separatorName(char separator) {
    for (const auto& [sign, name] : kSeparators) {
        if (sign == separator) return std::string(name);
    }
    return {separator};
}

char separatorOf(std::string_view name) {
    for (const auto& [sign, word] : kSeparators) {
        if (word == name || (name.size() == 1 && name[0] == sign)) return sign;
    }
    const bool usable =
        name.size() == 1 && static_cast<unsigned char>(name[0]) > ' ' &&
        std::string_view("0123456789+-.\"'").find(name[0]) == std::string_view::npos;
    return usable ? name[0] : '\0';
}

std::string layoutSummary(const TextLayout& layout) {
    if (!layout.notATable.empty()) return {};
    std::vector<std::string> parts;
    if (!layout.plain) parts = {headingsSummary(layout), timeSummary(layout)};
    if (!layout.plain && layout.dialect.separator != ',')
        parts.push_back("separated by " + separatorName(layout.dialect.separator));
    if (layout.unitsLine > 0)
        parts.push_back("units from line " + std::to_string(layout.unitsLine));
    if (layout.plain) {
        // as the user writes them
    } else if (layout.groupingPoints) {
        parts.emplace_back("points group thousands");
    } else if (layout.decimal == ',') {
        parts.emplace_back("decimal comma");
    } else if (layout.otherDecimal) {
        parts.emplace_back("decimal point");
    }
    if (layout.mixedDecimals) parts.emplace_back("points and commas as decimal marks");
    if (layout.changedFieldsLine > 0)
        parts.push_back("another number of fields from line " +
                        std::to_string(layout.changedFieldsLine));
    if (!layout.furtherTables.empty())
        parts.push_back("further tables from line " +
                        listed<std::int64_t>(layout.furtherTables, 0, " and "));
    if (layout.footerLines > 0)
        parts.push_back(counted(layout.footerLines, "line") + " behind the data left out");
    if (!layout.comment.empty() && layout.comment != "#")
        parts.push_back("lines with " + layout.comment + " left out");
    if (layout.dialect.quote == '\'') parts.emplace_back("quoted with '");
    if (layout.dialect.blanks && layout.dialect.separator != Dialect::kBlankRuns)
        parts.emplace_back("fields padded with blanks");
    if (!layout.emptyColumns.empty())
        parts.push_back(counted(static_cast<std::int64_t>(layout.emptyColumns.size()), "column") +
                        " without name or value left out");
    std::string text;
    for (const std::string& part : parts) {
        if (part.empty()) continue;
        text += (text.empty() ? "" : ", ") + part;
    }
    if (!layout.plain && text.empty())
        text = "data from line " + std::to_string(layout.firstDataLine);
    if (!text.empty() && text[0] >= 'a' && text[0] <= 'z')
        text[0] = static_cast<char>(text[0] - 32);
    return text;
}

std::vector<std::pair<std::string, std::string>> layoutFacts(const TextLayout& layout) {
    std::vector<std::pair<std::string, std::string>> facts;
    const auto add = [&facts](const char* key, std::string value) {
        facts.emplace_back(key, std::move(value));
    };
    const std::string summary = layoutSummary(layout);
    add("layout", !layout.plain ? summary : summary.empty() ? "plain" : "plain; " + summary);
    add("encoding", layout.encoding);
    add("separator", separatorName(layout.dialect.separator));
    add("decimal", std::string(1, layout.decimal));
    add("mixed decimals", layout.mixedDecimals ? "yes" : "no");
    add("headings line", std::to_string(layout.headingsLine));
    add("headings lines", std::to_string(layout.headingLines));
    add("units line", std::to_string(layout.unitsLine));
    add("data line", std::to_string(layout.firstDataLine));
    add("time columns",
        layout.timeColumns.empty() ? "none" : listed<std::size_t>(layout.timeColumns, 1, ", "));
    add("time format", layout.timeForm.name());
    if (layout.timeGuessed) add("other time format", layout.otherTimeForm.name());
    std::string missing;
    for (const std::string& text : layout.missing)
        missing += (missing.empty() ? "" : ", ") + text;
    add("missing", missing);
    if (layout.changedFieldsLine > 0)
        add("field count changes at line", std::to_string(layout.changedFieldsLine));
    for (const std::int64_t line : layout.furtherTables)
        add("further table at line", std::to_string(line));
    return facts;
}

} // namespace pellam
