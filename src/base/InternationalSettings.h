#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace pellam {

/// How numbers, dates and lists are written for this user; read once at start-up.
struct InternationalSettings {
    int dateOrder = 0;  ///< "iDate"
    int timeFormat = 0; ///< "iTime"
    std::string dateSeparator = "/";
    std::string timeSeparator = ":";
    std::string amText = "AM";
    std::string pmText = "PM";
    std::string shortDatePattern = "dd/MM/yyyy";
    std::string timePattern = "HH:mm:ss";
    std::string language = ",";
    char listSeparator = ',';
    char decimalSeparator = '.';
    char thousandsSeparator = ',';

    /// Gives the text stored under a key such as "sDecimal"; nothing when it is not set.
    using Lookup = std::function<std::optional<std::string>(std::string_view key)>;

    /// The settings as the lookup has them; a missing or empty value keeps the default of
    /// `defaults`. One-character values are the first character of the stored text; a letter,
    /// digit, sign, quote or what is not plain ASCII counts as missing. A default list separator
    /// that equals the decimal separator read gives way to ';'.
    static InternationalSettings read(const Lookup& lookup, const InternationalSettings& defaults);

    /// The defaults of the user's locale (environment variables LC_ALL, LC_NUMERIC, LANG): its
    /// decimal separator, and ';' between list items where that is ',', else ','.
    static InternationalSettings fromLocale();
};

} // namespace pellam
