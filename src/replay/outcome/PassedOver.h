#pragma once

#include "base/LineReader.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace pellam {

/// What a load found in a file and put into no cell, by cause: how often, and where first. Loaders
/// count everything that holds a value or a text, and blank lines of delimited text.
class PassedOver {
  public:
    enum class Cause {
        RepeatedLine,        ///< equal to the line before it
        StatusLine,          ///< a reading or alarm of status 3 or 4
        DiscontinuityLine,   ///< delimited text with the word "Discontinuity"
        RepeatedHeadings,    ///< the headings of delimited text once more
        CommentLine,         ///< of delimited text, begins with its mark of comments
        FooterLine,          ///< behind the data of delimited text
        BlankLine,           ///< of delimited text: nothing but blanks and separators
        AlarmLine,           ///< an alarm in a file of readings
        ReadingLine,         ///< a reading in a file of alarms
        UnknownLine,         ///< of no kind that the format knows
        EarlyLine,           ///< a reading or an alarm above the line that begins the data
        IncompleteLine,      ///< without time or status
        CutLine,             ///< longer than a line may be; the rest of it is left out
        ValueWithoutChannel, ///< no channel of the file is in its place
        UnreadableValue,     ///< neither number nor text
        LostRecord,          ///< of a binary file that is cut or damaged; its place is a byte
        // Of a database; their place is a row of the query, counted from 1.
        UnreadableChannel,     ///< a channel's numbers do not fit
        UnreadableReading,     ///< a reading's numbers do not fit
        ReadingWithoutTime,    ///< a reading's time is missing or none
        ReadingWithoutChannel, ///< the session lists no channel for a reading
        ReadingWithoutValue,   ///< a reading's value is missing: 0 stands in its place
        ReplacedReading,       ///< another one of its channel and time stands in its place
        RepeatedValue ///< a channel has no reading of a time: its value before stands there
    };
    static constexpr std::size_t kCauses = 23;

    struct Entry {
        std::int64_t count = 0;
        std::int64_t first = 0; ///< line, counted from 1, or byte offset; of the first one
    };

    /// Counts something passed over. `place`: its line in the file, counted from 1, or for
    /// LostRecord its byte offset.
    void add(Cause cause, std::int64_t place, std::int64_t count = 1) {
        Entry& entry = m_entries[static_cast<std::size_t>(cause)];
        if (entry.count == 0) entry.first = place;
        entry.count += count;
    }

    /// Counts the lines that a reader has cut.
    void addCutLines(const LineReader& reader) {
        if (reader.cutLines() > 0) add(Cause::CutLine, reader.firstCutLine(), reader.cutLines());
    }

    /// Adds what another part of the load passed over.
    void add(const PassedOver& other);

    [[nodiscard]] const Entry& of(Cause cause) const {
        return m_entries[static_cast<std::size_t>(cause)];
    }

    /// Everything that was passed over, of all causes but blank lines, which hold nothing.
    [[nodiscard]] std::int64_t total() const;

    /// One text a cause, in their order: "12 repeated lines (first in line 17)".
    [[nodiscard]] std::vector<std::string> texts() const;

  private:
    std::array<Entry, kCauses> m_entries{};
};

} // namespace pellam
