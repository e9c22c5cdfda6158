#include "DumpHarness.h"

#include <random>

namespace pellam {
namespace {

using namespace test;
using Writer = BinaryFileWriter;

class CDumpDBDDamageTest : public DumpTest {
  protected:
    [[nodiscard]] std::string damage() const {
        if (!found.any) return "whole";
        return "at " + std::to_string(found.place) + ", " + std::to_string(found.cutRecords) +
               " incomplete, " + std::to_string(found.lostRecords) + " lost";
    }
};

/// The file of DumpTest::pump() with other bytes in some place.
std::string patched(std::string bytes, std::size_t at, const std::string& with) {
    return bytes.replace(at, with.size(), with);
}

std::string four(std::uint64_t value) {
    return Writer::number(value, 4);
}

std::string missing(const char* at, const char* read, const char* expected) {
    return std::string("Unexpected EOF (at ") + at + ", read " + read + " bytes, expected " +
           expected + ")\n";
}

// Places in the file: HDR1 0x8, DHDR 0x3c (its contents 0x44, channels 0x54), AHDR 0xf4 (0xfc),
// DATA 0x108 (0x110, two slots of 30), ALRM 0x14c (0x154, one slot of 20), EOF! 0x168.
TEST_F(CDumpDBDDamageTest, DamageEndsTheTextWithItsPlace) {
    const std::string sound = pump().bytes();
    ASSERT_EQ(sound.size(), 0x170U);
    const std::string row = kPumpRows.substr(0, kPumpRows.size() / 2);
    const std::string data = kPumpHead + kPumpRows;
    const std::string all = data + kPumpAlarm;
    const Table<const char*, std::string, std::string> cases = {
        {"nothing in the file", patched(sound.substr(0, 8), 4, four(0)), ""},
        {"headers alone", sound.substr(0, 8), missing("0x8", "0x0", "0x8")},
        {"cut in a prefix", sound.substr(0, 0x3f), missing("0x3c", "0x3", "0x8")},
        {"cut in HDR1", sound.substr(0, 0x20), missing("0x10", "0x10", "0x2c")},
        {"short HDR1", patched(sound, 0xc, four(0x2b)), missing("0x10", "0x2b", "0x2c")},
        {"HDR1 of 4 GB", patched(sound, 0xc, four(~0U)), missing("0x10", "0x160", "0xffffffff")},
        {"cut in DHDR", sound.substr(0, 0x60), missing("0x44", "0x1c", "0xb0")},
        {"short DHDR", patched(sound, 0x40, four(0xf)), missing("0x44", "0xf", "0x10")},
        {"a channel too many", patched(sound, 0x50, four(3)), missing("0x44", "0xb0", "0x100")},
        {"all channels", patched(sound, 0x50, four(~0U)), missing("0x44", "0xb0", "0x4fffffffc0")},
        {"cut in AHDR", sound.substr(0, 0xfd), kPumpHead + missing("0xfc", "0x1", "0xc")},
        {"short AHDR", patched(sound, 0xf8, four(4)), kPumpHead + missing("0xfc", "0x4", "0xc")},
        {"cut before DATA", sound.substr(0, 0x108), kPumpHead + missing("0x108", "0x0", "0x8")},
        {"cut in a record", sound.substr(0, 0x130),
         kPumpHead + row + missing("0x12e", "0x2", "0x1e")},
        {"cut before the oldest record", patched(sound.substr(0, 0x112), 0x48, four(1)),
         kPumpHead + missing("0x12e", "0x0", "0x1e")},
        {"record size 0", patched(sound, 0x44, four(0)),
         kPumpHead + missing("0x110", "0x0", "0xa")},
        {"record size 9", patched(sound, 0x44, four(9)),
         kPumpHead + missing("0x110", "0x9", "0xa")},
        {"record size of 4 GB", patched(sound, 0x44, four(~0U)),
         kPumpHead + missing("0x110", "0x3c", "0xffffffff")},
        {"record size 1 and no room for it", patched(patched(sound, 0x44, four(1)), 0x10c, four(0)),
         kPumpHead + missing("0x110", "0x0", "0x1")},
        {"oldest behind the section", patched(sound, 0x48, four(2)),
         kPumpHead + missing("0x14c", "0x0", "0x1e")},
        {"oldest far behind the section", patched(sound, 0x48, four(0x7fffffff)),
         kPumpHead + missing("0xf000000f2", "0x0", "0x1e")},
        {"newest behind the section", patched(sound, 0x4c, four(2)),
         data + missing("0x14c", "0x0", "0x1e")},
        {"newest far behind the section", patched(sound, 0x4c, four(~0U)),
         data + missing("0x14c", "0x0", "0x1e")},
        {"last slot incomplete", patched(sound, 0x10c, four(0x3b)),
         kPumpHead + row + missing("0x12e", "0x1d", "0x1e")},
        {"DATA of 4 GB", patched(patched(sound, 0x10c, four(~0U)), 0x4c, four(9)),
         data + "189915/10/12 21:11:58.125038,NotYetSet,NotYetSet\n" +
             missing("0x16a", "0x6", "0x1e")},
        {"alarm slot too short", patched(sound, 0xfc, four(11)),
         data + missing("0x154", "0xb", "0xc")},
        {"alarm text without an end", patched(sound, 0xfc, four(15)),
         data + "2008/02/25 13:45:10.000250,ALARM3,44,\"Dry\"\n"},
        {"unknown tag", patched(sound, 0x14c, "ALRN"), data + "\nunknown tag at offset: 0x154\n"},
        {"no end", sound.substr(0, 0x168), all + missing("0x168", "0x0", "0x8")},
        {"end cut", sound.substr(0, 0x16f), all + missing("0x168", "0x7", "0x8")},
        {"end with contents", patched(sound, 0x16c, four(4)) + "late", all},
        {"contents behind the end", patched(sound, 4, four(0x16c)) + "late",
         all + missing("0x170", "0x4", "0x8")},
        {"shorter than it is", patched(sound, 4, four(0x108)), data},
        {"no AHDR", patched(sound.substr(0, 0xf4) + sound.substr(0x108), 4, four(0x154)),
         data + missing("0x140", "0x0", "0xc")},
        {"no DHDR", patched(sound.substr(0, 0x3c) + sound.substr(0xf4), 4, four(0xb0)),
         missing("0x58", "0x0", "0xa")},
    };
    for (const auto& [name, bytes, expected] : cases) {
        EXPECT_EQ(dump(bytes), expected) << name;
        EXPECT_EQ(messages.texts, "") << name;
    }
}

TEST_F(CDumpDBDDamageTest, ARecordThatDisagreesWithItselfEndsAlone) {
    const std::string sound = pump().bytes();
    const std::string cut = kPumpHead + "2008/02/25 13:45:10.000250";
    const std::string rest = "2008/02/25 13:45:11.000250,2.50000,8\n" + kPumpAlarm;
    const Table<const char*, std::string, std::string> cases = {
        {"item too short for its value", patched(sound, 0x124, "\x07"),
         cut + ",1.50000\n" + rest + "at 292, 1 incomplete, 0 lost"},
        {"time too short", patched(sound, 0x11b, "\x41"),
         cut + "\n" + rest + "at 282, 1 incomplete, 0 lost"},
        {"last item longer than its slot", patched(sound, 0x124, "\x0b"),
         cut + ",1.50000,7\n" + rest + "at 292, 1 incomplete, 0 lost"},
        {"text longer than its slot", patched(patched(sound, 0x124, "\xff"), 0x125, "\x31"),
         cut + ",1.50000,\"\"\n" + rest + "at 292, 1 incomplete, 0 lost"},
        {"first item longer than its slot", patched(sound, 0x11a, "\x1b"),
         cut + ",1.50000\n" + rest + "at 282, 1 incomplete, 0 lost"},
        {"sound", sound, kPumpHead + kPumpRows + kPumpAlarm + "whole"},
    };
    for (const auto& [name, bytes, expected] : cases) {
        const std::string text = dump(bytes);
        EXPECT_EQ(text + damage(), expected) << name;
    }
}

TEST_F(CDumpDBDDamageTest, CountsTheRecordsThatAreMissing) {
    BinaryFileWriter file = pump();
    for (int i = 2; i < 10; ++i)
        file.data.records.push_back(file.data.records[0]);
    const std::string sound = file.bytes();
    const Table<std::string, const char*> cases = {
        {sound.substr(0, 0x110 + 25), "at 272, 0 incomplete, 11 lost"},
        {sound.substr(0, 0x110 + 65), "at 332, 0 incomplete, 9 lost"},
        {sound.substr(0, 0x100), "at 252, 0 incomplete, 10 lost"},
        {sound.substr(0, sound.size() - 8), "at 600, 0 incomplete, 0 lost"},
        {patched(patched(sound, 0x48, four(8)), 0x4c, four(3)), "whole"},
        {patched(patched(sound, 0x48, four(8)), 0x4c, four(3)).substr(0, 0x110 + 10 * 30 - 2),
         "at 542, 0 incomplete, 6 lost"},
        {patched(sound, 0x108, "DATE"), "at 272, 0 incomplete, 11 lost"},
    };
    for (const auto& [bytes, expected] : cases) {
        dump(bytes);
        EXPECT_EQ(damage(), expected) << bytes.size();
    }
    dump(sound.substr(0, 0x110 + 65));
    EXPECT_EQ(found.failure("a.dbd").text(), "a.dbd is not in the expected form (at byte 332): it "
                                             "is cut or damaged there, 9 records are missing.");
}

TEST_F(CDumpDBDDamageTest, FilesOfAnotherKindGiveAMessageAndNoText) {
    for (const std::string& bytes : {std::string(), std::string("DTDT\0\0", 6),
                                     patched(pump().bytes(), 0, "TDTD"), std::string(999, 'x')}) {
        messages.texts.clear();
        folder.write("out.txt", "old");
        EXPECT_EQ(dump(bytes), "");
        EXPECT_EQ(messages.texts, "Can not read DTDT section\n");
    }
}

TEST_F(CDumpDBDDamageTest, EveryCutKeepsWhatCameBefore) {
    const std::string sound = pump().bytes();
    const std::string whole = kPumpHead + kPumpRows + kPumpAlarm;
    std::size_t longest = 0;
    for (std::size_t size = 8; size < sound.size(); ++size) {
        const std::string text = dump(sound.substr(0, size));
        const std::size_t kept = text.rfind("Unexpected EOF (at 0x");
        ASSERT_NE(kept, std::string::npos) << size;
        EXPECT_EQ(text.substr(0, kept), whole.substr(0, kept)) << size;
        EXPECT_TRUE(kept == 0 || text[kept - 1] == '\n') << size;
        EXPECT_EQ(text.find('\n', kept), text.size() - 1) << size;
        EXPECT_GE(kept, longest) << size;
        longest = kept;
    }
    EXPECT_EQ(longest, whole.size());
}

TEST_F(CDumpDBDDamageTest, RandomDamageNeverGetsOutOfHand) {
    std::mt19937 random(20080225);
    const std::string sound = pump().bytes();
    for (int i = 0; i < 3000; ++i) {
        std::string bytes = sound;
        for (unsigned flips = 1 + random() % 4; flips > 0; --flips) {
            static constexpr char kEvil[] = {0, 1, 8, 0x7F, '\x80', '\xFF', '\x11', '%'};
            bytes[8 + random() % (bytes.size() - 8)] = kEvil[random() % sizeof kEvil];
        }
        const std::string text = dump(bytes, random() % 32,
                                      i % 2 ? CDumpDBD::Purpose::Loading : CDumpDBD::Purpose::Text);
        EXPECT_LT(text.size(), 100 * bytes.size()) << i;
    }
    EXPECT_EQ(messages.texts, "");
}

} // namespace
} // namespace pellam
