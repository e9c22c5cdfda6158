#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace pellam {

/// Turns a logger's data map (its description of schedules and channels) into channel labels, one
/// line each: "A.Temp1.Ave(degC)\n". The dialects derive from it. Any text is accepted: what
/// cannot be read is left out.
class DataMapConverter {
  public:
    virtual ~DataMapConverter() = default;

    /// The label lines of the last conversion; empty after a failed one.
    [[nodiscard]] const std::string& Program() const { return m_program; }

    /// Removes every double quote, then one ',' at the end.
    static void StripQuotes(std::string& text);

  protected:
    static constexpr std::size_t kFields = 9;
    using Fields = std::array<std::string_view, kFields>;

    /// One channel entry: its fields (absent ones empty) and the text behind the first field.
    struct Channel {
        Fields fields;
        std::string_view afterName;
        std::string_view whole;
    };

    explicit DataMapConverter(int ignoredHeaderTokens)
        : m_ignoredHeaderTokens(ignoredHeaderTokens) {}

    DataMapConverter(const DataMapConverter&) = default;
    DataMapConverter& operator=(const DataMapConverter&) = default;

    /// Converts the map. False when its header is short or names a format that is not wanted.
    bool convertMap(std::string_view map);

    [[nodiscard]] virtual bool readsFormat(std::int32_t format) const = 0;
    [[nodiscard]] virtual bool isScheduleLetter(char letter) const = 0;
    /// Appends the channel's label line to the program text, when it has one.
    virtual void appendChannel(const Channel& channel) = 0;

    [[nodiscard]] char scheduleLetter() const { return m_letter; }

    /// Appends "A.name.Ave.Time": letter, name, statistic of `text` (one of the first
    /// `markerCount` markers) and the time or date mark of `kind`.
    void appendName(std::string_view name, std::string_view text, std::size_t markerCount,
                    std::string_view kind);

    void append(std::string_view text) { m_program += text; }

    /// The units field up to its first '(', without spaces at its ends.
    static std::string_view unitsOf(std::string_view field);

    static constexpr std::size_t kCommonMarkers = 9;
    static constexpr std::size_t kAllMarkers = 12;

  private:
    bool readHeader(std::string_view header);
    void readSection(std::string_view token);
    void splitFields(std::string_view token, Channel& channel) const;

    int m_ignoredHeaderTokens;
    char m_letter = '\0';   ///< of the schedule that is open; none before the first
    std::string m_stripped; ///< the channel being read, without its quotes
    std::string m_program;
};

} // namespace pellam
