#include "times/SoughtTime.h"
#include "base/InternationalSettings.h"
#include "times/TimeReader.h"

namespace pellam {
namespace {

TEST(SoughtTime, PartsThatArePresentAndTheLeastOfTheRest) {
    const Table<const char*, const char*, const char*> rows = {
        {"yyyy/MM/dd HH:mm:ss", "2008/02/25 12", "2008/02/25 12:00:00"},
        {"yyyy/MM/dd HH:mm:ss", "2008-2-25T12:30", "2008/02/25 12:30:00"},
        {"yyyy/MM/dd HH:mm:ss", "2008/02/", "2008/02/01 00:00:00"},
        {"yyyy/MM/dd HH:mm:ss", "2008/", "2008/01/01 00:00:00"},
        {"yyyy/MM/dd HH:mm:ss", "25 Feb 2008", "2008/02/25 00:00:00"},
        {"yyyyMMdd_HHmmss", "20080225 12", "2008/02/25 12:00:00"},
        {"dd/MM/yyyy HH:mm", "25/02/2008 12:03", "2008/02/25 12:03:00"},
        {"dd/MM/yyyy HH:mm", "03.02.08 7", "2008/02/03 07:00:00"},
        {"dd/MM/yyyy HH:mm", "02/2008", "2008/02/01 00:00:00"},
        {"dd/MM/yyyy HH:mm", "Feb 2008", "2008/02/01 00:00:00"},
        {"dd/MM/yyyy HH:mm", "2008-02", "2008/02/01 00:00:00"},
        {"dd/MM/yyyy HH:mm", "26/02", "-"},
        {"MM/dd/yyyy HH:mm", "03/02/2008", "2008/03/02 00:00:00"},
        {"MM/dd/yyyy HH:mm", "25/02/2008", "2008/02/25 00:00:00"},
        {"yy.MM.dd HH:mm:ss", "21.04.08 23", "2021/04/08 23:00:00"},
        {"yyyy-DDD HH:mm", "2018-123 12", "2018/05/03 12:00:00"},
        {"yyyy/MM/dd HH:mm:ss", "12:30", "any 1970/01/01 12:30:00"},
        {"yyyy/MM/dd HH:mm:ss", "12:30:05.25", "any 1970/01/01 12:30:05.250"},
        {"yyyy/MM/dd HH:mm:ss", "1 pm", "any 1970/01/01 13:00:00"},
        {"HH:mm:ss", "12:30", "1970/01/01 12:30:00"},
        {"elapsed-ms", "10.5", "1970/01/01 00:00:00.010500"},
        {"elapsed-s", "250 ms", "1970/01/01 00:00:00.250"},
        {"elapsed-s", "1.5h", "1970/01/01 01:30:00"},
        {"elapsed-s", "0:01:30", "1970/01/01 00:01:30"},
        {"elapsed-clock", "1 d 2:03:04.5", "1970/01/02 02:03:04.500"},
        {"elapsed-us", "−28 µs", "1969/12/31 23:59:59.999972"},
        {"yyyy/MM/dd HH:mm:ss", "2009", "-"},
        {"yyyy/MM/dd HH:mm:ss", "120", "-"},
        {"yyyy/MM/dd HH:mm:ss", "", "-"},
        {"yyyy/MM/dd HH:mm:ss", "pump", "-"},
        {"yyyy/MM/dd HH:mm:ss", "2008/02/25 12:xx", "-"},
        {"yyyy/MM/dd HH:mm:ss", "17.5", "-"},
    };
    for (const auto& [form, text, expected] : rows) {
        const auto sought = SoughtTime::read(text, *TimeForm::parse(form), {});
        std::string shown = sought && sought->ofAnyDay() ? "any " : "";
        shown += sought ? calendarText(sought->moment()) : "-";
        EXPECT_EQ(shown, expected) << text << " in " << form;
    }
}

TEST(SoughtTime, RowsAreAtItOrAfter) {
    const TimeForm form = *TimeForm::parse("yyyy-MM-dd HH:mm:ss");
    const TimeReader reader(form, {});
    const Table<const char*, const char*, const char*, bool> rows = {
        {"2008-02-25", "2008-01-01", "2008-02-24 23:59:59", false},
        {"2008-02-25", "2008-01-01", "2008-02-25", true},
        {"2008-02-25 12:00:00.5", "2008-01-01", "2008-02-25 12:00:00.25", false},
        {"12:30", "2008-02-25 10:00", "2008-02-25 12:29:59", false},
        {"12:30", "2008-02-25 10:00", "2008-02-25 12:30", true},
        {"12:30", "2008-02-25 12:30", "2008-02-25 12:30", true},
        {"12:30", "2008-02-25 12:30:00.25", "2008-02-25 23:59", false},
        {"12:30", "2008-02-25 12:31", "2008-02-26 12:30", true},
        {"12:30", "1969-12-31 12:31", "1970-01-01 12:29", false},
        {"2008-02-25 12:00", "2008-01-01", "2008-02-25T12:00:00+02:00", true},
        {"2008-02-25 12:00", "2008-01-01", "2008-02-25T11:59:00-02:00", false},
        {"2008-02-25 12:00Z", "2008-01-01", "2008-02-25T12:00:00+02:00", false},
        {"12:30", "2008-02-25T10:00:00+02:00", "2008-02-25T12:30:00+02:00", true},
    };
    for (const auto& [text, start, row, reached] : rows) {
        const auto sought = SoughtTime::read(text, form, {});
        ASSERT_TRUE(sought) << text;
        EXPECT_EQ(sought->from(*reader.read(start)).reachedBy(*reader.read(row)), reached)
            << text << " from " << start << " at " << row;
    }
}

} // namespace
} // namespace pellam
