#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pellam {

// Keys and values in the INI form of Qt's QSettings (QSettings::IniFormat), which the settings file
// shares with it. All texts are UTF-8.

/// A key as it stands in the file: '/' becomes '\', letters, digits, '_', '-' and '.' stand for
/// themselves, anything else is %XX or %UXXXX.
std::string escapeIniKey(std::string_view key);
/// The reverse; a '%' that starts no escape stands for itself.
std::string unescapeIniKey(std::string_view raw);

/// A text as it stands after the '='. Bytes that are no UTF-8 are kept too, as binary data.
std::string escapeIniText(std::string_view text);
/// The reverse. Commas need no quotes; a value that is ';' alone is that character. Nothing for
/// values of other kinds (fonts, sizes, an invalid value).
std::optional<std::string> unescapeIniText(std::string_view raw);

/// Binary data as it stands after the '=', in @ByteArray().
std::string escapeIniBytes(std::string_view bytes);
/// The reverse; nothing when the value is not binary data.
std::optional<std::string> unescapeIniBytes(std::string_view raw);

} // namespace pellam
