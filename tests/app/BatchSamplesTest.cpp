#include "ScratchFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <sys/wait.h>

namespace pellam {
namespace {

struct Sample {
    const char* name;
    const char* file;
    const char* facts;    ///< kind, rows, channels, damaged lines
    const char* message;  ///< on standard error
    const char* headings; ///< first line of the export
    const char* firstRow;
};

std::string nameOf(const testing::TestParamInfo<Sample>& row) {
    return row.param.name;
}

/// Value of a "key: value" line.
std::string valueOf(const std::string& info, const std::string& key) {
    const auto at = ('\n' + info).find('\n' + key + ": ");
    if (at == std::string::npos) return "(missing)";
    const auto from = at + key.size() + 2;
    return info.substr(from, info.find('\n', from) - from);
}

class BatchSamplesTest : public testing::TestWithParam<Sample> {
  protected:
    ScratchFolder m_folder;
};

TEST_P(BatchSamplesTest, LoadsAndExports) {
    const std::string command = "cd '" PELLAM_SAMPLES
                                "' && LC_ALL=C TZ=UTC XDG_CONFIG_HOME=/nowhere '" PELLAM_PROGRAM
                                "' --info --export '" +
                                m_folder.path("out.csv") + "' '" + GetParam().file + "' >'" +
                                m_folder.path("info") + "' 2>'" + m_folder.path("err") + "'";
    EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 0);
    const std::string info = m_folder.read("info");
    EXPECT_EQ(valueOf(info, "kind") + ' ' + valueOf(info, "rows") + ' ' +
                  valueOf(info, "channels") + ' ' + valueOf(info, "damaged lines"),
              GetParam().facts);
    EXPECT_EQ(m_folder.read("err"), GetParam().message);
    std::istringstream exported(m_folder.read("out.csv"));
    std::string line;
    std::getline(exported, line);
    EXPECT_EQ(line, std::string(GetParam().headings) + '\r');
    std::getline(exported, line);
    EXPECT_EQ(line, std::string(GetParam().firstRow) + '\r');
}

constexpr const char* kMast =
    "Time,A.Air.Ave(degC),A.Humidity.Ave(%),A.Wind.Ave(m/s),A.Wind.Max(m/s),A.Gust.Tmx.Time(),"
    "A.Direction(deg),A.Pressure(hPa),B.Rain.Int(mm),B.Battery.Min(V),";

INSTANTIATE_TEST_SUITE_P(
    All, BatchSamplesTest,
    testing::Values(
        Sample{"mast", "weather-mast.dlr", "data 426 9 0", "", kMast,
               "2008/06/25 00:00:00.000488,10.01,86.6,2.44,3.61,23:56:08,208,1013,0,12.217,"},
        Sample{"checksums", "checked-lines.dlr", "data 194 9 2", "", kMast,
               "2008/06/28 00:00:00.000488,9.94,89.1,3.92,5.53,23:50:15,232,1012.9,0,12.217,"},
        Sample{"signed", "signed-mast.sig", "data 138 9 0",
               "Information: Replay file integrity check OK; Signature: J. Marlow, Harrow Hill\n",
               kMast,
               "2008/06/20 00:00:00.000488,9.6,89.2,0.86,3.23,23:50:13,259,1012.9,0,12.217,"},
        Sample{"other_dialect", "reservoir.dlr", "data 472 4 0", "",
               "Time,A.Gate(%),A.Turbidity.Max(NTU),X.Level.Ave(m),X.Inflow.Ave(m3/s),",
               "2008/09/08 00:00:00.000122,20,13.7,41.351,3.82,"},
        Sample{"alarms", "cold-store-alarms.dlr", "alarm 180 6 0", "",
               "Time,Job,Schedule,Real Time,Alarm Number,Alarm Type,Alarm Message,",
               "2008/07/01 00:04:12.250000,COLD3,A,0,7,1,Room 3 above -18 degC,"},
        Sample{"numeric_time", "numeric-time.dlr", "data 400 3 0", "",
               "Time,A.Soil 10 cm(degC),A.Soil 50 cm(degC),A.Moisture(%vol),",
               "2008/03/03 00:00:00,7.24,7.61,30.99,"},
        Sample{"tabs", "tank-farm.txt", "delimited 384 4 0", "",
               "Time,Tank 1 (m3),Tank 2 (m3),Tank 1 (degC),Note,",
               "2008/10/20 00:00:00,419.4,609.6,11.25,,"}),
    nameOf);

} // namespace
} // namespace pellam
