#include "replay/file/CReplayFile.h"

#include "base/LeadingNumber.h"
#include "replay/checks/SignatureCheck.h"
#include "replay/file/ReplayScan.h"

#include <algorithm>
#include <cstring>

namespace pellam {

namespace {

bool contains(std::string_view line, std::string_view part) {
    return line.find(part) != std::string_view::npos;
}

// What follows the first comma; an empty view when there is none.
bool skipField(std::string_view& text) {
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos) return false;
    text.remove_prefix(comma + 1);
    return true;
}

std::string typeAttribute(std::string_view line) {
    const std::size_t attribute = line.find("type=");
    if (attribute == std::string_view::npos || attribute + 6 > line.size()) return {};
    const std::string_view value = line.substr(attribute + 6);
    return std::string(withoutLineEnd(value.substr(0, value.find_first_of("\">"))));
}

CMyTime timeFromNumber(std::string_view field, const TimeCorrections& corrections) {
    CMyTime time(leadingDouble(field) + TimeCorrections::dtOffset);
    time += corrections.standardBias;
    if (corrections.daylightBias != 0 && time.IsDaylightTime()) time += corrections.daylightBias;
    return time;
}

} // namespace

CReplayFile::CReplayFile(const std::string& path, MessageSink& messages) : m_messages(messages) {
    CheckSignature(path);
    if (m_fileName.empty()) return;
    open();
    if (!isOpen()) return;
    // The order matters: the name and the contents type of a large file are not found, because its
    // header lines are not counted before the data map is read.
    ReadCryptState();
    ReadLineCount();
    ReadProgramName();
    ReadContentsType();
    ReadDataMap();
    SeekToStartOfData();
    m_currentLine = 0;
}

int CReplayFile::CheckSignature(const std::string& path) {
    SignatureResult result = checkSignature(path, m_messages);
    m_fileName = std::move(result.fileName);
    return result.verified ? 1 : 0;
}

void CReplayFile::open() {
    std::erase(m_fileName, '"');
    auto reader = std::make_unique<LineReader>();
    if (nameContains(m_fileName, ".dlx") || reader->open(m_fileName)) {
        m_messages.showAbout(m_fileName, "Warning: Can not open replay file");
        return;
    }
    m_reader = std::move(reader);
    m_fileSize = m_reader->fileSize();
}

char* CReplayFile::ReadString(char* buffer, std::size_t max) {
    if (m_restOfLine.empty() && !m_reader->next(m_restOfLine)) return nullptr;
    const std::size_t count = std::min(max, m_restOfLine.size());
    std::memcpy(buffer, m_restOfLine.data(), count);
    buffer[count] = '\0';
    m_restOfLine.remove_prefix(count);
    return buffer;
}

void CReplayFile::SeekToBegin() {
    m_restOfLine = {};
    m_reader->rewind();
}

std::int32_t CReplayFile::SeekToStartOfData() {
    SeekToBegin();
    DataStart start;
    std::string_view line;
    m_earlyLineCount = m_firstEarlyLine = 0;
    for (std::int32_t number = 1; !start.found() && m_reader->next(line); ++number) {
        start.addLine(line);
        if (!line.starts_with("D,") && !line.starts_with("A,")) continue;
        if (m_earlyLineCount++ == 0) m_firstEarlyLine = number;
    }
    if (!start.found()) {
        SeekToBegin();
        m_earlyLineCount = m_firstEarlyLine = 0;
    }
    m_headerLineCount = start.headerLines();
    return m_headerLineCount;
}

// Everything that takes the whole of a small file, in one pass.
void CReplayFile::scanSmallFile() {
    if (m_scanned) return;
    m_scanned = true;
    DataStart start;
    CryptSearch crypt;
    DataFacts facts;
    std::string_view line;
    SeekToBegin();
    while (m_reader->next(line)) {
        crypt.addLine(line);
        if (!start.found() && start.addLine(line)) {
            facts = {};
        } else {
            facts.addLine(line);
        }
    }
    SeekToBegin();
    m_headerLineCount = start.headerLines();
    m_cryptState = crypt.state();
    m_lineCount = facts.lines;
    m_schedules = facts.schedules;
}

int CReplayFile::ReadCryptState() {
    if (!isLarge()) {
        scanSmallFile();
        return m_cryptState;
    }
    CryptSearch crypt;
    std::string_view line;
    SeekToBegin();
    while (m_reader->next(line) && !crypt.addLine(line)) {
    }
    SeekToBegin();
    return m_cryptState = crypt.state();
}

std::int32_t CReplayFile::ReadLineCount() {
    if (isLarge()) return m_lineCount = kLargeFileLineCount;
    scanSmallFile();
    return m_lineCount;
}

bool CReplayFile::nextHeaderLine(std::int32_t& left, std::string_view& line) {
    return left-- > 0 && m_reader->next(line);
}

const std::string& CReplayFile::ReadProgramName() {
    SeekToBegin();
    std::int32_t left = m_headerLineCount;
    std::string_view line;
    while (nextHeaderLine(left, line)) {
        if (!contains(line, "Desc ") && !contains(line, "<Description>")) continue;
        const std::size_t quote = line.find('"');
        if (quote != std::string_view::npos) {
            line.remove_prefix(quote + 1);
            m_programName = withoutLineEnd(line.substr(0, line.find('"')));
        }
        break;
    }
    SeekToBegin();
    return m_programName;
}

int CReplayFile::ReadContentsType() {
    m_contentsType = -1;
    SeekToBegin();
    std::int32_t left = m_headerLineCount;
    std::string_view line;
    while (nextHeaderLine(left, line)) {
        if (!contains(line, "<Type>")) continue;
        if (contains(line, "Data")) {
            m_contentsType = 0;
        } else if (contains(line, "Alarm")) {
            m_contentsType = 1;
        }
        break;
    }
    SeekToBegin();
    return 1;
}

int CReplayFile::ReadDataMap() {
    constexpr std::size_t kShortestMap = 6;
    std::int32_t left = SeekToStartOfData();
    SeekToBegin();
    int found = 0;
    std::string_view line;
    while (found == 0 && nextHeaderLine(left, line)) {
        if (contains(line, "<IDATA_MAP")) {
            m_originatorType = typeAttribute(line);
            if (!nextHeaderLine(left, line) || line.size() < kShortestMap) break;
            found = 1;
        } else if (line.starts_with("S,")) {
            found = 1;
        }
        if (found == 1) m_dataMap = withoutLineEnd(line);
    }
    SeekToBegin();
    return found;
}

CMyTime CReplayFile::ExtractTime(std::string_view line, const TimeCorrections& corrections) {
    CMyTime time;
    if (line.starts_with('[')) {
        const std::size_t bracket = line.rfind(']');
        if (bracket != std::string_view::npos) line.remove_prefix(bracket + 1);
    }
    if (!skipField(line) || !skipField(line)) return time;
    if (line.starts_with('"') && !skipField(line)) return time;
    if (!contains(line, "/")) return timeFromNumber(line, corrections);
    // Each parser is handed the rest of the line.
    time.ParseDate(line);
    if (skipField(line)) {
        time.ParseTime(line);
        if (skipField(line)) time.SetDateTimeOffset(line);
    }
    return time += corrections.daylightBias;
}

} // namespace pellam
