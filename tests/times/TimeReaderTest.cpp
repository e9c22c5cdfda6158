#include "times/TimeReader.h"
#include "base/InternationalSettings.h"

#include <array>
#include <ctime>
#include <random>

namespace pellam {
namespace {

/// What a reader of the form makes of a text, with " UTC" behind texts that say their offset; "-"
/// for nothing, "no form" for a name that is none.
std::string readAs(const char* name, std::string_view text,
                   FractionUnit unit = FractionUnit::DecimalPlaces) {
    const auto form = TimeForm::parse(name);
    if (!form) return "no form";
    InternationalSettings settings;
    settings.pmText = "nachm";
    const auto moment = TimeReader(*form, settings, unit).read(text);
    if (!moment) return "-";
    if (form->kind() == TimeForm::Kind::Elapsed) return elapsedText(*moment);
    std::string shown = calendarText(*moment);
    if (form->kind() == TimeForm::Kind::TimeOfDay) shown.erase(0, 11);
    return shown + (moment->utc ? " UTC" : "");
}

TEST(TimeReader, FormsAndTexts) {
    const Table<const char*, const char*, const char*> rows = {
        {"yyyy-MM-dd HH:mm:ss", "2017-01-09 21:15:52 UTC", "2017/01/09 21:15:52 UTC"},
        {"yyyy-MM-dd HH:mm:ss", "2008/2/5 7:05", "2008/02/05 07:05:00"},
        {"yyyy-MM-dd HH:mm:ss", " 2008-02-25 ", "2008/02/25 00:00:00"},
        {"yyyy-MM-dd HH:mm:ss", "2008-02-25T24:00:00", "2008/02/26 00:00:00"},
        {"yyyy-MM-dd HH:mm:ss", "20080225T120005Z", "2008/02/25 12:00:05 UTC"},
        {"yyyy-MM-ddTHH:mm:ss", "2008-02-25T12:00:05.123456789+01:30",
         "2008/02/25 12:00:05.123456789 UTC"},
        {"yyyy-MM-ddTHH:mm:ss", "2008-02-25T12:00:05,1234567891", "2008/02/25 12:00:05.123456789"},
        {"yyyy-MM-ddTHH:mm:ss", "2008-02-25T12:00:05 -0330", "2008/02/25 12:00:05 UTC"},
        {"yyyy-MM-ddTHH:mm:ss", "2008-02-25T12:00+25:00", "-"},
        {"yyyy-MM-ddTHH:mm:ss", "2008-02-25T", "-"},
        {"yyyy-MM-ddTHH:mm:ss", "2008-02-25 12", "-"},
        {"yyyy-MM-ddTHH:mm:ss", "2008-02-25T12:00:00.0/2008-02-25T12:01:00.0",
         "2008/02/25 12:00:00"},
        {"yyyy-MM-ddTHH:mm:ss", "2008-02-25T12:00:00/rain", "-"},
        {"yyyy-MM-ddTHH:mm:ss", "20080225 12", "-"},
        {"yyyy-MM-ddTHH:mm:ss", "08-02-25 12:00", "-"},
        {"yyyy-MM-ddTHH:mm:ss", "2008-02-30 12:00", "-"},
        {"yyyy-MM-ddTHH:mm:ss", "2008-02-25 12:60", "-"},
        {"yyyy-MM-ddTHH:mm:ss", "2008-02-25 12:00 rain", "-"},
        {"dd/MM/yyyy HH:mm", "25/02/2008 12:03", "2008/02/25 12:03:00"},
        {"dd/MM/yyyy HH:mm", "25.2.08 12:03:04,5", "2008/02/25 12:03:04.500"},
        {"dd/MM/yyyy HH:mm", "25-Feb-2008", "2008/02/25 00:00:00"},
        {"dd/MM/yyyy HH:mm", "25/02/2008 01:03 PM", "2008/02/25 13:03:00"},
        {"dd/MM/yyyy HH:mm", "25/02/2008 12:03 a.m.", "2008/02/25 00:03:00"},
        {"dd/MM/yyyy HH:mm", "25/02/2008 3:03 p", "2008/02/25 15:03:00"},
        {"dd/MM/yyyy HH:mm", "25/02/2008 3:03 pq", "-"},
        {"yyyy-MM-dd HH:mm:ss", "2008-02-25 11:00:05:260", "2008/02/25 11:00:05.260"},
        {"yyyy-MM-dd HH:mm:ss", "2008-02-25 11:00:05:26", "-"},
        {"yyyy-MM-dd HH:mm:ss", "2008-02-25 11:00:05 +0100 UTC", "2008/02/25 11:00:05 UTC"},
        {"dd/MM/yyyy HH:mm", "25/02/2008 3:03 nachm", "2008/02/25 15:03:00"},
        {"dd/MM/yyyy HH:mm", "25/02/2008 13:03 PM", "-"},
        {"dd/MM/yyyy HH:mm", "2008/02/25 12:03", "2008/02/25 12:03:00"},
        {"dd/MM/yyyy HH:mm", "02/25/2008 12:03", "-"},
        {"dd/MM/yyyy HH:mm", "25/02/208 12:03", "-"},
        {"MM/dd/yyyy HH:mm:ss", " 01/20/2021 10:11:32.332", "2021/01/20 10:11:32.332"},
        {"MM/dd/yyyy HH:mm:ss a", "4/8/17 9:05:01 PM", "2017/04/08 21:05:01"},
        {"dd MM yyyy HH:mm", "01 01 2018 00:10", "2018/01/01 00:10:00"},
        {"dd/MMM/yyyy", "9/Apr/2019", "2019/04/09 00:00:00"},
        {"dd/MMM/yyyy:HH:mm:ss", "09/sept/1999:12:30:01 +0100", "1999/09/09 12:30:01 UTC"},
        {"dd.MMM.yyyy HH:mm:ss", "27.May.2021 16:37:9", "2021/05/27 16:37:09"},
        {"ddMMMyyyy HH:mm", "27May2021 16:37", "2021/05/27 16:37:00"},
        {"MMM dd, yyyy HH:mm", "January 5, 2019 16:37", "2019/01/05 16:37:00"},
        {"MMM dd, yyyy HH:mm", "Mayor 5, 2019 16:37", "-"},
        {"E MMM dd HH:mm:ss yyyy", "Thu Jan  5 12:30:00 2019", "2019/01/05 12:30:00"},
        {"HH:mm:ss-dd/MM/yyyy", "12:30:00.5-05/01/2019", "2019/01/05 12:30:00.500"},
        {"yy.MM.dd HH:mm:ss", "21.04.08 23:00:00", "2021/04/08 23:00:00"},
        {"yy.MM.dd HH:mm:ss", "70.04.08", "1970/04/08 00:00:00"},
        {"yy.MM.dd HH:mm:ss", "69.04.08", "2069/04/08 00:00:00"},
        {"yyyyMMdd_HHmmss", "20170408_181100", "2017/04/08 18:11:00"},
        {"yyyyMMdd:HHmm", "20160101:0010", "2016/01/01 00:10:00"},
        {"yyyyMMdd:HHmm", "2016011:0010", "-"},
        {"yyyyMMddHHmmss", "20170408181100.25", "2017/04/08 18:11:00.250"},
        {"yyyyMMddHHmm", "201704081811", "2017/04/08 18:11:00"},
        {"yyyyMMddHH", "2017040818", "2017/04/08 18:00:00"},
        {"yyMMdd HHmmss", "210408 230000", "2021/04/08 23:00:00"},
        {"yyyy-DDD HH:mm", "2018-123 12:30", "2018/05/03 12:30:00"},
        {"yyyyDDD", "2018123", "2018/05/03 00:00:00"},
        {"yyyy DDD HHmm", "2018 291 116", "2018/10/18 01:16:00"},
        {"yyyy DDD HHmm", "2018 1 0", "2018/01/01 00:00:00"},
        {"yyyy DDD HHmm", "2018 366 0", "-"},
        {"yyyy DDD HHmm", "2020 366 2359", "2020/12/31 23:59:00"},
        {"yyyy MM dd HH mm", "2016   1  1  1 15", "2016/01/01 01:15:00"},
        {"yyyy-MM", "2016-07", "2016/07/01 00:00:00"},
        {"yyyy", "2016", "2016/01/01 00:00:00"},
        {"yyyy\xE5\xB9\xB4MM\xE6\x9C\x88 HH:mm",
         "2016\xE5\xB9\xB4"
         "7\xE6\x9C\x88 12:00",
         "2016/07/01 12:00:00"},
        {"HH:mm:ss", "10:17:22.207", "10:17:22.207"},
        {"HH:mm:ss", "9:05 pm", "21:05:00"},
        {"HH:mm:ss", "24:01", "-"},
        {"HH:mm:ss", "2008-02-25", "-"},
        {"epoch-s", "1576333020", "2019/12/14 14:17:00 UTC"},
        {"epoch-s", "1576333020.25", "2019/12/14 14:17:00.250 UTC"},
        {"epoch-ms", "1576333020250", "2019/12/14 14:17:00.250 UTC"},
        {"epoch-ms", "1,57633302025E12", "2019/12/14 14:17:00.250 UTC"},
        {"epoch-us", "1576333020000001.5", "2019/12/14 14:17:00.000001500 UTC"},
        {"epoch-ns", "1576333020123456789", "2019/12/14 14:17:00.123456789 UTC"},
        {"epoch-s", "-1", "1969/12/31 23:59:59 UTC"},
        {"epoch-s", "99999999999999", "-"},
        {"epoch-s", "12x", "-"},
        {"epoch-min", "12", "no form"},
        {"elapsed-s", "-0.25", "-0.25"},
        {"elapsed-s", "0.5 s", "0.5"},
        {"elapsed-s", "250 ms", "0.25"},
        {"elapsed-ms", "20 \xC2\xB5s", "0.00002"},
        {"elapsed-s", "20 mm", "-"},
        {"elapsed-s", "-9.999999e-02", "-0.09999999"},
        {"elapsed-s", "-00.000012600000", "-0.0000126"},
        {"elapsed-s", "+1.771250008E-4", "0.000177125"},
        {"elapsed-s", "2.302744679E1", "23.02744679"},
        {"elapsed-s", ".5", "0.5"},
        {"elapsed-s", ".", "-"},
        {"elapsed-s", "1e", "-"},
        {"elapsed-ms", "250", "0.25"},
        {"elapsed-us", "1500000.5", "1.5000005"},
        {"elapsed-min", "1.5", "90"},
        {"elapsed-d", "-0.5", "-43200"},
        {"elapsed-clock", "100:00:10.5", "360010.5"},
        {"elapsed-clock", "-0:00:00.25", "-0.25"},
        {"elapsed-clock", "1 02:00:00", "93600"},
        {"elapsed-clock", "0:60:00", "-"},
        {"elapsed-clock", "12", "-"},
        {"elapsed-m:s", "75:30.5", "4530.5"},
        {"decimal-year", "2008.5", "2008/07/02 00:00:00"},
        {"decimal-year", "2007.0", "2007/01/01 00:00:00"},
        {"decimal-year", "0.5", "-"},
        {"dd/MM HH:mm", "", "no form"},
        {"yyyy-MM-MM", "", "no form"},
        {"yyyy-MM-dd DDD", "", "no form"},
        {"mm:ss", "", "no form"},
        {"-yyyy", "", "no form"},
        {"yyy", "", "no form"},
        {"", "", "no form"},
    };
    for (const auto& [name, text, moment] : rows)
        EXPECT_EQ(readAs(name, text), moment) << name << " of " << text;
}

TEST(TimeReader, CountsOfMicroseconds) {
    const Table<const char*, const char*> rows = {
        {"2008/02/25 12:00:05.5", "2008/02/25 12:00:05.000005"},
        {"2008/02/25 12:00:05,000488", "2008/02/25 12:00:05.000488"},
        {"2008/02/25 12:00:05.1234567", "2008/02/25 12:00:05.123456700"},
    };
    for (const auto& [text, moment] : rows)
        EXPECT_EQ(readAs("yyyy/MM/dd HH:mm:ss", text, FractionUnit::Microseconds), moment) << text;
}

// The calendar of the C library is the plain way.
TEST(TimeReader, AgreesWithTheCLibraryOnRandomTimes) {
    std::mt19937 random(5);
    const InternationalSettings settings;
    const Table<const char*, const char*> forms = {
        {"yyyy-MM-dd HH:mm:ss", "%Y-%m-%d %H:%M:%S"},
        {"dd.MM.yyyy HH:mm:ss", "%d.%m.%Y %H:%M:%S"},
        {"MM/dd/yy hh:mm:ss a", "%m/%d/%y %I:%M:%S %p"},
        {"yyyyMMddHHmmss", "%Y%m%d%H%M%S"},
        {"yyyy DDD HH:mm:ss", "%Y %j %H:%M:%S"},
        {"E dd MMM yyyy HH:mm:ss", "%a %e %b %Y %T"},
    };
    for (const auto& [name, pattern] : forms) {
        const TimeReader reader(*TimeForm::parse(name), settings);
        for (int i = 0; i < 2000; ++i) {
            const std::time_t time = std::uniform_int_distribution<int>(0, 2'000'000'000)(random);
            std::tm fields{};
            ::gmtime_r(&time, &fields);
            std::array<char, 64> text{};
            std::strftime(text.data(), text.size(), pattern, &fields);
            const auto moment = reader.read(text.data());
            ASSERT_TRUE(moment && moment->seconds == time) << name << ' ' << text.data();
        }
    }
}

} // namespace
} // namespace pellam
