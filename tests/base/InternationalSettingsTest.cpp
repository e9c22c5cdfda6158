#include "base/InternationalSettings.h"

#include <cstdlib>
#include <map>

namespace pellam {
namespace {

std::string print(const InternationalSettings& s) {
    return s.amText + '|' + s.pmText + '|' + s.shortDatePattern + '|' + s.language + '|' +
           s.listSeparator + '|' + s.decimalSeparator;
}

TEST(InternationalSettings, StoredValuesOverrideDefaults) {
    const Table<const char*, std::map<std::string, std::string>, const char*> cases = {
        {"nothing", {}, "AM|PM|dd/MM/yyyy|,|,|."},
        {"every key",
         {{"iDate", "1"},
          {"s1159", "vorm"},
          {"s2359", "nachm"},
          {"sShortDate", "yyyy-MM-dd"},
          {"sLanguage", "de"},
          {"sList", "|x"},
          {"sDecimal", ",,"}},
         "vorm|nachm|yyyy-MM-dd|de|||,"},
        {"empty or no number",
         {{"iDate", "one"}, {"sShortDate", ""}, {"sList", ""}, {"s1159", ""}},
         "AM|PM|dd/MM/yyyy|,|,|."},
        {"month first", {{"iDate", "0"}}, "AM|PM|MM/dd/yyyy|,|,|."},
        {"day first", {{"iDate", "1"}}, "AM|PM|dd/MM/yyyy|,|,|."},
        {"year first", {{"iDate", "2"}}, "AM|PM|yyyy/MM/dd|,|,|."},
        {"no separators", {{"sList", "5"}, {"sDecimal", "-"}}, "AM|PM|dd/MM/yyyy|,|,|."},
        {"decimal comma alone", {{"sDecimal", ","}}, "AM|PM|dd/MM/yyyy|,|;|,"},
        {"both the same when both are stored",
         {{"sDecimal", ","}, {"sList", ","}},
         "AM|PM|dd/MM/yyyy|,|,|,"},
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

TEST(InternationalSettings, DatesOfLocales) {
    const Table<const char*, const char*> rows = {
        {"%d.%m.%Y", "dd.MM.yyyy"},
        {"%m/%d/%Y", "MM/dd/yyyy"},
        {"%-d/%-m/%y", "dd/MM/yy"},
        {"%e. %m. %Y", "dd. MM. yyyy"},
        {"%F", "yyyy-MM-dd"},
        {"%D", "MM/dd/yy"},
        {"%Y.%m.%d.", "yyyy.MM.dd."},
        {"%d %b %Y", ""},
        {"%", ""},
        {"", ""},
    };
    for (const auto& [format, pattern] : rows)
        EXPECT_EQ(datePatternOf(format), pattern) << format;
}

TEST(InternationalSettingsLocale, MissingLocaleGivesPoint) {
    ::setenv("LC_ALL", "xx_XX.UTF-8", 1);
    const auto settings = InternationalSettings::fromLocale();
    ::unsetenv("LC_ALL");
    EXPECT_EQ(print(settings), print({}));
}

} // namespace
} // namespace pellam
