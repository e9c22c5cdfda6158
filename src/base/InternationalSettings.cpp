#include "base/InternationalSettings.h"

#include <charconv>
#include <clocale>
#include <cstring>
#include <langinfo.h>
#include <locale.h>

namespace pellam {

namespace {

using Lookup = InternationalSettings::Lookup;

void readText(const Lookup& lookup, std::string_view key, std::string& text) {
    if (auto stored = lookup(key); stored && !stored->empty()) text = *std::move(stored);
}

// What is part of numbers, text or lines parts nothing: it would change what is read and written.
bool canSeparate(char c) {
    const bool alphanumeric =
        (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    const bool visible = c >= ' ' && c <= '~';
    return c == '\t' || (visible && !alphanumeric && c != '+' && c != '-' && c != '"');
}

void readCharacter(const Lookup& lookup, std::string_view key, char& character) {
    const auto stored = lookup(key);
    if (stored && !stored->empty() && canSeparate(stored->front())) character = stored->front();
}

void readNumber(const Lookup& lookup, std::string_view key, int& number) {
    const auto stored = lookup(key);
    if (!stored) return;
    int value = 0;
    const char* const end = stored->data() + stored->size();
    const auto result = std::from_chars(stored->data(), end, value);
    if (result.ec == std::errc() && result.ptr == end) number = value;
}

/// The locale's text for an item when that is one plain character, else `fallback`: the grid works
/// with one-byte separators.
char separatorOf(locale_t locale, nl_item item, char fallback) {
    const char* const text = nl_langinfo_l(item, locale);
    const bool oneByte = std::strlen(text) == 1 && static_cast<unsigned char>(*text) < 0x80;
    return oneByte ? *text : fallback;
}

} // namespace

InternationalSettings InternationalSettings::read(const Lookup& lookup,
                                                  const InternationalSettings& defaults) {
    InternationalSettings settings = defaults;
    readNumber(lookup, "iDate", settings.dateOrder);
    readNumber(lookup, "iTime", settings.timeFormat);
    readText(lookup, "sDate", settings.dateSeparator);
    readText(lookup, "sTime", settings.timeSeparator);
    readText(lookup, "s1159", settings.amText);
    readText(lookup, "s2359", settings.pmText);
    readText(lookup, "sShortDate", settings.shortDatePattern);
    readText(lookup, "sTimeFormat", settings.timePattern);
    readText(lookup, "sLanguage", settings.language);
    readCharacter(lookup, "sDecimal", settings.decimalSeparator);
    // Decimal commas between commas could not be told apart.
    if (settings.decimalSeparator == settings.listSeparator) settings.listSeparator = ';';
    readCharacter(lookup, "sList", settings.listSeparator);
    readCharacter(lookup, "sThousand", settings.thousandsSeparator);
    return settings;
}

InternationalSettings InternationalSettings::fromLocale() {
    InternationalSettings settings;
    const locale_t locale = newlocale(LC_NUMERIC_MASK, "", nullptr);
    if (locale == nullptr) return settings; // the environment names a locale that is not installed
    settings.decimalSeparator = separatorOf(locale, RADIXCHAR, '.');
    const bool decimalComma = settings.decimalSeparator == ',';
    settings.listSeparator = decimalComma ? ';' : ',';
    settings.thousandsSeparator = separatorOf(locale, THOUSEP, decimalComma ? '.' : ',');
    freelocale(locale);
    return settings;
}

} // namespace pellam
