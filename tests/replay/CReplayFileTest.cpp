#include "replay/file/CReplayFile.h"
#include "LoadHarness.h"
#include "ScratchFolder.h"

#include <array>
#include <cstring>

namespace pellam {
namespace {

constexpr const char* kFull = "%Y/%m/%d %H:%M:%S";

class ReplayFileTest : public testing::Test {
  protected:
    CReplayFile open(const std::string& bytes, const std::string& name = "file.dlr") {
        return {folder.write(name, bytes), messages};
    }

    // Header facts and the line that the file stands on.
    static std::string shown(CReplayFile& file) {
        std::string_view line = "(end)";
        file.reader().next(line);
        return "crypt " + std::to_string(file.CryptState()) + ", type " +
               std::to_string(file.ContentsType()) + ", header " +
               std::to_string(file.HeaderLineCount()) + ", lines " +
               std::to_string(file.LineCount()) + ", name [" + file.ProgramName() + "], from [" +
               file.GetOriginatorType() + "], map [" + file.GetDataMap() + "], at " +
               std::string(line.substr(0, line.find_last_not_of("\r\n") + 1));
    }

    ZoneScope zone{"UTC"};
    ScratchFolder folder;
    test::RecordedMessages messages;
};

TEST_F(ReplayFileTest, ReadsTheFactsOfEveryHeader) {
    const Table<const char*, const char*, const char*> rows = {
        {"tagged",
         "<Crypt>No</Crypt>\r\n<Type>Data</Type>\r\n<Description>\"Mast 7\"\r\n"
         "<IDATA_MAP type=\"ql5xx\">\r\nS,1,map\r\n<ALL_DATA>\r\nD,1\r\nD,2\r\n",
         "crypt 0, type 0, header 6, lines 2, name [Mast 7], from [ql5xx], map [S,1,map], at D,1"},
        {"generated",
         "Descriptor\nName \"Hembric\"\nLock N\nDesc \"May\"\nEndDescriptor\n\n<IDATA_MAP>\n"
         "S,0,0,10:0\n\n<ALL_DATA>\nD,1\n",
         "crypt 0, type -1, header 10, lines 1, name [May], from [], map [S,0,0,10:0], at D,1"},
        {"older", "Desc \"cut\nS,old,map\nD,1\nS,2\nD,2",
         "crypt 0, type -1, header 2, lines 3, name [cut], from [Unknown], map [S,old,map], at "
         "D,1"},
        {"second crypt line", "<Crypt>\n<Crypt>Yes\n<Type>Alarm\n<Type>Data\n<ALL_DATA>\nA,1",
         "crypt 1, type 1, header 5, lines 1, name [], from [Unknown], map [], at A,1"},
        {"crypt in the data", "<ALL_DATA>\n<Crypt>Yes\n",
         "crypt 0, type -1, header 1, lines 1, name [], from [Unknown], map [], at <Crypt>Yes"},
        {"no mark", "<Type>Data\nDesc \"x\"\nD,1\n",
         "crypt 0, type -1, header 0, lines 3, name [], from [Unknown], map [], at <Type>Data"},
        {"short map", "<IDATA_MAP type=\"ql810\">\nS,1\n<ALL_DATA\n",
         "crypt 0, type -1, header 3, lines 0, name [], from [ql810], map [], at (end)"},
        {"data before the tag", "<IDATA_MAP type=ql810>\nS,12345\nS,second\nD,1\n",
         "crypt 0, type -1, header 0, lines 4, name [], from [Unknown], map [], at "
         "<IDATA_MAP type=ql810>"},
        {"empty", "",
         "crypt 0, type -1, header 0, lines 0, name [], from [Unknown], map [], at (end)"},
    };
    for (const auto& [name, bytes, facts] : rows) {
        CReplayFile file = open(bytes);
        ASSERT_TRUE(file.isOpen()) << name;
        EXPECT_EQ(shown(file), facts) << name;
    }
    EXPECT_EQ(messages.texts, "");
}

TEST_F(ReplayFileTest, LargeFileIsNeitherCountedNorNamed) {
    std::string bytes = "<Type>Alarm\nDesc \"x\"\n<IDATA_MAP type=\"t\">\nS,12345\n<ALL_DATA>\n"
                        "D,1,2008/02/25,12:00:00,0,1:A\n";
    bytes.resize(16'384'000, '\n');
    EXPECT_EQ(open(bytes).ContentsType(), 1);
    bytes += '\n';
    CReplayFile file = open(bytes);
    EXPECT_TRUE(file.isLarge());
    EXPECT_EQ(shown(file),
              "crypt 0, type -1, header 5, lines 999999, name [], from [t], map [S,12345], at "
              "D,1,2008/02/25,12:00:00,0,1:A");
}

TEST_F(ReplayFileTest, DataMapOfThousandsOfChannelsComesWhole) {
    std::string map = "S,0,0,10:0,1989,1,0,\"\",<A,\"60lS\",G";
    for (int i = 0; i < 5000; ++i)
        map += ",<\"Channel" + std::to_string(i) + "\",\"C\",0,0,8,4,1>";
    CReplayFile file = open("<IDATA_MAP>\n" + map + ">:\n\n<ALL_DATA>\nD,1\n");
    EXPECT_EQ(file.GetDataMap(), map + ">:");
}

TEST_F(ReplayFileTest, ReadsStringsInPieces) {
    CReplayFile file = open("<ALL_DATA>\nabcdefg\r\nh");
    std::array<char, 5> buffer;
    std::string pieces;
    while (file.ReadString(buffer.data(), 4))
        pieces += std::string("[") + buffer.data() + "]";
    EXPECT_EQ(pieces, "[abcd][efg\r][\n][h]");
    file.SeekToBegin();
    ASSERT_NE(file.ReadString(buffer.data(), 4), nullptr);
    EXPECT_STREQ(buffer.data(), "<ALL");
    EXPECT_EQ(file.SeekToStartOfData(), 1);
    ASSERT_NE(file.ReadString(buffer.data(), 4), nullptr);
    EXPECT_STREQ(buffer.data(), "abcd");
}

TEST_F(ReplayFileTest, ExtractsTimes) {
    const std::pair<const char*, const char*> rows[] = {
        {"D,1,2008/02/25,12:00:05.5,0.0,1:A,3", "2008/02/25 12:00:05 500000"},
        {"D,1,2008/02/25,12:00:05,0.000488,1:A", "2008/02/25 12:00:05 488"},
        {"D,1,2008/02/25,12:00:05,1,1:A,7.25", "2008/02/25 12:00:06 25"},
        {"D,1,\"text\",2008/02/25,12:00:05,0.0,1:A", "2008/02/25 12:00:05 0"},
        {"[12][x]D,1,2008/02/25,12:00:05,0.0,1:A", "2008/02/25 12:00:05 0"},
        {"D,1,2008/02/25", "2008/02/25 00:00:00 0"},
        {"D,1,604414800.25,1:A,3", "2008/02/26 13:00:00 250000"},
        {"D,1,604414800,1:A,3/4", "1970/01/01 00:00:00 0"},
        {"D,1,abc,1:A", "1989/01/01 00:00:00 0"},
        {"D,1", "1970/01/01 00:00:00 0"},
        {"D,1,\"text\"", "1970/01/01 00:00:00 0"},
        {"[", "1970/01/01 00:00:00 0"},
    };
    for (const auto& [line, time] : rows) {
        const CMyTime found = CReplayFile::ExtractTime(line, {});
        EXPECT_EQ(found.Format(kFull) + ' ' + std::to_string(found.GetMicroSecond()), time) << line;
    }
}

TEST_F(ReplayFileTest, CorrectsTimesForTheZone) {
    const ZoneScope york("America/New_York");
    const std::pair<const char*, const char*> rows[] = {
        {"D,9,2008/07/04,12:00:00,0.0", "2008/07/04 12:00:00"},
        {"D,1,615729600,1:A", "2008/07/06 12:00:00"},
        {"D,1,602337600,1:A", "2008/02/02 12:00:00"},
    };
    for (const auto& [line, time] : rows)
        EXPECT_EQ(CReplayFile::ExtractTime(line, {18000, -3600}).Format(kFull), time);
}

TEST_F(ReplayFileTest, StripsTheMapToTheSchedulesOfTheData) {
    // "=" when it must be unchanged
    const Table<const char*, const char*, const char*> rows = {
        {",1:A,", "h<A,\"q<a<b>>><B,\"r>", "h<A,q<a<b>>>:"},
        {",0:B,\n,1;K", "h<A,\"q><B,\"r<x>>", "h<B,r<x>><K>:"},
        {",1:X\n,0;V\n,1:A", "h,14;<X,\"x><V,\"v>", "h,14;<A><X,x><V,v>:"},
        {",1:V\n,1:X", "h<A,\"q>", "h<X>:"},
        {",1:A", "h<A,\"q<a", "h<A,q<a:"},
        {",1:A", "h<A,", "h<A,:"},
        {",1:Z\n,1:@\n,1:L\n,1:", "h<A,\"q>", "h:"},
        {",1:B,0:A", "h<A><B,\"r>>>", "h<B,r>:"},
        {",1:A\n,1:B", "h<B,\"b><C,\"c><A,\"a>", "h<A,a><B,b>:"},
        {",1:X\n,1:S\n,1:A", "h,14;<S,\"s><A,\"a><X,\"x>", "h,14;<A,a><X,x><S,s>:"},
        {",1:X", "h,14;<X,\"x><S,\"s>", "h,14;<X,x>:"},
        {",1:A", "h<B,\"r>", "="},
        {",1:A", "h,14;<A,\"r>", "="},
    };
    for (const auto& [data, map, stripped] : rows) {
        CReplayFile file = open(std::string("<ALL_DATA>\n") + data);
        std::string changed = map;
        const bool unchanged = std::strcmp(stripped, "=") == 0;
        EXPECT_EQ(file.StripDataMap(changed), unchanged ? 0 : 1) << map;
        EXPECT_EQ(changed, unchanged ? map : stripped);
    }
}

TEST_F(ReplayFileTest, TellsWhatItCanNotOpen) {
    const std::string enciphered = folder.write("x.dlx.1", "<ALL_DATA>\n");
    for (const std::string& path : {folder.path("none.dlr"), folder.path(), enciphered,
                                    std::string("/dev/null"), folder.path("none.sig")}) {
        messages.texts.clear();
        const CReplayFile file(path, messages);
        EXPECT_FALSE(file.isOpen()) << path;
        EXPECT_EQ(messages.texts, "Warning: Can not open replay file\n") << path;
    }
    EXPECT_TRUE(CReplayFile('"' + folder.write("q.dlr", "") + '"', messages).isOpen());
}

} // namespace
} // namespace pellam
