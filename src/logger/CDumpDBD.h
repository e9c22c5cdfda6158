#pragma once

#include "base/AtomicFile.h"
#include "base/InternationalSettings.h"
#include "base/MessageSink.h"
#include "base/ProgressSink.h"
#include "logger/BinaryInput.h"
#include "logger/BinaryLayout.h"
#include "logger/RecordText.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// Converts a logger's binary data file (".dbd") to delimited text: a heading line, one line a data
/// record, oldest first, and one line an alarm record. Memory does not grow with the file.
class CDumpDBD {
  public:
    /// What to write; add them up. None of the three contents means all three.
    enum Option : unsigned {
        IndexMode = 1, ///< slot and alarm word before alarms, a word for empty rings
        DumpData = 2,
        DumpAlarms = 4,
        WriteHeader = 8,
        NoEffect = 16
    };

    /// How fields are written. As text: each as it is, floats with the decimal point of the C
    /// library's locale. For loading: floats with the decimal separator of the settings, and every
    /// field so that the delimited loader gets back one field (quoted where it holds the list
    /// separator, no line ends in it).
    enum class Purpose { Text, Loading };

    /// Returned by dumpFile.
    static constexpr int kDone = 0;
    static constexpr int kNotOpened = 2;

    struct Context {
        const InternationalSettings& international;
        MessageSink& messages;
        ProgressSink& progress;
    };

    explicit CDumpDBD(const Context& context, Purpose purpose = Purpose::Text);

    /// Converts the last of `inputs` to the file `output`, which is replaced once the new one is
    /// complete. Damaged input is done too: what can be read is kept, damage() tells the rest. A
    /// record that disagrees with itself ends there; any other damage ends the text with a line
    /// that names the place. kNotOpened, after a message: a file could not be opened, or the output
    /// not be written. An aborted conversion leaves the earlier output as it was.
    int dumpFile(const std::vector<std::string>& inputs, const std::string& output,
                 unsigned options);

    /// Whether the person stopped the last conversion.
    [[nodiscard]] bool aborted() const { return m_aborted; }

    /// Whether the last input began as a binary data file does; if not, a message has said so.
    [[nodiscard]] bool isDataFile() const { return m_isDataFile; }

    /// What of the last input could not be read.
    struct Damage {
        std::uint64_t place = 0;       ///< byte offset of the first
        bool any = false;              ///< `place` is one
        bool ended = false;            ///< the text ends with the line that names the place
        std::uint64_t cutRecords = 0;  ///< records whose last fields are missing
        std::uint64_t lostRecords = 0; ///< records that the file's rings name and the text has not

        /// A sentence for a person; nothing for a sound file.
        [[nodiscard]] Failure failure(const std::string& path) const;
    };

    [[nodiscard]] const Damage& damage() const { return m_damage; }

    /// Writes a time in microseconds since 1989 as NUL-terminated text.
    void formatTimestamp(std::uint64_t microseconds, char (&text)[TimestampText::kRoom]);
    /// Writes an interval in microseconds as NUL-terminated text; see TimestampText.
    void formatInterval(std::uint64_t microseconds, char (&text)[TimestampText::kRoom]);

  private:
    /// What the headers of the file say.
    struct Storefile {
        char headerCharacter = '?'; ///< begins the headings
        binary::RingDescriptor data;
        binary::RingDescriptor alarms;
        bool dataFound = false; ///< the section of the ring's slots
        bool alarmsFound = false;
    };

    /// Slots of a section to be read, round its end where they pass it.
    struct SlotRun {
        std::uint64_t base; ///< position of slot 0
        std::uint64_t slots;
        std::uint64_t first;
        std::uint64_t count;
        std::uint64_t size; ///< of one slot
    };

    using ReadRecord = bool (CDumpDBD::*)(std::uint32_t slot);

    /// How the slots of one kind are read.
    struct RingReader {
        const binary::RingDescriptor& ring;
        ReadRecord readRecord;
        std::uint64_t headSize; ///< least size of a record
    };

    bool open(const std::string& input, const std::string& output);
    void walkSections();
    bool readSection(const binary::SectionPrefix& prefix);
    bool readSectionPrefix(binary::SectionPrefix& prefix);
    bool readFileHeader(std::uint32_t length);
    bool readDataHeader(std::uint32_t length);
    bool readAlarmHeader(std::uint32_t length);
    bool readRing(const RingReader& reader, std::uint32_t length);
    bool readRecords(const RingReader& reader, std::uint32_t length);
    bool readSlots(const SlotRun& run, ReadRecord readRecord);
    void countMissingSections();
    bool readBlock(std::string_view& block, std::uint64_t size);
    bool readDataRec(std::uint32_t slot);
    bool readAlarmRec(std::uint32_t slot);
    bool complain(const binary::Shortage& shortage);
    void noteDamage(std::uint64_t place);
    bool reportProgress(std::uint64_t position);

    [[nodiscard]] bool has(Option option) const { return (m_options & option) != 0; }

    MessageSink& m_messages;
    ProgressSink& m_progress;
    BinaryInput m_input;
    AtomicFile m_output;
    Storefile m_store;
    RecordText m_records;
    unsigned m_options = 0;
    std::uint64_t m_recordCount = 0;
    Damage m_damage;
    bool m_aborted = false;
    bool m_isDataFile = false;
};

} // namespace pellam
