#include "settings/IniText.h"

#include "base/Utf8.h"
#include "settings/CodePoint.h"

#include <array>
#include <charconv>
#include <cstdint>

namespace pellam {

namespace {

constexpr std::string_view kBytesOpen = "@ByteArray(";
constexpr std::string_view kStringOpen = "@String(";

bool isHexDigit(char32_t c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool isKeyCharacter(char32_t c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
           c == '-' || c == '.';
}

void appendHex(std::string& text, std::uint32_t value, int digits) {
    static constexpr std::string_view kDigits = "0123456789ABCDEF";
    for (int i = digits - 1; i >= 0; --i) {
        text += kDigits[value >> (4U * static_cast<unsigned>(i)) & 0xFU];
    }
}

void appendCodePoint(std::string& text, char32_t codePoint) {
    std::array<char, 4> bytes{};
    text.append(bytes.data(), appendUtf8(bytes.data(), codePoint));
}

/// Code units of UTF-16 as they come out of escapes; joins surrogate pairs.
class CodeUnits {
  public:
    explicit CodeUnits(std::string& text) : m_text(text) {}

    void append(std::uint32_t unit) {
        const bool low = unit >= 0xDC00 && unit <= 0xDFFF;
        if (low && m_high != 0) {
            appendCodePoint(m_text, 0x10000 + ((m_high - 0xD800) << 10U) + (unit - 0xDC00));
            m_high = 0;
            return;
        }
        flush();
        if (unit >= 0xD800 && unit <= 0xDBFF) {
            m_high = unit;
        } else {
            appendCodePoint(m_text, low || unit > 0xFFFF ? 0xFFFD : unit);
        }
    }

    void flush() {
        if (m_high != 0) appendCodePoint(m_text, 0xFFFD);
        m_high = 0;
    }

  private:
    std::string& m_text;
    std::uint32_t m_high = 0;
};

/// The letter after a backslash that stands for a control character; 0 when none does.
char letterOf(char32_t c) {
    switch (c) {
    case '\a':
        return 'a';
    case '\b':
        return 'b';
    case '\f':
        return 'f';
    case '\n':
        return 'n';
    case '\r':
        return 'r';
    case '\t':
        return 't';
    case '\v':
        return 'v';
    default:
        return '\0';
    }
}

char controlOf(char letter) {
    static constexpr std::string_view kControls = "\a\b\f\n\r\t\v";
    for (const char control : kControls) {
        if (letterOf(static_cast<char32_t>(control)) == letter) return control;
    }
    return letter;
}

/// Writes one value character by character; `escapeHigh` also escapes what lies past ASCII.
class ValueWriter {
  public:
    explicit ValueWriter(bool escapeHigh) : m_escapeHigh(escapeHigh) {}

    void append(char32_t c) {
        if (c == ';' || c == ',' || c == '=') m_quote = true;
        const bool endsEscape = m_afterHex && isHexDigit(c);
        m_afterHex = false;
        if (endsEscape) return appendCode(c);
        if (c == 0) {
            m_text += "\\0";
            m_afterHex = true;
        } else if (letterOf(c) != '\0') {
            m_text += {'\\', letterOf(c)};
        } else if (c == '"' || c == '\\') {
            m_text += {'\\', static_cast<char>(c)};
        } else if (c <= 0x1F || (c >= 0x7F && m_escapeHigh)) {
            appendCode(c);
        } else {
            appendCodePoint(m_text, c);
        }
    }

    [[nodiscard]] std::string text() const {
        const bool edgeSpace = !m_text.empty() && (m_text.front() == ' ' || m_text.back() == ' ');
        return m_quote || edgeSpace ? '"' + m_text + '"' : m_text;
    }

  private:
    void appendCode(char32_t c) {
        char digits[8];
        const auto end = std::to_chars(digits, digits + sizeof digits, std::uint32_t{c}, 16).ptr;
        m_text += "\\x";
        m_text.append(digits, end);
        m_afterHex = true; // a following digit would be read as part of this escape
    }

    std::string m_text;
    bool m_escapeHigh;
    bool m_quote = false;
    bool m_afterHex = false;
};

/// Reads one value: quotes, escapes, the comment behind it.
class ValueReader {
  public:
    explicit ValueReader(std::string_view raw) : m_raw(raw) {}

    std::string read() {
        bool quoted = false;
        std::size_t keep = 0; // blanks past here are not part of the value
        while (m_at < m_raw.size()) {
            const char c = m_raw[m_at++];
            if (c == '"') {
                quoted = !quoted;
                keep = m_text.size();
                continue;
            }
            if (c == ';' && !quoted) break;
            if (c == '\\' && m_at < m_raw.size()) {
                readEscape();
                keep = m_text.size();
                continue;
            }
            m_units.flush();
            const bool blank = (c == ' ' || c == '\t' || c == '\r') && !quoted;
            if (blank && m_text.empty()) continue;
            m_text += c;
            if (!blank) keep = m_text.size();
        }
        m_units.flush();
        m_text.resize(keep);
        return m_text;
    }

  private:
    void readEscape() {
        const char c = m_raw[m_at++];
        if (c == 'x') return m_units.append(readNumber(16));
        if (c >= '0' && c <= '7') {
            --m_at;
            return m_units.append(readNumber(8));
        }
        m_units.flush();
        m_text += controlOf(c);
    }

    std::uint32_t readNumber(int base) {
        std::uint32_t value = 0;
        const char* const from = m_raw.data() + m_at;
        const auto result = std::from_chars(from, m_raw.data() + m_raw.size(), value, base);
        m_at += static_cast<std::size_t>(result.ptr - from);
        return result.ec == std::errc() ? value : 0xFFFD;
    }

    std::string_view m_raw;
    std::string m_text;
    CodeUnits m_units{m_text};
    std::size_t m_at = 0;
};

/// What stands between `open` and the last ')'; nothing for another kind of value.
std::optional<std::string_view> inside(std::string_view value, std::string_view open) {
    if (!value.starts_with(open) || !value.ends_with(')')) return std::nullopt;
    return value.substr(open.size(), value.size() - open.size() - 1);
}

std::optional<std::string> bytesOf(std::string_view value) {
    const auto content = inside(value, kBytesOpen);
    if (!content) return std::nullopt;
    std::string bytes;
    for (std::size_t at = 0; at < content->size();) {
        const char32_t c = decodeUtf8(*content, at);
        if (c > 0xFF) return std::nullopt;
        bytes += static_cast<char>(c);
    }
    return bytes;
}

} // namespace

std::string escapeIniKey(std::string_view key) {
    std::string raw;
    for (std::size_t at = 0; at < key.size();) {
        const std::size_t start = at;
        char32_t c = decodeUtf8(key, at);
        if (c == kNoCodePoint) c = static_cast<unsigned char>(key[start]);
        if (c == '/') {
            raw += '\\';
        } else if (isKeyCharacter(c)) {
            raw += static_cast<char>(c);
        } else if (c <= 0xFF) {
            raw += '%';
            appendHex(raw, c, 2);
        } else if (c <= 0xFFFF) {
            raw += "%U";
            appendHex(raw, c, 4);
        } else {
            raw += "%U";
            appendHex(raw, 0xD800 + ((c - 0x10000) >> 10U), 4);
            raw += "%U";
            appendHex(raw, 0xDC00 + ((c - 0x10000) & 0x3FFU), 4);
        }
    }
    return raw;
}

std::string unescapeIniKey(std::string_view raw) {
    std::string key;
    CodeUnits units(key);
    for (std::size_t at = 0; at < raw.size(); ++at) {
        const bool wide = raw.substr(at).starts_with("%U");
        const std::string_view digits = raw.substr(at + (wide ? 2 : 1)).substr(0, wide ? 4 : 2);
        std::uint32_t unit = 0;
        const char* const end = digits.data() + digits.size();
        const auto result = std::from_chars(digits.data(), end, unit, 16);
        const bool complete = digits.size() == (wide ? 4U : 2U) && result.ptr == end;
        if (raw[at] == '%' && complete && result.ec == std::errc()) {
            units.append(unit);
            at += (wide ? 5 : 2);
            continue;
        }
        units.flush();
        key += raw[at] == '\\' ? '/' : raw[at];
    }
    units.flush();
    return key;
}

std::string escapeIniText(std::string_view text) {
    if (!isUtf8(text)) return escapeIniBytes(text);
    std::string value(text);
    if (text.find('\0') != std::string_view::npos) {
        value = std::string(kStringOpen) + value + ')';
    } else if (text.starts_with('@')) {
        value.insert(0, 1, '@');
    }
    ValueWriter writer(false);
    for (std::size_t at = 0; at < value.size();)
        writer.append(decodeUtf8(value, at));
    return writer.text();
}

std::optional<std::string> unescapeIniText(std::string_view raw) {
    if (raw == ";") return std::string(raw);
    std::string value = ValueReader(raw).read();
    if (!value.starts_with('@')) return value;
    if (value.starts_with("@@")) return value.substr(1);
    if (const auto text = inside(value, kStringOpen)) return std::string(*text);
    return bytesOf(value);
}

std::string escapeIniBytes(std::string_view bytes) {
    ValueWriter writer(true);
    for (const char c : kBytesOpen)
        writer.append(static_cast<unsigned char>(c));
    for (const char c : bytes)
        writer.append(static_cast<unsigned char>(c));
    writer.append(')');
    return writer.text();
}

std::optional<std::string> unescapeIniBytes(std::string_view raw) {
    return bytesOf(ValueReader(raw).read());
}

} // namespace pellam
