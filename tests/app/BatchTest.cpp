#include "BatchFixture.h"

#include <algorithm>
#include <sys/stat.h>

namespace pellam {
namespace {

using BatchTest = BatchFixture;

TEST_F(BatchTest, ExportGivesTheGridAndNothingElse) {
    EXPECT_EQ(run("--export out.csv --export=out.TXT mast.csv"), 0);
    EXPECT_EQ(m_out + m_err, "");
    EXPECT_EQ(m_folder.read("out.csv"), "Time,Temp(degC),Wind(m/s),\r\n"
                                        "2008/02/25 11:53:15,12.5,3,\r\n"
                                        "2008/02/25 11:54:15,13.25,Calm,\r\n");
    EXPECT_EQ(m_folder.read("out.TXT"), "Time\tTemp(degC)\tWind(m/s)\t\r\n"
                                        "2008/02/25 11:53:15\t12.5\t3\t\r\n"
                                        "2008/02/25 11:54:15\t13.25\tCalm\t\r\n");
}

TEST_F(BatchTest, SettingsFileDecidesTheSeparators) {
    m_folder.write("comma.ini", "[intl]\nsDecimal=,\n");
    m_folder.write("de.csv", "Time;Temp\n2008/02/25 11:53:15;12,50\n");
    EXPECT_EQ(run("--settings comma.ini --export out.csv de.csv"), 0) << m_err;
    EXPECT_EQ(m_folder.read("out.csv"), "Time;Temp;\r\n2008/02/25 11:53:15;12,5;\r\n");
    EXPECT_EQ(run("--settings gone.ini --export gone.csv de.csv"), 1);
    EXPECT_EQ(m_err, "gone.ini can not be opened: No such file or directory.\n");
    EXPECT_EQ(m_folder.list(), "comma.ini de.csv house.ini mast.csv out.csv");
}

TEST_F(BatchTest, InfoTellsTheFacts) {
    EXPECT_EQ(run("--info mast.csv"), 0) << m_err;
    EXPECT_EQ(m_out, "file: mast.csv\nsize: 88\nkind: delimited\ncrypt state: 0\n"
                     "contents type: -1\noriginator type: \ndescription: \nline count: 0\n"
                     "first time: 2008/02/25 11:53:15\nlast time: 2008/02/25 11:54:15\nrows: "
                     "2\nchannels: 2\ndamaged lines: 0\n"
                     "channel: Temp(degC)\nchannel: Wind(m/s)\n"
                     "layout: plain\nencoding: UTF-8\nseparator: comma\ndecimal: .\n"
                     "mixed decimals: no\nheadings line: 1\nheadings lines: 1\nunits line: 0\n"
                     "data line: 2\ntime columns: 1\ntime format: yyyy/MM/dd HH:mm:ss\n"
                     "missing: \n");
}

TEST_F(BatchTest, ChannelsNarrowASmallFileToo) {
    EXPECT_EQ(run("--channels 'W*' --info --export out.csv mast.csv"), 0) << m_err;
    EXPECT_NE(m_out.find("channels: 1\ndamaged lines: 0\nchannel: Wind(m/s)\n"), std::string::npos);
    EXPECT_EQ(m_folder.read("out.csv"), "Time,Wind(m/s),\r\n"
                                        "2008/02/25 11:53:15,3,\r\n"
                                        "2008/02/25 11:54:15,Calm,\r\n");
    EXPECT_EQ(run("--channels None --export none.csv mast.csv"), 1);
    EXPECT_EQ(m_err, "Attention: No channels selected\n");
    EXPECT_EQ(m_folder.read("none.csv"), "(missing)");
}

TEST_F(BatchTest, HelpVersionAndWrongUsageNeedNoDisplay) {
    EXPECT_EQ(run("--exprot a.csv mast.csv"), 2);
    EXPECT_EQ(m_out, "");
    EXPECT_EQ(m_err, "pellam: --exprot is no option of this program\n"
                     "usage: pellam [OPTIONS] [FILE]; pellam --help lists the options\n");
    EXPECT_EQ(run("--help"), 0);
    EXPECT_TRUE(m_out.starts_with("pellam [OPTIONS] [FILE]"));
    EXPECT_EQ(run("-v"), 0);
    EXPECT_EQ(m_out, "pellam " PELLAM_VERSION "\n");
}

TEST_F(BatchTest, FilesThatCanNotBeLoaded) {
    std::filesystem::create_directory(m_folder.path("folder.csv"));
    for (const char* file : {"missing.csv", "missing.dlr", "folder.csv", "/dev/null", "old.dbr"}) {
        EXPECT_EQ(run(std::string("--export out.csv --info ") + file), 1) << file;
        EXPECT_NE(m_err.find(file), std::string::npos) << m_err;
        EXPECT_EQ(m_out, "") << file;
        EXPECT_EQ(m_folder.read("out.csv"), "(missing)") << file;
    }
}

TEST_F(BatchTest, FailedExportKeepsTheEarlierFileAndGoesOn) {
    std::filesystem::create_symlink("/dev/full", m_folder.path("full.csv"));
    EXPECT_EQ(run("--export full.csv --export no/such.csv --export good.txt mast.csv"), 1);
    EXPECT_EQ(m_err, "full.csv can not be written, the disk is full: No space left on device.\n"
                     "no/such.csv can not be written: No such file or directory.\n");
    EXPECT_NE(m_folder.read("good.txt"), "(missing)");
    const std::string before = m_folder.read("mast.csv");
    EXPECT_EQ(run("--export ./mast.csv mast.csv"), 1);
    EXPECT_EQ(m_err, "./mast.csv can not be written: it is the file that was loaded.\n");
    EXPECT_EQ(m_folder.read("mast.csv"), before);
    EXPECT_EQ(m_folder.list(), "full.csv good.txt house.ini mast.csv");
}

TEST_F(BatchTest, StandardOutputTakesAnExportOrADump) {
    const std::string csv = "Time,Temp(degC),Wind(m/s),\r\n"
                            "2008/02/25 11:53:15,12.5,3,\r\n"
                            "2008/02/25 11:54:15,13.25,Calm,\r\n";
    EXPECT_EQ(run("--export - mast.csv"), 0) << m_err;
    EXPECT_EQ(m_out, csv);
    EXPECT_EQ(run("--export - mast.csv | cat"), 0) << m_err;
    EXPECT_EQ(m_out, csv);
    EXPECT_EQ(run("--format txt --export - --channels Wind* mast.csv"), 0) << m_err;
    EXPECT_EQ(m_out, "Time\tWind(m/s)\t\r\n2008/02/25 11:53:15\t3\t\r\n"
                     "2008/02/25 11:54:15\tCalm\t\r\n");
    // The shell's own file goes on, and is the same file afterwards.
    const std::string log = m_folder.write("log", "before\n");
    EXPECT_EQ(::link(log.c_str(), m_folder.path("second-name").c_str()), 0);
    EXPECT_EQ(run("--export /dev/stdout mast.csv >>log"), 0) << m_err;
    EXPECT_EQ(m_folder.read("second-name"), "before\n" + csv);
    EXPECT_EQ(run("--dump - --header '" PELLAM_SAMPLES "/tank-gauge.dbd' >>log"), 0) << m_err;
    EXPECT_EQ(m_folder.read("second-name").substr(7 + csv.size(), 22), "Datetime,A.Level(m),A.");
    EXPECT_EQ(m_folder.list(), "house.ini log mast.csv second-name");
    EXPECT_EQ(run("--export - mast.csv >&-"), 1);
    EXPECT_EQ(m_err, "/dev/stdout can not be written: Bad file descriptor.\n");
    EXPECT_EQ(run("--format xls --export - mast.csv"), 2);
}

TEST_F(BatchTest, DisplayThatCanNotBeUsedIsSaid) {
    EXPECT_EQ(run("DISPLAY=:9999 QT_QPA_PLATFORM=xcb '" PELLAM_PROGRAM "' mast.csv", "env"), 1);
    EXPECT_NE(m_err.find("pellam: no window can be opened on this display; --help tells what works "
                         "without one\n"),
              std::string::npos)
        << m_err;
}

TEST_F(BatchTest, InfoIsUtf8WhateverTheFileIsIn) {
    m_folder.write("w1252.csv", "Zeit,W\xE4rme (\xB0"
                                "C),Gr\xC3\xBC\xC3\x9F"
                                "e\n2008/02/25 11:53:15,1,2\n");
    EXPECT_EQ(run("--info w1252.csv"), 0) << m_err;
    EXPECT_NE(m_out.find("channel: W\u00E4rme (\u00B0C)\nchannel: Gr\u00FC\u00DFe\n"),
              std::string::npos)
        << m_out;
}

TEST_F(BatchTest, ALineThatTheFileDoesNotHaveIsSaid) {
    EXPECT_EQ(run("--data-line 50 --info mast.csv"), 1);
    EXPECT_EQ(m_err, "Attention: There is no line 50 among the first lines of mast.csv, which tell "
                     "its layout.\n");
}

TEST_F(BatchTest, AFileCommandsNoTerminal) {
    m_folder.write("esc.dlr", "<Type>Data</Type>\n<Description>\"\x1B]0;title\a \x1B[31m\""
                              "</Description>\n<IDATA_MAP type=\"ql5xx\">\n"
                              "S,0,0,10:0,1989,1,0,\"\",<A,\"1M\"S,G,<\"T\",\"m\",0,0,8,4,1>>:\n"
                              "</IDATA_MAP>\n<ALL_DATA>\n"
                              "D,1,2008/02/25,12:00:00,0.0,1:A,0,1.5\n");
    EXPECT_EQ(run("--info esc.dlr"), 0) << m_err;
    EXPECT_NE(m_out.find("\uFFFD]0;title\uFFFD \uFFFD[31m\n"), std::string::npos) << m_out;
    EXPECT_EQ(run("--info \"$(printf 'no\\033[31m.csv')\""), 1);
    EXPECT_EQ((m_out + m_err).find('\x1B'), std::string::npos) << m_err;
}

TEST_F(BatchTest, StandardOutputThatCanNotBeWritten) {
    EXPECT_EQ(run("--info mast.csv >&-"), 1);
    EXPECT_EQ(m_err, "standard output can not be written: Bad file descriptor.\n");
    EXPECT_EQ(run("--info mast.csv >/dev/full"), 1);
    EXPECT_EQ(m_err, "standard output can not be written, the disk is full: No space left on "
                     "device.\n");
    EXPECT_EQ(run("--export out.csv --help >&-"), 1);
    EXPECT_EQ(run("--export out.csv mast.csv >&- 2>&-"), 0);
    EXPECT_TRUE(m_folder.read("out.csv").starts_with("Time,"));
}

TEST_F(BatchTest, ConvertsATaggedDownloadBesideIt) {
    m_folder.write("down.txt", "<start>08/02/25 11:53:15</start>\n<end>08/02/25 12:00:00</end>\n"
                               "3\n4\n<log interval>000 00:00:10</log interval>\n"
                               "Level,Flow\n7\n1.5>2\n1.75>3\n</data>\n");
    EXPECT_EQ(run("--convert down.txt"), 0) << m_err;
    EXPECT_TRUE(m_folder.read("down.csv").starts_with("Time,Level,Flow")) << m_folder.list();
    EXPECT_EQ(run("--convert missing.txt"), 1);
    EXPECT_NE(m_err, "");
}

TEST_F(BatchTest, PrintsWithoutADisplay) {
    EXPECT_EQ(run("--print out.pdf mast.csv"), 0) << m_err;
    EXPECT_TRUE(m_folder.read("out.pdf").starts_with("%PDF-"));
    EXPECT_NE(m_folder.read("out.pdf").find("%%EOF"), std::string::npos);
    std::filesystem::create_symlink("/dev/full", m_folder.path("full.pdf"));
    EXPECT_EQ(run("--print full.pdf mast.csv"), 1);
    EXPECT_EQ(m_err, "full.pdf can not be written, the disk is full: No space left on device.\n");
}

TEST_F(BatchTest, RequestToEndLeavesNoHalfFile) {
    // The pipe has no reader, so the program waits in the export until it is told to end.
    std::string rows = "Time,A\n";
    for (int i = 0; i < 200'000; ++i)
        rows += std::to_string(i) + ",1\n";
    m_folder.write("long.csv", rows);
    ASSERT_EQ(::mkfifo(m_folder.path("pipe.csv").c_str(), 0600), 0);
    EXPECT_EQ(run("--export pipe.csv --export out.csv long.csv & child=$!; sleep 1; "
                  "kill -TERM $child; wait $child"),
              1);
    EXPECT_EQ(m_folder.read("out.csv"), "(missing)");
    EXPECT_EQ(m_folder.list(), "house.ini long.csv mast.csv pipe.csv");
}

TEST_F(BatchTest, ChartsAreDrawnInEveryForm) {
    EXPECT_EQ(run("--chart a.png --chart a.svg --chart a.PDF --size 300x200 mast.csv"), 0) << m_err;
    EXPECT_EQ(m_out + m_err, "");
    const std::string png = m_folder.read("a.png");
    EXPECT_EQ(png.substr(1, 3), "PNG");
    EXPECT_EQ(png.substr(16, 8), std::string("\0\0\x01\x2C\0\0\0\xC8", 8));
    EXPECT_NE(m_folder.read("a.svg").find("mast.csv"), std::string::npos) << "its title";
    EXPECT_EQ(m_folder.read("a.PDF").substr(0, 5), "%PDF-");

    m_folder.write("words.csv", "Time,A\r\nsoon,1\r\nlater,2\r\n");
    EXPECT_EQ(run("--chart b.png words.csv"), 1);
    EXPECT_EQ(m_err.substr(0, 56), "Attention: The times in the first column can't be read, ");
    EXPECT_EQ(run("--chart no/such/b.png mast.csv"), 1);
    EXPECT_NE(m_err.find("no/such/b.png"), std::string::npos);
    EXPECT_EQ(m_folder.read("b.png"), "(missing)");
}

TEST_F(BatchTest, ChartsSayInWordsOfTheirOwnWhatIsNoDate) {
    const Table<const char*, const char*, std::vector<const char*>, const char*> rows = {
        {"", "Time (s),A [m/s]\n0,1\n15,2\n30,4\n45,4\n60,5\n", {"0:00:30", "m/s"}, "-9999"},
        {"", "Time (s),A\n-1.0E-1,1\n0,2\n1.0E-1,4\n", {"−100 ms", "0 ms", "50 ms"}, "−0:"},
        {"", "Time [us];A\n0;1\n250;2\n500;4\n", {"100 µs"}, "0:00"},
        {"", "Elapsed,A\n0:00:00,1\n36:00:00,2\n72:00:00,4\n", {"1 d", "3 d"}, "72:00"},
        {"--time-columns none", "A,B\n1,2\n2,3\n3,5\n4,9\n5,3\n", {"row 3"}, "0:00"},
        {"",
         "Time,A\n2024/01/01 10:00:00,1\n2024/01/01 10:01:00,-9999\n2024/01/01 10:02:00,NaN\n",
         {"-9999 left out once in 1 channel", "NaN left out once in 1 channel"},
         "−"},
        {"--missing 2",
         "Time,A\n2024/01/01 10:00:00,1\n2024/01/01 10:01:00,2\n",
         {"2 left out once in 1 channel"},
         "-9999"},
        {"--missing none",
         "Time,A\n2024/01/01 10:00:00,1\n2024/01/01 10:01:00,-9999\n",
         {"10:01"},
         "left out"},
    };
    for (const auto& [options, content, expected, other] : rows) {
        m_folder.write("in.csv", content);
        EXPECT_EQ(run(std::string("--chart a.svg --size 900x400 ") + options + " in.csv"), 0)
            << m_err << content;
        const std::string svg = m_folder.read("a.svg");
        for (const char* text : expected)
            EXPECT_NE(svg.find(text), std::string::npos) << text << " of " << content;
        for (const char* text : {"1970", "1969", "1989", other})
            EXPECT_EQ(svg.find(text), std::string::npos) << text << " of " << content;
    }
}

TEST_F(BatchTest, BinaryFilesAreConvertedAndLoaded) {
    const std::string gauge = "'" PELLAM_SAMPLES "/tank-gauge.dbd'";
    EXPECT_EQ(run("--dump all.txt " + gauge), 0);
    EXPECT_EQ(run("--dump alarms.txt --alarms --index " + gauge), 0);
    EXPECT_EQ(m_out + m_err, "");
    const std::string all = m_folder.read("all.txt");
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 305);
    EXPECT_EQ(m_folder.read("alarms.txt").substr(0, 47),
              "    2: 0002,2008/11/10 11:20:00.000000,ALARM2,1");
    EXPECT_EQ(run("--dump mast.txt mast.csv"), 1);
    EXPECT_EQ(m_err, "Can not read DTDT section\n");

    // Where no save folder is set, it is that of a first start.
    EXPECT_EQ(run("HOME=" + m_folder.path() + " '" PELLAM_PROGRAM "' --info " + gauge, "env"), 0);
    EXPECT_EQ(m_err, "");
    EXPECT_EQ(m_folder.read("Documents/Korvane/Pellam/tank-gauge.csv").substr(0, 21),
              "Datetime,A.Level(m),A");
    m_folder.write("save.ini",
                   "[software]\nKorvane\\Pellam\\Default\\SaveDir=" + m_folder.path() + "\n");
    EXPECT_EQ(run("--settings save.ini --channels '*Level*' --export out.csv " + gauge), 0)
        << m_err;
    EXPECT_EQ(m_folder.read("out.csv").substr(0, 59),
              "Datetime,A.Level(m),\r\n2008/11/10 00:00:00.000000,1.88029,\r\n");
    EXPECT_EQ(m_folder.read("tank-gauge.csv").substr(0, 21), "Datetime,A.Level(m),A");
}

} // namespace
} // namespace pellam
