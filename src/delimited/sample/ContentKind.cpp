#include "delimited/sample/ContentKind.h"

#include "delimited/sample/SampleRecords.h"

#include <algorithm>
#include <cstddef>

namespace pellam {

namespace {

bool startsWith(std::string_view text, std::string_view lowerCase) {
    return text.size() >= lowerCase.size() &&
           std::equal(lowerCase.begin(), lowerCase.end(), text.begin(), [](char a, char b) {
               return a == (b >= 'A' && b <= 'Z' ? static_cast<char>(b + 32) : b);
           });
}

bool isBinary(std::string_view text) {
    const auto odd = std::count_if(text.begin(), text.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r' && byte != 0x0C &&
               byte != 0x1A && byte != 0x1B;
    });
    return static_cast<std::size_t>(odd) * 100 > text.size();
}

// '{' or '[' with a quoted key or another bracket behind it.
bool isJson(std::string_view text) {
    if (text.empty() || (text[0] != '{' && text[0] != '[')) return false;
    const std::size_t next = text.find_first_not_of(" \t\r\n", 1);
    if (next == std::string_view::npos) return false;
    if (text[0] == '[' && (text[next] == '{' || text[next] == '[')) return true;
    const std::size_t close = text[next] == '"' ? text.find('"', next + 1) : std::string_view::npos;
    if (close == std::string_view::npos) return false;
    const std::size_t behind = text.find_first_not_of(" \t\r\n", close + 1);
    return behind != std::string_view::npos && (text[0] == '[' || text[behind] == ':');
}

} // namespace

std::string_view contentKindOf(std::string_view text) {
    if (isBinary(text)) return "binary data";
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return {};
    text.remove_prefix(first);
    for (const std::string_view mark : {"<!doctype html", "<html", "<head", "<body"}) {
        if (startsWith(text, mark)) return "a web page";
    }
    if (startsWith(text, "<?xml") || startsWith(text, "<!--")) return "XML";
    if (startsWith(text, "{\\rtf")) return "a word processor's text";
    if (startsWith(text, "%pdf-")) return "a PDF document";
    return isJson(text) ? "JSON" : std::string_view();
}

bool isProse(const SampleRecords& records, const SampleTable& table) {
    constexpr std::size_t kFewLines = 5;
    std::size_t lines = 0;
    std::size_t words = 0;
    std::size_t fields = 0;
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (records[i].blank) continue;
        ++lines;
        fields += records[i].fields;
        words += 1 + static_cast<std::size_t>(
                         std::count(records[i].text.begin(), records[i].text.end(), ' '));
    }
    std::size_t rows = 0;
    for (std::size_t i = table.first; i < table.end; ++i) {
        if (records[i].readings > 0) return false;
        rows += !records[i].blank;
    }
    const bool loose = table.columns <= 1 || rows * 2 < lines || words >= 4 * fields;
    return lines >= kFewLines && words >= 3 * lines && loose;
}

} // namespace pellam
