#include "logger/TaggedDownload.h"
#include "ScratchFolder.h"
#include "ZoneScope.h"
#include "base/LineReader.h"

#include <filesystem>
#include <sstream>

namespace pellam {
namespace {

std::string download(const std::string& start, const std::string& interval,
                     const std::string& rows) {
    return "<start>" + start +
           "</start>\r\n<end>08/02/26 00:00:00</end>\r\nskipped\r\nskipped\r\n" + "<log interval>" +
           interval + "</log interval>\r\nTemp,Wind\r\n<data>\r\n" + rows;
}

TEST(TaggedDownload, CountsTheTimes) {
    // rows: the output behind its heading
    const Table<const char*, std::string, const char*> cases = {
        {"Minutes", download("08/02/25 11:53:15", "0000000 00:10:05", ">1.5>2\r\n>3>4\r\n"),
         "2008/02/25 11:53:15,1.5,2\r\n2008/02/25 12:03:20,3,4\r\n"},
        {"Days", download("08/02/28 23:00:00", "0000001 01:00:00", ">1\n>2\n"),
         "2008/02/28 23:00:00,1\r\n2008/03/01 00:00:00,2\r\n"},
        {"NoDaylightJump", download("08/03/09 01:30:00", "0 00:0001:00:00", ">1\n>2\n"),
         "2008/03/09 01:30:00,1\r\n2008/03/09 02:30:00,2\r\n"},
        {"ZeroMonthAndDay", download("09/00/00 00:00:01", "1", ">1\n"),
         "2009/01/01 00:00:01,1\r\n"},
        {"NoSuchDate", download("09/02/30 00:00:00", "1", ">1\n"), "2009/03/02 00:00:00,1\r\n"},
        {"ReadsOnPastTheEndTag", download("09/01/01 00:00:00", "1", ">1\n</data>\n>2"),
         "2009/01/01 00:00:00,1\r\n2009/01/02 00:00:00,2\r\n"},
        {"AbsurdNumbers", download("99999999999", "99999999999", ">1\n>2\n"),
         "9999/12/31 23:59:59,1\r\n9999/12/31 23:59:59,2\r\n"},
        {"BlankLinesAtTheEnd",
         download("09/01/01 00:00:00", "1",
                  ">1\r\n\r\n>3\r\n\r\n</data>\r\n  </download>\r\n \r\n"),
         "2009/01/01 00:00:00,1\r\n2009/01/02 00:00:00\r\n2009/01/03 00:00:00,3\r\n"},
        {"Indented",
         "  <start>08/02/25 11:53:15</start>\n\t<end></end>\n3\n4\n  <log interval>      0 00:10:00"
         "</log interval>\n  Temp,Wind\n  <data>\n  >1>2\n\t>3>4</data>\n  </data>\n",
         "2008/02/25 11:53:15,1,2\r\n2008/02/25 12:03:15,3,4\r\n"},
        {"FieldsStayWhole", download("09/01/01 00:00:00", "1", "1>2\n>1,5>\"a\"\n>\n>1>\n"),
         "2009/01/01 00:00:00,1,2\r\n2009/01/02 00:00:00,\"1,5\",\"a\"\r\n"
         "2009/01/03 00:00:00,\r\n2009/01/04 00:00:00,1,\r\n"},
        {"NoRows", download("09/01/01 00:00:00", "1", ""), ""},
    };
    const ZoneScope zone("America/New_York"); // has a clock change on 2008-03-09 at 02:00
    for (const auto& [name, input, rows] : cases) {
        const ScratchFolder folder;
        const std::string path = folder.write("site.txt", input);
        EXPECT_TRUE(isTaggedDownload(path)) << name;
        std::string output;
        EXPECT_EQ(convertTaggedDownloadBeside(path, output).text(), "") << name;
        EXPECT_EQ(output, folder.path("site.csv")) << name;
        EXPECT_EQ(folder.read("site.csv"), std::string("Time,Temp,Wind\r\n") + rows) << name;
        EXPECT_EQ(folder.list(), "site.csv site.txt");
    }
}

TEST(TaggedDownload, RefusesWhatIsNoDownloadAndLeavesTheOldOutput) {
    const ScratchFolder folder;
    folder.write("cut.csv", "old");
    std::string output;
    const auto convert = [&](const std::string& path) {
        return convertTaggedDownloadBeside(path, output);
    };
    const Failure failure = convert(folder.write("cut.txt", "<start></start>\n2\n3\n4\n5\n6\n"));
    EXPECT_EQ(failure.kind, Failure::Kind::Format);
    EXPECT_NE(failure.text().find("seven lines"), std::string::npos) << failure.text();
    folder.write("other.txt", "Time,A\n1\n2\n3\n4\n5\n6\n7\n8\n");
    EXPECT_EQ(convert(folder.path("other.txt")).kind, Failure::Kind::Format);
    EXPECT_FALSE(isTaggedDownload(folder.path("other.txt")) ||
                 isTaggedDownload(folder.path("cut.txt")));
    EXPECT_EQ(folder.list(), "cut.csv cut.txt other.txt");
    EXPECT_EQ(folder.read("cut.csv"), "old");
    std::string noDataTag = download("09/01/01 00:00:00", "1", ">2\n");
    noDataTag.replace(noDataTag.find("<data>"), 6, ">1");
    for (const std::string& text :
         {download("", "1", ">1\n"), download("09/01/01", "soon", ">1\n"), noDataTag})
        EXPECT_EQ(convert(folder.write("head.txt", text)).kind, Failure::Kind::Format) << text;
    EXPECT_EQ(folder.list(), "cut.csv cut.txt head.txt other.txt");
    EXPECT_EQ(convert(folder.path()).kind, Failure::Kind::NotAFile);
    EXPECT_EQ(convert(folder.path("none.txt")).kind, Failure::Kind::Open);
}

TEST(TaggedDownload, ManyRowsAreAllWrittenOrTheFailureIsTold) {
    const ScratchFolder folder;
    std::string rows;
    for (int i = 0; i < 20000; ++i)
        rows += '>' + std::to_string(i) + '\n';
    const std::string path = folder.write("site.txt", download("09/01/01 00:00:00", "1", rows));
    ASSERT_FALSE(convertTaggedDownload(path, folder.path("site.csv")));
    std::istringstream written(folder.read("site.csv"));
    std::string line;
    std::getline(written, line);
    for (int i = 0; i < 20000; ++i) {
        std::getline(written, line);
        ASSERT_TRUE(line.ends_with(',' + std::to_string(i) + '\r')) << line;
    }
    EXPECT_FALSE(std::getline(written, line));
    std::filesystem::create_symlink("/dev/full", folder.path("full.csv"));
    EXPECT_EQ(convertTaggedDownload(path, folder.path("full.csv")).kind, Failure::Kind::Full);
}

TEST(TaggedDownload, ReplacesNoFileAndUsesItsOwnAgain) {
    const ScratchFolder folder;
    folder.write("site.csv", "mine");
    const std::string path = folder.write("site.txt", download("09/01/01 00:00:00", "1", ">1\n"));
    for (int i = 0; i < 2; ++i) {
        std::string output;
        EXPECT_FALSE(convertTaggedDownloadBeside(path, output));
        EXPECT_EQ(output, folder.path("site (2).csv"));
        EXPECT_EQ(folder.read("site.csv"), "mine");
        EXPECT_EQ(folder.list(), "site (2).csv site.csv site.txt");
    }
}

TEST(TaggedDownload, TellsOfALineThatWasCut) {
    const ScratchFolder folder;
    const std::string path = folder.write(
        "site.txt", download("09/01/01 00:00:00", "1",
                             '>' + std::string(LineReader::kMaximumLine, '1') + "\n>2\n"));
    std::string output;
    const Failure failure = convertTaggedDownloadBeside(path, output);
    EXPECT_NE(failure.text().find("line 8 is too long"), std::string::npos) << failure.text();
    EXPECT_TRUE(folder.read("site.csv").ends_with("\r\n2009/01/02 00:00:00,2\r\n"));
}

TEST(TaggedDownload, NeverNamesItsInput) {
    EXPECT_EQ(taggedDownloadOutput("/data.txt/site.TXT"), "/data.txt/site.csv");
    EXPECT_EQ(taggedDownloadOutput("/data.txt/site"), "/data.txt/site.csv");
    EXPECT_EQ(taggedDownloadOutput("site.txt.old"), "site.csv.old");
    EXPECT_EQ(taggedDownloadOutput("site.csv"), "site.csv.csv");
}

} // namespace
} // namespace pellam
