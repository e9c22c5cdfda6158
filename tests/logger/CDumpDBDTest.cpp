#include "DumpHarness.h"

namespace pellam {
namespace {

using namespace test;
using Writer = BinaryFileWriter;

class CDumpDBDTest : public DumpTest {};

TEST_F(CDumpDBDTest, OptionsChooseTheContents) {
    const std::string indexed = "    0: 0bee," + kPumpAlarm;
    const Table<unsigned, std::string> cases = {
        {0, kPumpHead + kPumpRows + kPumpAlarm},
        {CDumpDBD::NoEffect, kPumpHead + kPumpRows + kPumpAlarm},
        {CDumpDBD::IndexMode, kPumpHead + kPumpRows + indexed},
        {CDumpDBD::DumpData, kPumpRows},
        {CDumpDBD::DumpAlarms, kPumpAlarm},
        {CDumpDBD::DumpAlarms | CDumpDBD::IndexMode, indexed},
        {CDumpDBD::WriteHeader | CDumpDBD::NoEffect, kPumpHead},
        {10, kPumpHead + kPumpRows},
    };
    for (const auto& [options, expected] : cases)
        EXPECT_EQ(dump(pump().bytes(), options), expected) << options;
    EXPECT_EQ(messages.texts, "");
    EXPECT_EQ(folder.list(), "in.dbd out.txt");
}

TEST_F(CDumpDBDTest, RingsAreReadFromTheOldestRecord) {
    const Table<const char*, int, std::int32_t, std::uint32_t, const char*> cases = {
        {"all", 4, 0, 3, "0 1 2 3 "},
        {"a part", 5, 1, 3, "1 2 3 "},
        {"round the end", 5, 3, 1, "3 4 0 1 "},
        {"full, round the end", 4, 2, 1, "2 3 0 1 "},
        {"one record", 4, 2, 2, "2 "},
        {"the last slot and the first", 3, 2, 0, "2 0 "},
        {"empty", 3, -1, 2, "No records "},
        {"very empty", 3, -2147483647 - 1, 0, "No records "},
    };
    for (const auto& [name, slots, oldest, newest, numbers] : cases) {
        Writer file;
        file.channels = {{"Slot", "", ""}};
        for (int i = 0; i < slots; ++i) {
            file.data.records.push_back(Writer::dataRecord(0, Writer::integerItem(i)));
            file.alarms.records.push_back(Writer::alarmRecord(1, 0, 2, 3, "x"));
        }
        file.data.oldest = file.alarms.oldest = oldest;
        file.data.newest = file.alarms.newest = newest;
        std::string text = dump(file.bytes(), CDumpDBD::DumpData | CDumpDBD::IndexMode);
        for (const std::string& part :
             {std::string("1989/01/01 00:00:00.000000,"), std::string("\n")})
            for (std::size_t at; (at = text.find(part)) != std::string::npos;)
                text.replace(at, part.size(), part == "\n" ? " " : "");
        EXPECT_EQ(text, numbers) << name;
        text = dump(file.bytes(), CDumpDBD::DumpAlarms | CDumpDBD::IndexMode);
        std::string alarms;
        for (std::size_t at = 0; at < text.size(); at = text.find('\n', at) + 1)
            alarms += text.starts_with("No") ? "No records " : text.substr(at + 4, 1) + ' ';
        EXPECT_EQ(alarms, numbers) << name;
    }
}

TEST_F(CDumpDBDTest, ValuesAreWrittenByTypeStatusAndFormat) {
    const std::string four("\x01\x02\x03\x04", 4);
    const std::string tooMany(20, 'n');
    const Table<const char*, std::string, const char*, const char*> cases = {
        {"float", Writer::floatItem(-0.015625F), "%d", "-0.01562"},
        {"integer", Writer::integerItem(-42), "", "-42"},
        {"integer with a format", Writer::integerItem(255), "<%04X>", "<00FF>"},
        {"integer with a format of 16 characters", Writer::integerItem(5), "0123456789abc%d,more",
         "0123456789abc5,"},
        {"integer with a format for texts", Writer::integerItem(5), "%s", "5"},
        {"text", Writer::textItem("on"), "", "\"on\""},
        {"text with control and upper characters", Writer::textItem("a\tb\xC3\xA9\x7F\x1F."), "",
         "\"a b  \x7F .\""},
        {"text with quotes stays as it is", Writer::textItem("a \"b\", c"), "", "\"a \"b\", c\""},
        {"text with a format", Writer::textItem("abcdef"), "[%-5.3s]", "[abc  ]"},
        {"text with a format for integers", Writer::textItem("on"), "%5d", "\"on\""},
        {"format without a conversion", Writer::textItem("on"), "n/a", "n/a"},
        {"text that fills its item", Writer::item(3, 1, "open"), "", "\"open\""},
        {"empty text", Writer::item(3, 1, ""), "", "\"\""},
        {"time", Writer::timeItem(kNoon), "", "2008/02/25 13:45:10.000250"},
        {"last time", Writer::timeItem(~0ULL), "", "586543/01/19 08:01:49.551615"},
        // 32 days 5:07:48 after the start of a leap year; second 48 is '0'
        {"interval", Writer::intervalItem((730ULL + 32) * 86400'000000 + 18468'999999), "",
         "32 05:070000046"},
        {"interval at a full minute", Writer::intervalItem(60'000000), "", "0 00:01"},
        {"type 0", Writer::item(0, 1, four), "", "?04030201"},
        {"type 6", Writer::item(6, 1, four), "%x", "?04030201"},
        {"not yet set", Writer::item(1, 2, four), "", "NotYetSet"},
        {"over range", Writer::item(2, 3, four), "", "Overrange"},
        {"under range", Writer::item(3, 4, four), "%s", "Underrange"},
        {"reference error", Writer::item(4, 7, four), "", "RefError"},
        {"discontinuity", Writer::item(5, 11, four), "", "Discontinuity"},
        {"status 0", Writer::item(1, 0, four), "", "?04030201"},
        {"status 15", Writer::item(15, 15, four), "", "?04030201"},
        {"status without a value", std::string("\0\x13", 2), "", "Overrange"},
        {"unknown status without a value", Writer::item(1, 5, ""), "", "?00000000"},
    };
    for (const auto& [name, item, format, expected] : cases) {
        Writer file;
        file.channels = {{"A", "", format}, {"B", "", "%+d"}};
        // Behind the first item another, or nothing at all.
        file.data.records = {Writer::dataRecord(0, item + Writer::integerItem(9))};
        const std::string time = "1989/01/01 00:00:00.000000,";
        if (std::string_view(name) != "unknown status without a value") {
            EXPECT_EQ(dump(file.bytes(), CDumpDBD::DumpData), time + expected + ",+9\n") << name;
        }
        file.channels.pop_back();
        file.data.records = {Writer::dataRecord(0, item)};
        EXPECT_EQ(dump(file.bytes(), CDumpDBD::DumpData), time + expected + "\n") << name;
    }
}

TEST_F(CDumpDBDTest, HeadingsAndAlarmTexts) {
    Writer file;
    file.letter = 'C';
    file.channels = {{"0123456789ABCDEFGHI", "0123456789abcdef", ""}, {"", "m", ""}, {"B", "", ""}};
    file.alarms.records = {Writer::alarmRecord(0, 59'000001, 0, 255, "\001caf\xE9 \"x\""),
                           Writer::alarmRecord(0, 0, 1, 2, std::string(5000, 'y'))};
    file.data.oldest = -1;
    international.listSeparator = ';';
    international.decimalSeparator = ',';
    EXPECT_EQ(dump(file.bytes()), "Datetime;C.0123456789ABCDEF(0123456789abcdef);C.(m);C.B\n"
                                  "1989/01/01 00:00:59,000001,ALARM0,255,\" caf  \"x\"\"\n"
                                  "1989/01/01 00:00:00,000000,ALARM1,2,\"" +
                                      std::string(5000, 'y') + "\"\n");
}

TEST_F(CDumpDBDTest, FieldsForLoadingStayWhole) {
    Writer file;
    file.channels = {{"Flow; raw", "m3/s", ""}, {"N", "", "%d;\n"}, {"T", "", ""}, {"I", "", ""}};
    file.data.records = {Writer::dataRecord(0, Writer::floatItem(0.5F) + Writer::integerItem(3) +
                                                   Writer::textItem("say \"a\";b") +
                                                   Writer::intervalItem(10'000000))};
    international.listSeparator = ';';
    international.decimalSeparator = ',';
    EXPECT_EQ(dump(file.bytes(), 10, CDumpDBD::Purpose::Loading),
              "Datetime;\"A.Flow; raw(m3/s)\";A.N;A.T;A.I\n"
              "1989/01/01 00:00:00,000000;0,50000;\"3; \";\"say \"\"a\"\";b\";0 00:00 000044\n");
    EXPECT_EQ(dump(file.bytes(), 10),
              "Datetime;A.Flow; raw(m3/s);A.N;A.T;A.I\n"
              "1989/01/01 00:00:00,000000;0.50000;3;\n;\"say \"a\";b\";0 00:00\n000044\n");
}

TEST_F(CDumpDBDTest, TextsOfTimesEndWithNul) {
    CDumpDBD dumper({international, messages, progress});
    char text[TimestampText::kRoom];
    dumper.formatTimestamp(0, text);
    EXPECT_STREQ(text, "1989/01/01 00:00:00.000000");
    dumper.formatTimestamp(350'784'000ULL * 1'000'000 + 1, text);
    EXPECT_STREQ(text, "2000/02/13 00:00:00.000001");
    dumper.formatInterval(86400'000000ULL * 365 + 65'000000, text);
    EXPECT_STREQ(text, "0 00:01\005000046");
}

TEST_F(CDumpDBDTest, FilesThatCanNotBeOpened) {
    const std::string sound = folder.write("sound.dbd", pump().bytes());
    folder.write("kept.txt", "old");
    const std::string longName = "/" + std::string(200, 'd') + "/end.dbd";
    const Table<std::vector<std::string>, std::string, std::string> cases = {
        {{sound, folder.path("none.dbd")},
         folder.path("kept.txt"),
         "Can not open " + folder.path("none.dbd") + " for read\n"},
        {{folder.path()}, folder.path("kept.txt"), "Can not open " + folder.path() + " for read\n"},
        {{}, folder.path("kept.txt"), "Can not open  for read\n"},
        {{longName},
         folder.path("kept.txt"),
         "Can not open ..." + longName.substr(longName.size() - 102) + " for read\n"},
        {{sound}, "/dev/null/out", "Can not open /dev/null/out for write\n"},
        {{sound}, sound, "Can not open " + sound + " for write\n"},
    };
    for (const auto& [inputs, output, message] : cases) {
        messages.texts.clear();
        CDumpDBD dumper({international, messages, progress});
        EXPECT_EQ(dumper.dumpFile(inputs, output, 0), CDumpDBD::kNotOpened) << message;
        EXPECT_EQ(messages.texts, message);
    }
    EXPECT_EQ(folder.read("kept.txt"), "old");
    EXPECT_EQ(folder.read("sound.dbd"), pump().bytes());
    EXPECT_EQ(folder.list(), "kept.txt sound.dbd");

    messages.texts.clear();
    CDumpDBD dumper({international, messages, progress});
    EXPECT_EQ(dumper.dumpFile({sound}, "/dev/full", 0), CDumpDBD::kNotOpened);
    EXPECT_NE(messages.texts.find("the disk is full"), std::string::npos) << messages.texts;
    EXPECT_EQ(dumper.dumpFile({sound}, folder.path("kept.txt"), 0), CDumpDBD::kDone);
    EXPECT_EQ(folder.read("kept.txt"), kPumpHead + kPumpRows + kPumpAlarm);
}

TEST_F(CDumpDBDTest, AStopKeepsTheEarlierTextWheneverItComes) {
    const std::string input = folder.write("in.dbd", pump().bytes());
    const std::string output = folder.write("out.txt", "earlier");
    CDumpDBD dumper({international, messages, progress});
    for (bool stopped = true; stopped; ++progress.abortAfter) {
        if (progress.abortAfter > 100) progress.abortAfter = 0;
        progress.asked = 0;
        EXPECT_EQ(dumper.dumpFile({input}, output, 0), CDumpDBD::kDone);
        stopped = dumper.aborted();
        const std::string text = folder.read("out.txt");
        EXPECT_EQ(text, stopped ? "earlier" : kPumpHead + kPumpRows + kPumpAlarm);
        EXPECT_EQ(progress.asked, stopped ? progress.abortAfter + 1 : progress.abortAfter);
    }
    EXPECT_EQ(progress.abortAfter, 4) << "asked for each part, and once more before the end";
    EXPECT_EQ(folder.list(), "in.dbd out.txt");
}

} // namespace
} // namespace pellam
