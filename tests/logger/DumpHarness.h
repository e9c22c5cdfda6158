#pragma once

#include "BinaryFileWriter.h"
#include "RecordingSinks.h"
#include "ScratchFolder.h"
#include "logger/CDumpDBD.h"

#include <filesystem>
#include <string>

namespace pellam::test {

/// 2008/02/25 13:45:10.000250 in microseconds since 1989.
inline constexpr std::uint64_t kNoon = 604'331'110'000'250;

/// Converts files that are made of bytes.
class DumpTest : public testing::Test {
  protected:
    std::string dump(const std::string& bytes, unsigned options = 0,
                     CDumpDBD::Purpose purpose = CDumpDBD::Purpose::Text) {
        CDumpDBD dumper({international, messages, progress}, purpose);
        // Replacing a file makes some file systems wait for the disk.
        for (const char* name : {"in.dbd", "out.txt"})
            std::filesystem::remove(folder.path(name));
        const std::string input = folder.write("in.dbd", bytes);
        EXPECT_EQ(dumper.dumpFile({input}, folder.path("out.txt"), options), CDumpDBD::kDone);
        EXPECT_EQ(progress.open, 0);
        found = dumper.damage();
        return folder.read("out.txt");
    }

    /// Two channels and two records in slots of 30 bytes, an alarm in a slot of 20.
    static BinaryFileWriter pump() {
        using Writer = BinaryFileWriter;
        Writer file;
        file.channels = {{"Level", "m", ""}, {"Starts", "", ""}};
        for (const int i : {0, 1}) {
            file.data.records.push_back(Writer::dataRecord(
                kNoon + static_cast<unsigned>(i) * 1'000'000U,
                Writer::floatItem(1.5F + static_cast<float>(i)) + Writer::integerItem(7 + i)));
        }
        file.alarms.records = {Writer::alarmRecord(0xBEE, kNoon, 3, 44, "Dry run")};
        return file;
    }

    ScratchFolder folder;
    InternationalSettings international;
    RecordedMessages messages;
    RecordedProgress progress;
    CDumpDBD::Damage found; ///< by the last dump()
};

inline const std::string kPumpHead = "Datetime,A.Level(m),A.Starts\n";
inline const std::string kPumpRows = "2008/02/25 13:45:10.000250,1.50000,7\n"
                                     "2008/02/25 13:45:11.000250,2.50000,8\n";
inline const std::string kPumpAlarm = "2008/02/25 13:45:10.000250,ALARM3,44,\"Dry run\"\n";

} // namespace pellam::test
