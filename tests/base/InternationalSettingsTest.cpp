#include "base/InternationalSettings.h"

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

TEST(InternationalSettings, StoredValuesOverrideDefaults) {
    const Table<const char*, std::map<std::string, std::string>, const char*> cases = {
        {"nothing", {}, "0|0|/|:|AM|PM|dd/MM/yyyy|HH:mm:ss|,|,|.|,"},
        {"every key",
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
        {"empty or no number",
         {{"iDate", "one"}, {"iTime", ""}, {"sList", ""}, {"sDate", ""}},
         "0|0|/|:|AM|PM|dd/MM/yyyy|HH:mm:ss|,|,|.|,"},
        {"no separators",
         {{"sList", "5"}, {"sDecimal", "-"}, {"sThousand", "\xC3\xA4"}},
         "0|0|/|:|AM|PM|dd/MM/yyyy|HH:mm:ss|,|,|.|,"},
        {"decimal comma alone", {{"sDecimal", ","}}, "0|0|/|:|AM|PM|dd/MM/yyyy|HH:mm:ss|,|;|,|,"},
        {"both the same when both are stored",
         {{"sDecimal", ","}, {"sList", ","}},
         "0|0|/|:|AM|PM|dd/MM/yyyy|HH:mm:ss|,|,|,|,"},
    };
    for (const auto& [name, stored, expected] : cases) {
        const auto& values = stored;
        const auto lookup = [&](std::string_view key) -> std::optional<std::string> {
            const auto found = values.find(std::string(key));
            return found == values.end() ? std::nullopt : std::optional(found->second);
        };
        EXPECT_EQ(print(InternationalSettings::read(lookup, {})), expected) << name;
    }
}

TEST(InternationalSettingsLocale, MissingLocaleGivesPoint) {
    ::setenv("LC_ALL", "xx_XX.UTF-8", 1);
    const auto settings = InternationalSettings::fromLocale();
    ::unsetenv("LC_ALL");
    EXPECT_EQ(print(settings), print({}));
}

} // namespace
} // namespace pellam
