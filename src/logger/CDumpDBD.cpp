#include "logger/CDumpDBD.h"

#include "base/FileName.h"

#include <algorithm>
#include <clocale>
#include <utility>

namespace pellam {

using namespace binary;

namespace {

constexpr std::uint64_t kProgressUnit = 500;
constexpr std::uint64_t kReportBytes = std::uint64_t{1} << 20;
constexpr std::size_t kLongestMessage = 127;

/// "Can not open PATH for PURPOSE"; a path too long for a message loses its beginning.
std::string notOpened(const std::string& path, std::string_view purpose) {
    const std::string before = "Can not open ";
    const std::string after = " for " + std::string(purpose);
    const std::size_t room = kLongestMessage - before.size() - after.size();
    if (path.size() <= room) return before + path + after;
    std::size_t from = path.size() - (room - 3);
    const auto insideCharacter = [&] { return (path[from] & 0xC0) == 0x80; };
    while (from < path.size() && insideCharacter())
        ++from;
    return before + "..." + path.substr(from) + after;
}

std::string hexadecimal(std::uint64_t value) {
    std::string text;
    do {
        text.insert(text.begin(), "0123456789abcdef"[value % 16]);
        value /= 16;
    } while (value > 0);
    return "0x" + text;
}

RecordText::Style styleFor(CDumpDBD::Purpose purpose, const InternationalSettings& international) {
    const bool loading = purpose == CDumpDBD::Purpose::Loading;
    const char point = loading ? international.decimalSeparator : *std::localeconv()->decimal_point;
    return {international.listSeparator, international.decimalSeparator, point, loading};
}

} // namespace

CDumpDBD::CDumpDBD(const Context& context, Purpose purpose)
    : m_messages(context.messages),
      m_progress(context.progress),
      m_records(styleFor(purpose, context.international), m_output) {}

int CDumpDBD::dumpFile(const std::vector<std::string>& inputs, const std::string& output,
                       unsigned options) {
    constexpr unsigned kContents = DumpData | DumpAlarms | WriteHeader;
    m_options = (options & kContents) != 0 ? options : options | kContents;
    m_store = {};
    m_damage = {};
    m_records.clear();
    m_recordCount = 0;
    m_aborted = m_isDataFile = false;
    if (!open(inputs.empty() ? std::string() : inputs.back(), output)) return kNotOpened;
    {
        const ProgressScope scope(m_progress, "Loading Pellam", "Converting...", 0,
                                  static_cast<std::int64_t>(m_input.size() / kProgressUnit));
        walkSections();
    }
    if (m_damage.ended) countMissingSections();
    // The last word is the person's, before the earlier file goes.
    m_aborted = m_aborted || m_progress.aborted();
    if (m_aborted) {
        m_output.discard();
        return kDone;
    }
    if (m_input.error()) m_messages.show(m_input.error().text());
    const Failure failure = m_output.commit();
    if (failure) m_messages.show(failure.text());
    return failure ? kNotOpened : kDone;
}

bool CDumpDBD::open(const std::string& input, const std::string& output) {
    if (m_input.open(input)) {
        m_messages.show(notOpened(input, "read"));
        return false;
    }
    if (isSameFile(input, output) || m_output.create(output, &m_progress)) {
        m_messages.show(notOpened(output, "write"));
        return false;
    }
    return true;
}

void CDumpDBD::walkSections() {
    const std::string_view head = m_input.take(kPrefixSize);
    m_isDataFile = head.size() == kPrefixSize && u32(head.data()) == kFileTag;
    if (!m_isDataFile) {
        m_messages.show("Can not read DTDT section");
        return;
    }
    const std::uint64_t end = m_input.position() + u32(head.data() + 4);
    SectionPrefix prefix;
    for (std::uint64_t position = m_input.position(); position < end;) {
        if (!readSectionPrefix(prefix)) return;
        position = m_input.position();
        if (!readSection(prefix)) return;
    }
}

bool CDumpDBD::readSectionPrefix(SectionPrefix& prefix) {
    std::string_view block;
    if (!readBlock(block, kPrefixSize)) return false;
    prefix = {u32(block.data()), u32(block.data() + 4)};
    return true;
}

bool CDumpDBD::readSection(const SectionPrefix& prefix) {
    const std::uint64_t contents = m_input.position();
    bool whole = true;
    switch (prefix.tag) {
    case kFileHeaderTag:
        whole = readFileHeader(prefix.length);
        break;
    case kDataHeaderTag:
        whole = readDataHeader(prefix.length);
        break;
    case kAlarmHeaderTag:
        whole = readAlarmHeader(prefix.length);
        break;
    case kDataTag:
        m_store.dataFound = true;
        if (has(DumpData))
            whole = readRing({m_store.data, &CDumpDBD::readDataRec, kDataRecordHeadSize},
                             prefix.length);
        break;
    case kAlarmTag:
        m_store.alarmsFound = true;
        if (has(DumpAlarms))
            whole = readRing({m_store.alarms, &CDumpDBD::readAlarmRec, kAlarmRecordHeadSize},
                             prefix.length);
        break;
    case kEndTag:
        return true;
    default:
        m_output.append("\nunknown tag at offset: " + hexadecimal(contents) + "\n");
        noteDamage(contents);
        m_damage.ended = true;
        return false;
    }
    m_input.seek(contents + prefix.length);
    return whole;
}

bool CDumpDBD::readFileHeader(std::uint32_t length) {
    const std::uint64_t at = m_input.position();
    const std::uint64_t left = m_input.left();
    if (left < length) return complain({at, left, length});
    if (length < kFileHeaderSize) return complain({at, length, kFileHeaderSize});
    std::string_view block;
    if (!readBlock(block, kFileHeaderSize)) return false;
    m_store.headerCharacter = static_cast<char>(u32(block.data() + kHeaderCharacterOffset));
    return true;
}

bool CDumpDBD::readDataHeader(std::uint32_t length) {
    const std::uint64_t at = m_input.position();
    const std::uint64_t left = m_input.left();
    if (left < length) return complain({at, left, length});
    if (length < kDataHeaderSize) return complain({at, length, kDataHeaderSize});
    std::string_view block;
    if (!readBlock(block, kDataHeaderSize)) return false;
    const std::uint64_t channels = u32(block.data() + kRingSize);
    const std::uint64_t needed = kDataHeaderSize + channels * kChannelSize;
    if (needed > length) return complain({at, length, needed});
    m_store.data = RingDescriptor::read(block.data());
    m_records.clear();
    m_records.reserve(channels);
    if (has(WriteHeader)) m_output.append("Datetime");
    for (std::uint64_t i = 0; i < channels; ++i) {
        if (!readBlock(block, kChannelSize)) return false;
        m_records.addChannel(block.substr(48, 16));
        if (has(WriteHeader))
            m_records.writeHeading(m_store.headerCharacter, block.substr(0, 32),
                                   block.substr(32, 16));
    }
    if (has(WriteHeader)) m_output.append("\n");
    return true;
}

bool CDumpDBD::readAlarmHeader(std::uint32_t length) {
    const std::uint64_t at = m_input.position();
    const std::uint64_t left = m_input.left();
    if (left < length) return complain({at, left, length});
    if (length < kRingSize) return complain({at, length, kRingSize});
    std::string_view block;
    if (!readBlock(block, kRingSize)) return false;
    m_store.alarms = RingDescriptor::read(block.data());
    return true;
}

bool CDumpDBD::readRing(const RingReader& reader, std::uint32_t length) {
    const RingDescriptor& ring = reader.ring;
    if (ring.oldest < 0) {
        if (has(IndexMode)) m_output.append("No records\n");
        return true;
    }
    const std::uint64_t before = m_recordCount;
    const bool whole = readRecords(reader, length);
    const std::uint64_t named = ring.named(ring.recordSize > 0 ? length / ring.recordSize : 0);
    const std::uint64_t read = m_recordCount - before;
    if (!m_aborted && named > read) m_damage.lostRecords += named - read;
    return whole;
}

bool CDumpDBD::readRecords(const RingReader& reader, std::uint32_t length) {
    const RingDescriptor& ring = reader.ring;
    const std::uint64_t base = m_input.position();
    const std::uint64_t size = ring.recordSize;
    if (size == 0) return complain({base, 0, reader.headSize});
    const std::uint64_t slots = length / size;
    const auto first = static_cast<std::uint32_t>(ring.oldest);
    // The slot behind the last one has what is left of the section.
    const auto endsAt = [&](std::uint64_t slot) {
        const std::uint64_t offset = slot * size;
        return complain({base + offset, length - std::min<std::uint64_t>(offset, length), size});
    };
    if (first >= slots) return endsAt(first);
    std::uint64_t count = slots - first;
    if (first > ring.newest) count += ring.newest + 1;
    if (first <= ring.newest && ring.newest < slots) count = ring.newest - first + 1;
    if (!readSlots({base, slots, first, count, size}, reader.readRecord)) return false;
    return ring.newest < slots || endsAt(slots);
}

bool CDumpDBD::readSlots(const SlotRun& run, ReadRecord readRecord) {
    const std::uint64_t reportEvery = std::max<std::uint64_t>(1, kReportBytes / run.size);
    std::uint64_t slot = run.first;
    m_input.seek(run.base + slot * run.size);
    for (std::uint64_t done = 0; done < run.count; ++done) {
        if (done % reportEvery == 0 && !reportProgress(run.base + done * run.size)) return false;
        if (!(this->*readRecord)(static_cast<std::uint32_t>(slot))) return false;
        if (++slot < run.slots) continue;
        slot = 0;
        m_input.seek(run.base);
    }
    return true;
}

bool CDumpDBD::readBlock(std::string_view& block, std::uint64_t size) {
    const std::uint64_t at = m_input.position();
    block = m_input.take(size);
    return block.size() == size || complain({at, block.size(), size});
}

bool CDumpDBD::readDataRec(std::uint32_t) {
    const std::uint64_t at = m_input.position();
    std::string_view block;
    if (!readBlock(block, m_store.data.recordSize)) return false;
    if (block.size() < kDataRecordHeadSize)
        return complain({at, block.size(), kDataRecordHeadSize});
    ++m_recordCount;
    const Shortage shortage = m_records.writeData(block);
    if (shortage) {
        noteDamage(at + shortage.offset);
        ++m_damage.cutRecords;
    }
    return true;
}

bool CDumpDBD::readAlarmRec(std::uint32_t slot) {
    const std::uint64_t at = m_input.position();
    std::string_view block;
    if (!readBlock(block, m_store.alarms.recordSize)) return false;
    if (block.size() < kAlarmRecordHeadSize)
        return complain({at, block.size(), kAlarmRecordHeadSize});
    ++m_recordCount;
    m_records.writeAlarm(block, has(IndexMode) ? &slot : nullptr);
    return true;
}

// The text ended before these sections came.
void CDumpDBD::countMissingSections() {
    const auto named = [](const RingDescriptor& ring) {
        return ring.recordSize > 0 && ring.oldest >= 0 ? ring.named(0) : 0;
    };
    if (has(DumpData) && !m_store.dataFound) m_damage.lostRecords += named(m_store.data);
    if (has(DumpAlarms) && !m_store.alarmsFound) m_damage.lostRecords += named(m_store.alarms);
}

void CDumpDBD::noteDamage(std::uint64_t place) {
    if (!m_damage.any) m_damage.place = place;
    m_damage.any = true;
}

Failure CDumpDBD::Damage::failure(const std::string& path) const {
    if (!any) return {};
    const auto records = [](std::uint64_t count, const char* what) {
        if (count == 0) return std::string();
        return ", " + std::to_string(count) + (count == 1 ? " record is " : " records are ") + what;
    };
    return {Failure::Kind::Format, path, static_cast<std::int64_t>(place),
            "it is cut or damaged there" + records(lostRecords, "missing") +
                records(cutRecords, "incomplete")};
}

bool CDumpDBD::complain(const Shortage& shortage) {
    noteDamage(shortage.offset);
    m_damage.ended = true;
    m_output.append("Unexpected EOF (at " + hexadecimal(shortage.offset) + ", read " +
                    hexadecimal(shortage.found) + " bytes, expected " +
                    hexadecimal(shortage.expected) + ")\n");
    return false;
}

bool CDumpDBD::reportProgress(std::uint64_t position) {
    m_progress.addString("Converted " + std::to_string(m_recordCount) + " Records");
    m_progress.setPosition(static_cast<std::int64_t>(position / kProgressUnit));
    m_aborted = m_progress.aborted();
    return !m_aborted && !m_output.failed();
}

void CDumpDBD::formatTimestamp(std::uint64_t microseconds, char (&text)[TimestampText::kRoom]) {
    *m_records.times().write(microseconds, text) = '\0';
}

void CDumpDBD::formatInterval(std::uint64_t microseconds, char (&text)[TimestampText::kRoom]) {
    *m_records.times().writeInterval(microseconds, text) = '\0';
}

} // namespace pellam
