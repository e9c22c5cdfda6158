#include "base/InternationalSettings.h"

#include <algorithm>
#include <clocale>
#include <cstring>
#include <langinfo.h>
#include <locale.h> // NOLINT(modernize-deprecated-headers): has newlocale()

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

void readDatePattern(const Lookup& lookup, std::string& pattern) {
    const std::string order = lookup("iDate").value_or("");
    if (order == "0") pattern = "MM/dd/yyyy";
    if (order == "1") pattern = "dd/MM/yyyy";
    if (order == "2") pattern = "yyyy/MM/dd";
    readText(lookup, "sShortDate", pattern);
}

/// A locale of the environment, as far as it is installed.
class Locale {
  public:
    explicit Locale(int mask) : m_locale(newlocale(mask, "", nullptr)) {}

    ~Locale() {
        if (m_locale != nullptr) freelocale(m_locale);
    }

    Locale(const Locale&) = delete;
    Locale& operator=(const Locale&) = delete;

    explicit operator bool() const { return m_locale != nullptr; }

    [[nodiscard]] locale_t get() const { return m_locale; }

  private:
    locale_t m_locale;
};

bool isC(std::string_view name) {
    return name == "C" || name.starts_with("C.") || name == "POSIX";
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
    readText(lookup, "s1159", settings.amText);
    readText(lookup, "s2359", settings.pmText);
    readDatePattern(lookup, settings.shortDatePattern);
    readText(lookup, "sLanguage", settings.language);
    readCharacter(lookup, "sDecimal", settings.decimalSeparator);
    // Decimal commas between commas could not be told apart.
    if (settings.decimalSeparator == settings.listSeparator) settings.listSeparator = ';';
    readCharacter(lookup, "sList", settings.listSeparator);
    return settings;
}

InternationalSettings InternationalSettings::fromLocale() {
    InternationalSettings settings;
    // An environment may name locales that are not installed.
    if (const Locale numbers(LC_NUMERIC_MASK); numbers) {
        settings.decimalSeparator = separatorOf(numbers.get(), RADIXCHAR, '.');
        settings.listSeparator = settings.decimalSeparator == ',' ? ';' : ',';
    }
    const Locale times(LC_TIME_MASK);
    if (!times || isC(nl_langinfo_l(_NL_LOCALE_NAME(LC_TIME), times.get()))) return settings;
    const std::string pattern = datePatternOf(nl_langinfo_l(D_FMT, times.get()));
    if (!pattern.empty()) settings.shortDatePattern = pattern;
    return settings;
}

std::string datePatternOf(std::string_view strftimeFormat) {
    std::string pattern;
    bool fields[3] = {};
    for (std::size_t i = 0; i < strftimeFormat.size(); ++i) {
        if (strftimeFormat[i] != '%') {
            pattern += strftimeFormat[i];
            continue;
        }
        // Flags and modifiers: "%-d", "%Ey".
        i = std::min(strftimeFormat.find_first_not_of("-_0^#EO", i + 1), strftimeFormat.size() - 1);
        const char field = strftimeFormat[i];
        if (field == 'D') return "MM/dd/yy";
        if (field == 'F') return "yyyy-MM-dd";
        const bool day = field == 'd' || field == 'e';
        const bool month = field == 'm';
        const bool year = field == 'Y' || field == 'y';
        if (day || month || year) fields[day ? 0 : month ? 1 : 2] = true;
        pattern += day ? "dd" : month ? "MM" : field == 'Y' ? "yyyy" : year ? "yy" : "";
    }
    return fields[0] && fields[1] && fields[2] ? pattern : std::string();
}

} // namespace pellam
