#include "delimited/sample/FieldKind.h"

#include <string>

namespace pellam {
namespace {

TEST(FieldKindTest, TellsNumbersAndTimesByTheirShape) {
    const Table<FieldKind, std::vector<const char*>> kinds = {
        {FieldKind::Number,
         {"1", "-1.5", "+3.49", ".145", "5.", "1.5e-3", "-00.000024", "1,234.5", "45%", "21.5 C"}},
        {FieldKind::Comma, {"1,5", "-0,10", "1.234,50", "3,906250E-5"}},
        {FieldKind::Time,
         {"2020-05-30 19:00:00", "31/01/2025", "27.May.2021", "16:24:2", "20170408_181100",
          "20160101:0010", "01 01 2018 00:00", "2021-12-11T10:00:00+01:00", "9/Apr/2019",
          "01/20/2021 10:11 PM", "21.04.08 23:00:00", "Mar 9 2021 10:00:00",
          "Mar 9, 2021 @ 10:00:00.500", "2020-06-01T12:00:00.0/2020-06-01T12:01:00.0"}},
        {FieldKind::Missing, {"NaN", "---", "null", "M", "?"}},
        {FieldKind::Text,
         {"Temp", "10:00:00,Door", "9 Mar 2021,10:00:00,1.5", "5;13", "M1", "1e", "12/ab",
          "10m wind", "a 10:00", "--x"}},
        {FieldKind::Empty, {""}},
    };
    for (const auto& [kind, texts] : kinds) {
        for (const char* text : texts)
            EXPECT_EQ(static_cast<int>(fieldKindOf(text)), static_cast<int>(kind)) << text;
    }
}

} // namespace
} // namespace pellam
