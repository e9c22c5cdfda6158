#include "base/FieldScanner.h"

#include <random>
#include <string>

namespace pellam {
namespace {

std::string fieldsOf(const std::string& line, FieldScanner::Quotes quotes) {
    const std::string padded = line + std::string(64, ',');
    FieldScanner scanner(std::string_view(padded).substr(0, line.size()), ',', quotes);
    std::string shown;
    std::string_view field;
    while (scanner.next(field))
        shown += "[" + std::string(field) + "]";
    return shown;
}

TEST(FieldScanner, TakesLinesApart) {
    const Table<const char*, std::string, FieldScanner::Quotes, std::string> cases = {
        {"empty line", "", FieldScanner::Quotes::Plain, "[]"},
        {"empty fields keep their place", ",a,,b,", FieldScanner::Quotes::Plain, "[][a][][b][]"},
        {"separator in quotes", "a,\"b,c\",d", FieldScanner::Quotes::Group, "[a][\"b,c\"][d]"},
        {"quotes as characters", "a,\"b,c\",d", FieldScanner::Quotes::Plain, "[a][\"b][c\"][d]"},
        {"doubled quotes", "\"5\"\" pipe, red\",x", FieldScanner::Quotes::Group,
         "[\"5\"\" pipe, red\"][x]"},
        {"blanks before a quote", "  \"a,b\" , x", FieldScanner::Quotes::Group, "[  \"a,b\" ][ x]"},
        {"text behind the closing quote", "\"a\";1A,b", FieldScanner::Quotes::Group,
         "[\"a\";1A][b]"},
        {"no closing quote", "\"a,b", FieldScanner::Quotes::Group, "[\"a][b]"},
        {"quoted at the end", "a,\"b\"", FieldScanner::Quotes::Group, "[a][\"b\"]"},
        {"quoted, then an empty field", "\"b\",", FieldScanner::Quotes::Group, "[\"b\"][]"},
        {"quote inside a field", "a\"b,c\"d", FieldScanner::Quotes::Group, "[a\"b][c\"d]"},
    };
    for (const auto& [name, line, quotes, expected] : cases)
        EXPECT_EQ(fieldsOf(line, quotes), expected) << name;
}

TEST(FieldScanner, AgreesWithASearchForEverySeparatorAtEveryLength) {
    std::mt19937 random(11);
    for (std::size_t length = 0; length < 300; ++length) {
        std::string line;
        for (std::size_t i = 0; i < length; ++i)
            line += random() % 9 ? 'x' : ',';
        std::string expected = "[" + line + "]";
        for (std::size_t at = 1; (at = expected.find(',', at)) != std::string::npos; at += 2) {
            expected.replace(at, 1, "][");
        }
        ASSERT_EQ(fieldsOf(line, FieldScanner::Quotes::Plain), expected);
        ASSERT_EQ(fieldsOf(line, FieldScanner::Quotes::Group), expected);
    }
}

} // namespace
} // namespace pellam
