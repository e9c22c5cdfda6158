#include "delimited/sample/RecordReader.h"

#include "ScratchFolder.h"
#include "delimited/sample/FieldSplitter.h"

namespace pellam {
namespace {

TEST(FieldSplitterTest, TakesLinesApart) {
    const Dialect comma;
    const Dialect padded{',', '"', '"', true};
    const Dialect backslash{',', '"', '\\', false};
    const Dialect single{';', '\'', '\'', false};
    const Dialect blanks{Dialect::kBlankRuns, '"', '"', true};
    const Table<const char*, Dialect, const char*> lines = {
        {"a,,b,", comma, "a||b|"},
        {"", comma, ""},
        {"\"a,b\",c", comma, "a,b|c"},
        {"\"a \"\"x\"\", b\",c", comma, "a \"x\", b|c"},
        {"\"a\"b,c\",d", comma, "a\"b,c|d"},
        {"\"a,b", comma, "\"a|b"},
        {"5\" pipe,b", comma, "5\" pipe|b"},
        {"a , \" b \" ,c", padded, "a|b|c"},
        {"\"a\\\", b\",c", backslash, "a\", b|c"},
        {"'a;b';'10", single, "a;b|'10"},
        {"  1 \t 2  \"x y\"  3 ", blanks, "1|2|x y|3"},
    };
    for (const auto& [line, dialect, expected] : lines) {
        FieldSplitter splitter(line, dialect);
        std::string fields;
        bool first = true;
        for (FieldSplitter::Field field; splitter.next(field); first = false) {
            fields += (first ? "" : "|");
            fields += field.quoted ? withoutEscapes(field.text, dialect) : std::string(field.text);
        }
        EXPECT_EQ(fields, expected) << line;
    }
}

TEST(RecordReaderTest, JoinsLinesThatAQuotedFieldSpans) {
    std::string stray;
    std::string alone;
    for (int i = 0; i < 200; ++i) {
        stray += "\"" + std::to_string(i) + ",x\n";
        alone += std::to_string(i + 1) + ":\"" + std::to_string(i) + ",x;";
    }
    const Table<const char*, std::string, std::string> texts = {
        {"joined", "a,\"b\nc\r\nd\",e\nf\n", "1:a,\"b c d\",e;4:f;"},
        {"a stray mark joins nothing", "a,\"b\nc\nd\n", "1:a,\"b;2:c;3:d;"},
        {"marks in the text", "a,b\"\nc,d\"\n", "1:a,b\";2:c,d\";"},
        {"many stray marks", stray, alone},
    };
    const ScratchFolder folder;
    for (const auto& [what, text, expected] : texts) {
        LineReader lines;
        ASSERT_FALSE(lines.open(folder.write("a.csv", text), LineReader::LineEnds::AnyReturn));
        RecordReader records(lines, Dialect(), 1);
        std::string found;
        for (std::string_view record; records.next(record);)
            found += std::to_string(records.line()) + ':' + std::string(record) + ';';
        EXPECT_EQ(found, expected) << what;
    }
}

} // namespace
} // namespace pellam
