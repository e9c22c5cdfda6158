#include "times/TimeFinder.h"
#include "base/InternationalSettings.h"

#include <string>
#include <vector>

namespace pellam {
namespace {

/// The samples of a text with a '|' between them.
std::vector<std::string_view> parted(std::string_view text) {
    std::vector<std::string_view> samples;
    for (std::size_t bar = 0; bar != std::string_view::npos;) {
        bar = text.find('|');
        samples.push_back(text.substr(0, bar));
        text.remove_prefix(bar == std::string_view::npos ? text.size() : bar + 1);
    }
    return samples;
}

TEST(TimeFinder, FormsOfTimes) {
    const Table<const char*, const char*> rows = {
        {"2017-01-09 21:15:52 UTC|2017-01-09 21:15:53 UTC", "yyyy-MM-dd HH:mm:ss"},
        {"2008/02/25|", "yyyy/MM/dd"},
        {"2020-05-04T15:29:37+02:00|2020-05-04T15:29:52+02:00", "yyyy-MM-ddTHH:mm:ss"},
        {"2019-12-13T15:17:00.25Z|2019-12-13T15:18:00Z", "yyyy-MM-ddTHH:mm:ss"},
        {"01 01 2018 00:00|01 01 2018 00:10|20 01 2018 00:20", "dd MM yyyy HH:mm"},
        {"2020-06-01T12:01:00.0/2020-06-01T12:02:00.0", "yyyy-MM-ddTHH:mm:ss"},
        {"20170408_181100|20170408_184934", "yyyyMMdd_HHmmss"},
        {"20170408T181100Z", "yyyyMMddTHHmmss"},
        {"20160101:0010|20160101:0020", "yyyyMMdd:HHmm"},
        {"20170408|20170409", "yyyyMMdd"},
        {"20170408181100|20170408181101", "yyyyMMddHHmmss"},
        {"201704081811", "yyyyMMddHHmm"},
        {"2017040818", "yyyyMMddHH"},
        {"21.04.08 23:00:00|21.04.09 09:07:34|21.04.09 09:07:43", "yy.MM.dd HH:mm:ss"},
        {"9/Apr/2019|10/Apr/2019", "dd/MMM/yyyy"},
        {"Apr 9, 2019 1:05 PM|Apr 9, 2019 1:06 PM", "MMM dd, yyyy HH:mm a"},
        {"27.May.2021 16:37:9|27.May.2021 16:37:19", "dd.MMM.yyyy HH:mm:ss"},
        {"01/Jan/2019:12:30:00 +0000", "dd/MMM/yyyy:HH:mm:ss"},
        {"2017:04:08 18:11:00", "yyyy:MM:dd HH:mm:ss"},
        {"Thu Jan  5 12:30:00 UTC 2019|Fri Jan  6 12:30:00 UTC 2019", "E MMM  dd HH:mm:ss yyyy"},
        {"12:30:00 25/02/2019", "HH:mm:ss dd/MM/yyyy"},
        {"25/02/2008 , 12:03:00|26/02/2008 , 12:03:00", "dd/MM/yyyy , HH:mm:ss"},
        {"10.06.2024 00:20:00|11.06.2024 00:30:00|30.06.2024 00:40:00", "dd.MM.yyyy HH:mm:ss"},
        {"12/31/98 11:05 AM", "MM/dd/yy HH:mm a"},
        {"2018-123|2018-124", "yyyy-DDD"},
        {"2018 291 116|2018 291 117", "yyyy DDD HHmm"},
        {"2018 099 23 59|2018 100 00 00", "yyyy DDD HH mm"},
        {"2016 1 1 1 15|2016 1 1 1 16", "yyyy MM dd HH mm"},
        {"2016-01-01-01-15-59|2016-01-01-01-16-00", "yyyy-MM-dd-HH-mm-ss"},
        {"2016-07|2016-08", "yyyy-MM"},
        {"Feb 2016|Mar 2016", "MMM yyyy"},
        {"10:17:22.207|10:17:22.800", "HH:mm:ss"},
        {"00:00|00:15|00:30", "HH:mm"},
        {"11:59 pm|00:01 am", "HH:mm a"},
        {"1576333020|1576334820|1576336620", "epoch-s"},
        {"1576333020.25|1576333020.50", "epoch-s"},
        {"1576333020250|1576333020500", "epoch-ms"},
        {"1576333020250000|1576333020500000", "epoch-us"},
        {"1576333020250000000|1576333020500000000", "epoch-ns"},
        {"1880.04|1880.13|1880.21|1880.29", "decimal-year"},
        {"23:59:58|23:59:59|24:00:00|24:00:01", "elapsed-clock"},
        {"0:00:00|0:00:10|0:00:20", "elapsed-clock"},
        {"59:50.5|60:00.0|60:10.5", "elapsed-m:s"},
    };
    for (const auto& [samples, name] : rows) {
        const TimeFinding finding = findTimeForm(parted(samples), {});
        EXPECT_EQ(finding.form.name(), name) << samples;
        EXPECT_TRUE(finding.convincing()) << samples;
        EXPECT_TRUE(TimeForm::parse(finding.form.name()) == finding.form) << samples;
    }
}

TEST(TimeFinder, ColumnsWithoutTimes) {
    for (const char* const samples : {
             "",
             " ||",
             "17.5|18.25|-3",
             "1|2|3|4",
             "2001|2002|2003",
             "1013.25|1013.50|1013.75",
             "1.2.3|1.2.4|1.10.12",
             "10.2.12|10.2.13",
             "192.168.1.100|10.11.12.13",
             "north|south",
             "Marlow 3, May",
             "44838|45445|45950",
             "2018.123|2018.124|2017.125",
             "1576333020|1576333020",
             "1576333020",
             "1576333020|1476333020|1376333020",
             "99999999|12345678|20171399",
             "1.5E+09|1.6E+05",
             "10 11 12|13 14 15",
             "1;2;3",
             "01-02-345",
             "NaN|---",
             "5.0 V|5.1 V",
             "123-456-7890",
             "A1:B2|A2:B3",
             "00:1A:2B:3C:4D:5E",
             "3:4|5:7",
             "$0|$1",
             "2008-13-45|2008-14-45",
         }) {
        const TimeFinding finding = findTimeForm(parted(samples), {});
        EXPECT_FALSE(finding.convincing()) << samples << " as " << finding.form.name();
    }
}

TEST(TimeFinder, OrderOfDayAndMonth) {
    using Order = TimeFinding::Order;
    const Table<const char*, const char*, const char*, Order, const char*> rows = {
        {"dd/MM/yyyy", "2008-02-03|2008-02-04", "yyyy-MM-dd", Order::Written, ""},
        {"dd/MM/yyyy", "3-Feb-2008", "dd-MMM-yyyy", Order::Written, ""},
        {"MM/dd/yyyy", "03/02/2008|13/02/2008", "dd/MM/yyyy", Order::Values, ""},
        {"dd/MM/yyyy", "03/02/2008|03/13/2008", "MM/dd/yyyy", Order::Values, ""},
        {"MM/dd/yyyy", "01/01/2008|02/01/2008|03/01/2008", "dd/MM/yyyy", Order::Spacing,
         "MM/dd/yyyy"},
        {"dd/MM/yyyy", "01/01/2008|01/02/2008|01/03/2008", "MM/dd/yyyy", Order::Spacing,
         "dd/MM/yyyy"},
        {"MM/dd/yyyy",
         "01/10/2008|01/11/2008|01/12/2008|01/01/2009|01/02/2009|01/03/2009|01/04/2009",
         "dd/MM/yyyy", Order::Spacing, "MM/dd/yyyy"},
        {"dd/MM/yyyy", "03/02/2008 10:00|03/02/2008 10:10", "dd/MM/yyyy HH:mm", Order::Locale,
         "MM/dd/yyyy HH:mm"},
        {"M/d/yy", "03/02/2008 10:00|03/02/2008 10:10", "MM/dd/yyyy HH:mm", Order::Locale,
         "dd/MM/yyyy HH:mm"},
        {"yy-MM-dd", "03-02-08 10:00|03-02-08 10:10", "yy-MM-dd HH:mm", Order::Locale,
         "dd-MM-yy HH:mm"},
    };
    for (const auto& [locale, samples, name, order, other] : rows) {
        InternationalSettings settings;
        settings.shortDatePattern = locale;
        const TimeFinding finding = findTimeForm(parted(samples), settings);
        EXPECT_EQ(finding.form.name(), name) << samples;
        EXPECT_EQ(finding.order, order) << samples;
        EXPECT_EQ(finding.other.name(), other) << samples;
        EXPECT_EQ(finding.ambiguous(), other[0] != '\0') << samples;
    }
}

TEST(TimeFinder, MixedColumnsKeepTheFormThatReadsMost) {
    const auto samples =
        parted("2008-02-03 10:00|13/02/2008 10:00|14/02/2008 10:00|rain|15/02/2008");
    const TimeFinding finding = findTimeForm(samples, {});
    EXPECT_EQ(finding.form.name(), "dd/MM/yyyy HH:mm");
    EXPECT_EQ(finding.read, 4U);
    EXPECT_EQ(finding.samples, 5U);
    EXPECT_FALSE(finding.convincing());
}

} // namespace
} // namespace pellam
