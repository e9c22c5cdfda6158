#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace pellam {

/// How numbers, dates and lists are written for this user; read once at start-up.
struct InternationalSettings {
    std::string amText = "AM";
    std::string pmText = "PM";
    std::string shortDatePattern = "dd/MM/yyyy"; ///< its order decides where a date has two
    std::string language = ",";
    char listSeparator = ',';
    char decimalSeparator = '.';

    /// Gives the text stored under a key such as "sDecimal"; nothing when it is not set.
    using Lookup = std::function<std::optional<std::string>(std::string_view key)>;

    /// The settings as the lookup has them; a missing or empty value keeps the default of
    /// `defaults`. One-character values are the first character of the stored text; a letter,
    /// digit, sign, quote or what is not plain ASCII counts as missing. A default list separator
    /// that equals the decimal separator read gives way to ';'. Without "sShortDate", "iDate" gives
    /// the order of dates: 0 month first, 1 day first, 2 year first.
    static InternationalSettings read(const Lookup& lookup, const InternationalSettings& defaults);

    /// The defaults of the user's locale (environment variables LC_ALL, LC_NUMERIC, LC_TIME, LANG):
    /// its decimal separator, ';' between list items where that is ',', else ',', and the order of
    /// its dates. The C locale has no dates of anyone's: they stay day first.
    static InternationalSettings fromLocale();
};

/// The pattern of a strftime() format of a date: "dd.MM.yyyy" for "%d.%m.%Y". Only numbers count;
/// empty when day, month or year is missing.
[[nodiscard]] std::string datePatternOf(std::string_view strftimeFormat);

} // namespace pellam
