#pragma once

#include "base/LineReader.h"
#include "base/MessageSink.h"
#include "replay/file/ScheduleFlags.h"
#include "replay/time/CMyTime.h"
#include "replay/time/TimeCorrections.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace pellam {

/// One opened replay file: what its header says and its lines. Construction scans the file and ends
/// on the first data line, so that reader().next() serves the data.
class CReplayFile {
  public:
    /// Above this many bytes a file is large: its lines are not counted.
    static constexpr std::int64_t kLargeFile = 16'384'000;
    static constexpr std::int32_t kLargeFileLineCount = 999'999;

    /// Opens a replay file, or the one that a signature file (".sig" in its name) names. A name
    /// with ".dlx" is an enciphered file and cannot be read. What goes wrong is shown as a message;
    /// isOpen() tells.
    CReplayFile(const std::string& path, MessageSink& messages);

    [[nodiscard]] bool isOpen() const { return m_reader != nullptr; }

    /// The lines; only when isOpen().
    LineReader& reader() { return *m_reader; }

    [[nodiscard]] bool isLarge() const { return m_fileSize > kLargeFile; }

    void SeekToBegin();
    /// Positions the file on the first data line. The number of lines before it; 0 without a mark.
    std::int32_t SeekToStartOfData();

    // Each of these scans the file from its beginning and leaves it there.
    /// 1 when a "<Crypt>" line before "<ALL_DATA" says "Yes".
    int ReadCryptState();
    /// The number of lines after the start of data; 999999 for a large file.
    std::int32_t ReadLineCount();
    const std::string& ReadProgramName();
    int ReadContentsType();
    /// The data map and the originator type. 1 when a map was found.
    int ReadDataMap();

    /// Reduces a data map to the schedules that occur in the data. 1, or 0 and no change for a map
    /// without a schedule section.
    int StripDataMap(std::string& map) const { return stripDataMap(map, m_schedules) ? 1 : 0; }

    /// The file actually opened, without double quotes; empty when the signature was refused.
    [[nodiscard]] const std::string& FileName() const { return m_fileName; }

    /// The description; empty when there is none.
    [[nodiscard]] const std::string& ProgramName() const { return m_programName; }

    [[nodiscard]] std::int32_t LineCount() const { return m_lineCount; }

    [[nodiscard]] std::int32_t HeaderLineCount() const { return m_headerLineCount; }

    /// Readings and alarms among the header lines, which no loader reads.
    [[nodiscard]] std::int32_t EarlyLineCount() const { return m_earlyLineCount; }

    /// The number of the first of them, from 1; 0 while there is none.
    [[nodiscard]] std::int32_t FirstEarlyLine() const { return m_firstEarlyLine; }

    [[nodiscard]] int CryptState() const { return m_cryptState; }

    /// The data map line without its line end.
    [[nodiscard]] const std::string& GetDataMap() const { return m_dataMap; }

    [[nodiscard]] const std::string& GetOriginatorType() const { return m_originatorType; }

    [[nodiscard]] std::int64_t GetFileSize() const { return m_fileSize; }

    /// -1 unknown, 0 data, 1 alarm.
    [[nodiscard]] int ContentsType() const { return m_contentsType; }

    // The three below belong to a replay file's reader; this program's loaders need none of them.

    /// Reads one line, keeping its line end, into a buffer of `max` + 1 characters: at most `max`
    /// characters and a 0; the rest of a longer line comes next. The buffer, or null at the end.
    char* ReadString(char* buffer, std::size_t max);

    /// The time stamp of a reading line; 0 when it has none.
    [[nodiscard]] static CMyTime ExtractTime(std::string_view line,
                                             const TimeCorrections& corrections);

    [[nodiscard]] std::int32_t CurrentLine() const { return m_currentLine; }

    void CurrentLine(std::int32_t line) { m_currentLine = line; }

  private:
    int CheckSignature(const std::string& path);
    void open();
    void scanSmallFile();
    bool nextHeaderLine(std::int32_t& left, std::string_view& line);

    MessageSink& m_messages;
    std::string m_fileName;
    std::string m_programName;
    std::unique_ptr<LineReader> m_reader;
    std::string_view m_restOfLine; ///< what ReadString() has not given yet
    std::int32_t m_lineCount = 0;
    std::int32_t m_currentLine = 0;
    std::int32_t m_headerLineCount = 0;
    std::int32_t m_earlyLineCount = 0;
    std::int32_t m_firstEarlyLine = 0;
    std::int64_t m_fileSize = 0;
    ScheduleFlags m_schedules;
    std::string m_dataMap;
    int m_cryptState = 0;
    std::string m_originatorType = "Unknown";
    int m_contentsType = -1;
    bool m_scanned = false; ///< scanSmallFile() has been done
};

} // namespace pellam
