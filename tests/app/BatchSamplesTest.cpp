#include "BatchFixture.h"

#include <sstream>

namespace pellam {
namespace {

constexpr const char* kMast =
    "Time,A.Air.Ave(degC),A.Humidity.Ave(%),A.Wind.Ave(m/s),A.Wind.Max(m/s),A.Gust.Tmx.Time(),"
    "A.Direction(deg),A.Pressure(hPa),B.Rain.Int(mm),B.Battery.Min(V),";

/// Value of a "key: value" line.
std::string valueOf(const std::string& info, const std::string& key) {
    const auto at = ('\n' + info).find('\n' + key + ": ");
    if (at == std::string::npos) return "(missing)";
    const auto from = at + key.size() + 2;
    return info.substr(from, info.find('\n', from) - from);
}

TEST_F(BatchFixture, EverySampleIsLoadedAndExported) {
    // facts: kind, rows, channels, damaged lines; then what is told, and the first lines exported
    const Table<const char*, const char*, const char*, const char*, const char*> samples = {
        {"weather-mast.dlr", "data 426 9 0", "", kMast,
         "2008/06/25 00:00:00.000488,10.01,86.6,2.44,3.61,23:56:08,208,1013,0,12.217,"},
        {"checked-lines.dlr", "data 194 9 2", "", kMast,
         "2008/06/28 00:00:00.000488,9.94,89.1,3.92,5.53,23:50:15,232,1012.9,0,12.217,"},
        {"signed-mast.sig", "data 138 9 0",
         "Information: Replay file integrity check OK; Signature: J. Marlow, Harrow Hill\n", kMast,
         "2008/06/20 00:00:00.000488,9.6,89.2,0.86,3.23,23:50:13,259,1012.9,0,12.217,"},
        {"reservoir.dlr", "data 472 4 0", "",
         "Time,A.Gate(%),A.Turbidity.Max(NTU),X.Level.Ave(m),X.Inflow.Ave(m3/s),",
         "2008/09/08 00:00:00.000122,20,13.7,41.351,3.82,"},
        {"cold-store-alarms.dlr", "alarm 180 6 0", "",
         "Time,Job,Schedule,Real Time,Alarm Number,Alarm Type,Alarm Message,",
         "2008/07/01 00:04:12.250000,COLD3,A,0,7,1,Room 3 above -18 degC,"},
        {"numeric-time.dlr", "data 400 3 0", "",
         "Time,A.Soil 10 cm(degC),A.Soil 50 cm(degC),A.Moisture(%vol),",
         "2008/03/03 00:00:00,7.24,7.61,30.99,"},
        {"generated-session.dlr", "data 360 3 0", "", "Time,A.Boiler(C),A.Return(C),A.Gas(m3/h),",
         "2008/02/25 06:00:00.000000,63,44,30,"},
        {"pump-station.csv", "delimited 576 5 0", "",
         "Time,Sump (m),Pump 1 (A),Pump 2 (A),Flow (l/s),Mode,",
         "2008/05/12 00:00:00,1.243,0,0,0,\"auto, night\","},
        {"greenhouse-decimal-comma.csv", "delimited 432 4 0", "",
         "Time,Air (°C),Humidity (%),Light (klx),CO2 (ppm),",
         "2008/04/01 00:00:00,18.3,80.9,0,688.9,"},
        {"tank-farm.txt", "delimited 384 4 0", "",
         "Time,Tank 1 (m3),Tank 2 (m3),Tank 1 (degC),Note,",
         "2008/10/20 00:00:00,419.4,609.6,11.25,,"},
    };
    std::filesystem::copy(PELLAM_SAMPLES, m_folder.path());
    for (const auto& [file, facts, message, headings, firstRow] : samples) {
        SCOPED_TRACE(file);
        EXPECT_EQ(run(std::string("--info --export out.csv ") + file), 0);
        EXPECT_EQ(valueOf(m_out, "kind") + ' ' + valueOf(m_out, "rows") + ' ' +
                      valueOf(m_out, "channels") + ' ' + valueOf(m_out, "damaged lines"),
                  facts);
        EXPECT_EQ(m_err, message);
        std::istringstream exported(m_folder.read("out.csv"));
        for (const std::string expected : {headings, firstRow}) {
            std::string line;
            std::getline(exported, line);
            EXPECT_EQ(line, expected + '\r');
        }
    }
}

} // namespace
} // namespace pellam
