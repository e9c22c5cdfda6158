#include "base/InternationalSettings.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>

namespace pellam {
namespace {

std::string print(const InternationalSettings& s) {
    return std::to_string(s.dateOrder) + '|' + std::to_string(s.timeFormat) + '|' +
           s.dateSeparator + '|' + s.timeSeparator + '|' + s.amText + '|' + s.pmText + '|' +
           s.shortDatePattern + '|' + s.timePattern + '|' + s.language + '|' + s.listSeparator +
           '|' + s.decimalSeparator + '|' + s.thousandsSeparator;
}

struct Case {
    const char* name;
    std::map<std::string, std::string> stored;
    const char* expected;
};

class InternationalSettingsTest : public testing::TestWithParam<Case> {};

TEST_P(InternationalSettingsTest, StoredValuesOverrideDefaults) {
    const auto& stored = GetParam().stored;
    const auto lookup = [&](std::string_view key) -> std::optional<std::string> {
        const auto found = stored.find(std::string(key));
        return found == stored.end() ? std::nullopt : std::optional(found->second);
    };
    EXPECT_EQ(print(InternationalSettings::read(lookup, {})), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    All, InternationalSettingsTest,
    testing::Values(Case{"nothing", {}, "0|0|/|:|AM|PM|dd/MM/yyyy|HH:mm:ss|,|,|.|,"},
                    Case{"every_key",
                         {{"iDate", "1"},
                          {"iTime", "2"},
                          {"sDate", "-"},
                          {"sTime", "."},
                          {"s1159", "vorm"},
                          {"s2359", "nachm"},
                          {"sShortDate", "yyyy-MM-dd"},
                          {"sTimeFormat", "HH.mm.ss"},
                          {"sLanguage", "de"},
                          {"sList", "|x"},
                          {"sDecimal", ",,"},
                          {"sThousand", " "}},
                         "1|2|-|.|vorm|nachm|yyyy-MM-dd|HH.mm.ss|de|||,| "},
                    Case{"empty_or_no_number",
                         {{"iDate", "one"}, {"iTime", ""}, {"sList", ""}, {"sDate", ""}},
                         "0|0|/|:|AM|PM|dd/MM/yyyy|HH:mm:ss|,|,|.|,"},
                    Case{"no_separators",
                         {{"sList", "5"}, {"sDecimal", "-"}, {"sThousand", "\xC3\xA4"}},
                         "0|0|/|:|AM|PM|dd/MM/yyyy|HH:mm:ss|,|,|.|,"},
                    Case{"decimal_comma_alone",
                         {{"sDecimal", ","}},
                         "0|0|/|:|AM|PM|dd/MM/yyyy|HH:mm:ss|,|;|,|,"},
                    Case{"both_the_same_when_both_are_stored",
                         {{"sDecimal", ","}, {"sList", ","}},
                         "0|0|/|:|AM|PM|dd/MM/yyyy|HH:mm:ss|,|,|,|,"}),
    [](const auto& row) { return row.param.name; });

TEST(InternationalSettingsLocale, MissingLocaleGivesPoint) {
    ::setenv("LC_ALL", "xx_XX.UTF-8", 1);
    const auto settings = InternationalSettings::fromLocale();
    ::unsetenv("LC_ALL");
    EXPECT_EQ(print(settings), print({}));
}

} // namespace
} // namespace pellam
