#include "base/LineReader.h"
#include "ScratchFolder.h"
#include "base/Utf8.h"

#include <sys/stat.h>

namespace pellam {
namespace {

class LineReaderTest : public testing::Test {
  protected:
    // Lines as [text], with their line ends shown as r and n.
    static std::string shown(LineReader& reader) {
        std::string all;
        std::string_view line;
        while (reader.next(line)) {
            all += '[';
            for (const char c : line)
                all += c == '\n' ? 'n' : c == '\r' ? 'r' : c;
            all += ']';
        }
        return all;
    }

    ScratchFolder m_folder;
};

std::string utf16(const std::string& ascii, bool little) {
    std::string bytes;
    for (const char c : ascii)
        bytes += little ? std::string{c, '\0'} : std::string{'\0', c};
    return bytes;
}

TEST_F(LineReaderTest, ServesLinesOfEveryEncodingAndLineEnd) {
    using Ends = LineReader::LineEnds;
    const std::string text = "time,value one two three\n1,2\n";
    const std::string once = "[time,value one two threen][1,2n]";
    const std::string three = once + once + once;
    const Table<const char*, std::string, Ends, std::string> cases = {
        {"empty", "", Ends::LineFeed, ""},
        {"no last line end", "A\nB", Ends::LineFeed, "[An][B]"},
        {"crlf", "A\r\nB\r\n", Ends::LineFeed, "[Arn][Brn]"},
        {"empty lines", "\n\nA\n", Ends::LineFeed, "[n][n][An]"},
        {"returns end lines", "A\rB\r\nC\nD\r", Ends::AnyReturn, "[Ar][Brn][Cn][Dr]"},
        {"returns do not end lines", "A\rB\n", Ends::LineFeed, "[ArBn]"},
        {"utf-8 mark", "\357\273\277A\n", Ends::LineFeed, "[An]"},
        {"utf-16 little with mark", "\xFF\xFE" + utf16(text, true), Ends::LineFeed, once},
        {"utf-16 big with mark", "\xFE\xFF" + utf16(text, false), Ends::LineFeed, once},
        {"utf-16 little without mark", utf16(text, true), Ends::LineFeed, once},
        {"utf-16 big without mark", utf16(text, false), Ends::LineFeed, once},
        {"utf-16 without mark, cut, with a few letters of other scripts",
         utf16(text + text + text, true) + std::string("\x0D\x54\x00\x4E\n\0x", 7), Ends::LineFeed,
         three + "[\xE5\x90\x8D\xE4\xB8\x80n]"},
        {"utf-16 pair", std::string("\xFF\xFE\x3D\xD8\x00\xDE", 6), Ends::LineFeed,
         "[\xF0\x9F\x98\x80]"},
        {"zero bytes are data", std::string("A\0B\n", 4), Ends::LineFeed,
         std::string("[A\0Bn]", 6)},
    };
    for (const auto& [name, bytes, ends, expected] : cases) {
        LineReader reader;
        ASSERT_FALSE(reader.open(m_folder.write("file.txt", bytes), ends)) << name;
        EXPECT_EQ(shown(reader), expected) << name;
        EXPECT_EQ(reader.bytesRead(), reader.fileSize()) << name;
        reader.rewind();
        EXPECT_EQ(shown(reader), expected) << name << " again";
    }
}

TEST_F(LineReaderTest, CutsAndCountsLinesBeyondTheLimit) {
    const volatile std::size_t limit = LineReader::kMaximumLine; // the compiler must not count
    const std::string most = std::to_string(limit);
    using Ends = LineReader::LineEnds;
    const Table<const char*, std::string, Ends, std::string> cases = {
        {"whole", std::string(limit - 2, 'x') + "\r\ny\n", Ends::LineFeed, most + " 2 / 0 0"},
        {"its line end alone beyond", std::string(limit, 'x') + "\r\ny", Ends::AnyReturn,
         most + " 1 / 0 0"},
        {"at the end of the file", "a\n" + std::string(limit, 'x'), Ends::LineFeed,
         "2 " + most + " / 0 0"},
        {"one byte more", "a\n" + std::string(limit + 1, 'x') + "\ny\n", Ends::LineFeed,
         "2 " + most + " 2 / 1 2"},
        {"twice, up to a return",
         std::string(limit * 2 + 5, 'x') + '\r' + std::string(limit, 'y') + "z", Ends::AnyReturn,
         most + " " + most + " / 2 1"},
    };
    for (const auto& [name, bytes, ends, expected] : cases) {
        LineReader reader;
        ASSERT_FALSE(reader.open(m_folder.write("file.txt", bytes), ends)) << name;
        for (int pass = 0; pass < 2; ++pass, reader.rewind()) {
            std::string_view line;
            std::string lengths;
            while (reader.next(line))
                lengths += std::to_string(line.size()) + " ";
            lengths += "/ " + std::to_string(reader.cutLines()) + " " +
                       std::to_string(reader.firstCutLine());
            EXPECT_EQ(lengths, expected) << name;
            EXPECT_EQ(reader.bytesRead(), reader.fileSize()) << name;
        }
    }
}

TEST_F(LineReaderTest, LinesAcrossBlocksStayWhole) {
    std::string bytes;
    for (int i = 0; i < 40'000; ++i)
        bytes += std::to_string(i) + ";" + std::string(i % 97, 'z') + "\r\n";
    LineReader reader;
    ASSERT_FALSE(reader.open(m_folder.write("file.txt", bytes), LineReader::LineEnds::AnyReturn));
    std::string joined;
    std::string_view line;
    int count = 0;
    while (reader.next(line)) {
        ASSERT_TRUE(line.starts_with(std::to_string(count) + ";"));
        ++count;
        joined += line;
    }
    EXPECT_EQ(count, 40'000);
    EXPECT_EQ(joined, bytes);
}

TEST_F(LineReaderTest, RefusesWhatIsNoRegularFile) {
    const std::string pipe = m_folder.path("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const Table<std::string, Failure::Kind> cases = {
        {m_folder.path(), Failure::Kind::NotAFile},
        {pipe, Failure::Kind::NotAFile},
        {"/dev/zero", Failure::Kind::NotAFile},
        {m_folder.path("missing"), Failure::Kind::Open}};
    for (const auto& [path, kind] : cases) {
        LineReader reader;
        const Failure failure = reader.open(path);
        EXPECT_EQ(failure.kind, kind) << path;
        EXPECT_NE(failure.text().find(path), std::string::npos);
        EXPECT_FALSE(reader.isOpen());
    }
}

TEST(Utf8, TellsWellFormedTextAndReadsTheRestAsWindows1252) {
    const Table<const char*, const char*> cases = {
        {"plain", "plain"},
        {"°C", "°C"},
        {"20 \260C \x80", "20 °C €"},
        {"\xC0\xAF", "\xC3\x80\xC2\xAF"},
        {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xE2\x82\xAC"},
        {"\xF4\x90\x80\x80", "\xC3\xB4\xC2\x90\xE2\x82\xAC\xE2\x82\xAC"},
        {"cut \xE2\x82", "cut \xC3\xA2\xE2\x80\x9A"},
        {"eight by\xC3\xA9te", "eight by\xC3\xA9te"},
    };
    for (const auto& [bytes, expected] : cases)
        EXPECT_EQ(toUtf8(bytes), expected);
}

} // namespace
} // namespace pellam
