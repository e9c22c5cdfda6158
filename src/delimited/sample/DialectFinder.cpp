#include "delimited/sample/DialectFinder.h"

#include "delimited/sample/FieldSplitter.h"
#include "delimited/sample/SampleRecords.h"

#include <algorithm>
#include <array>
#include <optional>

namespace pellam {

namespace {

constexpr double kBlanksPenalty = 0.75; ///< blanks stand in dates and names, too
constexpr double kExpectedBonus = 1.02;

// The separator that a spreadsheet's first line declares: "sep=;".
std::optional<char> declaredSeparator(std::string_view text) {
    if (text.size() < 5 || (text.substr(0, 4) != "sep=" && text.substr(0, 4) != "SEP="))
        return std::nullopt;
    const char behind = text.size() > 5 ? text[5] : '\n';
    if (behind != '\n' && behind != '\r') return std::nullopt;
    return text[4];
}

bool isUsed(std::string_view text, char separator) {
    if (separator != Dialect::kBlankRuns) return text.find(separator) != std::string_view::npos;
    return text.find_first_of(" \t") != std::string_view::npos;
}

// Semicolons of one number in every line part fields; blanks beside them group thousands or words.
bool isPartedBySemicolons(std::string_view text) {
    std::ptrdiff_t usual = -1;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        if (trimmed(line).empty() || line == "\r") continue;
        const std::ptrdiff_t count = std::count(line.begin(), line.end(), ';');
        if (count == 0 || (usual >= 0 && count != usual)) return false;
        usual = count;
    }
    return usual > 0;
}

// What kind of quotation marks and escapes the fields have.
Dialect refine(const SampleRecords& records, const SampleTable& table) {
    Dialect dialect = records.dialect();
    std::size_t single = 0;
    std::size_t fields = 0;
    bool doubleQuotes = false;
    bool padded = false;
    for (std::size_t i = table.first; i < std::min(table.end, table.first + 200); ++i) {
        for (const SampleField& field : records.fields(i)) {
            const std::string_view text = field.text;
            doubleQuotes = doubleQuotes || field.quoted;
            padded = padded || field.padded;
            single += text.size() >= 2 && text.front() == '\'' && text.back() == '\'';
            fields += !text.empty();
        }
    }
    dialect.blanks = padded || dialect.separator == Dialect::kBlankRuns;
    if (!doubleQuotes && single * 4 > fields) dialect.quote = dialect.escape = '\'';
    return dialect;
}

} // namespace

FoundDialect findDialect(std::string_view text, char expected, std::optional<char> wished,
                         std::optional<char> quote) {
    std::optional<char> declared = wished ? wished : declaredSeparator(text);
    if (!declared && !isUsed(text, expected) && isPartedBySemicolons(text)) declared = ';';
    FoundDialect best;
    double bestScore = -1;
    Dialect dialect;
    if (text.find("\\\"") != std::string_view::npos) dialect.escape = '\\';
    for (const char separator : {expected, ',', ';', '\t', '|', Dialect::kBlankRuns}) {
        if (declared && separator != *declared) continue;
        if (bestScore >= 0 && (separator == expected || !isUsed(text, separator))) continue;
        dialect.separator = separator;
        auto records = std::make_unique<SampleRecords>(text, dialect);
        SampleTable table = findTable(*records);
        double score = table.score;
        if (separator == Dialect::kBlankRuns) score *= kBlanksPenalty;
        if (separator == expected) score *= kExpectedBonus;
        if (score <= bestScore) continue;
        bestScore = score;
        best = {std::move(records), std::move(table)};
    }
    if (!best.records) {
        // A declared separator that is none of the usual ones.
        dialect.separator = declared.value_or(expected);
        best.records = std::make_unique<SampleRecords>(text, dialect);
        best.table = findTable(*best.records);
    }
    Dialect refined = refine(*best.records, best.table);
    if (quote) {
        if (refined.escape == refined.quote) refined.escape = *quote;
        refined.quote = *quote;
    }
    if (refined != best.records->dialect()) {
        best.records = std::make_unique<SampleRecords>(text, refined);
        best.table = findTable(*best.records);
    }
    return best;
}

} // namespace pellam
