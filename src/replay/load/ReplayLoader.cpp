#include "replay/load/ReplayLoader.h"

#include "grid/ChannelLabel.h"
#include "logger/DataMapLabels.h"
#include "replay/checks/LineCheck.h"
#include "replay/load/AlarmRows.h"
#include "replay/load/ChannelList.h"
#include "replay/load/LabelPass.h"
#include "replay/load/ReadingRows.h"
#include "replay/load/RowCounter.h"

#include <algorithm>
#include <cstring>

namespace pellam {

namespace {

constexpr std::size_t kShortestMap = 8;

// The bar's position: bytes where the lines were not counted, else rows.
class Bar {
  public:
    Bar(const CReplayFile& file, bool large, std::int64_t unit)
        : m_lines(std::max<std::int64_t>(1, file.LineCount())),
          m_unit(large ? unit : 0),
          m_last(large ? std::max<std::int64_t>(1, file.GetFileSize() / unit) : m_lines) {}

    [[nodiscard]] std::int64_t last() const { return m_last; }

    [[nodiscard]] std::int64_t at(Row rows, std::int64_t bytes) const {
        return m_unit > 0 ? bytes / m_unit : rows % m_lines;
    }

  private:
    std::int64_t m_lines;
    std::int64_t m_unit;
    std::int64_t m_last;
};

// Notes a line that makes no row. `other`: the cause where it begins as the file's lines do not but
// those of the other kind of file do. A bare tag holds nothing that could be missed.
void passOver(std::string_view line, PassedOver::Cause other, std::int64_t number,
              PassedOver& passedOver) {
    const bool tag = line.starts_with('<') && line.find('>') == line.size() - 1;
    if (line.empty() || tag) return;
    const char letter = other == PassedOver::Cause::AlarmLine ? 'A' : 'D';
    const bool known = line.size() > 1 && line[0] == letter && line[1] == ',';
    passedOver.add(known ? other : PassedOver::Cause::UnknownLine, number);
}

} // namespace

LoadOutcome ReplayLoader::ReadReplayFile(const std::string& path) {
    LoadOutcome outcome;
    outcome.path = path;
    CReplayFile file(path, m_context.messages);
    if (!file.isOpen()) return outcome;
    readFacts(file, outcome);
    if (file.ContentsType() == 1) {
        outcome.kind = LoadOutcome::Kind::Alarm;
        readAlarms(file, outcome);
    } else {
        outcome.kind = LoadOutcome::Kind::Data;
        const std::optional<ColumnMap> columns = readLabels(file, outcome);
        if (!columns) return outcome;
        readReadings(file, *columns, outcome);
    }
    if (m_context.grid.rowCount() == 0 && !outcome.aborted) {
        m_context.messages.show(m_context.storedSession
                                    ? "Attention: There are no readings in the session"
                                    : "Attention: There are no readings in the replay file");
        return outcome;
    }
    outcome.loaded = true;
    outcome.passedOver.addCutLines(file.reader());
    if (file.reader().error()) m_context.messages.show(file.reader().error().text());
    return outcome;
}

void ReplayLoader::readFacts(CReplayFile& file, LoadOutcome& outcome) const {
    outcome.path = file.FileName();
    outcome.fileSize = file.GetFileSize();
    outcome.largeFile = file.isLarge();
    outcome.cryptState = file.CryptState();
    outcome.contentsType = file.ContentsType();
    outcome.originatorType = file.GetOriginatorType();
    outcome.description = file.ProgramName();
    outcome.lineCount = file.LineCount();
    if (file.EarlyLineCount() > 0)
        outcome.passedOver.add(PassedOver::Cause::EarlyLine, file.FirstEarlyLine(),
                               file.EarlyLineCount());
}

std::optional<ColumnMap> ReplayLoader::readLabels(CReplayFile& file, LoadOutcome& outcome) const {
    if (outcome.largeFile) return chooseLabels(file);
    std::string map = file.GetDataMap();
    if (map.size() < kShortestMap) {
        m_context.messages.show("Attention: No STATUS found in the replay file");
        return {};
    }
    LabelPass pass(m_context.grid);
    if (!file.StripDataMap(map)) return pass.DisplayLabels({});
    return pass.DisplayLabels(convertDataMap(file.GetOriginatorType(), map));
}

std::optional<ColumnMap> ReplayLoader::chooseLabels(const CReplayFile& file) const {
    const std::vector<std::string> offered =
        offeredChannels(file.GetOriginatorType(), file.GetDataMap());
    const std::vector<std::string> chosen = m_context.chooser.choose(offered);
    if (chosen.empty()) {
        m_context.messages.show("Attention: No channels selected");
        return {};
    }
    ColumnMap columns = LabelPass(m_context.grid).DisplayChosenLabels(chosen);
    for (const std::string& channel : offered) {
        const auto label = ChannelLabel::numbered(channel);
        columns.mention(label.letter, static_cast<std::size_t>(label.number));
    }
    return columns;
}

void ReplayLoader::readReadings(CReplayFile& file, const ColumnMap& columns,
                                LoadOutcome& outcome) const {
    const Bar bar(file, outcome.largeFile, 500);
    const ProgressScope scope(m_context.progress, "Loading Pellam", "Loading...", 1, bar.last());
    RowCounter counter(m_context.progress, outcome.largeFile ? 500 : 50);
    ReadingRows rows(m_context, columns,
                     outcome.largeFile ? ReadingRows::Mode::ChosenChannels
                                       : ReadingRows::Mode::WholeFile,
                     outcome.passedOver);
    const LineCheck check;
    LineReader& reader = file.reader();
    std::string_view line;
    for (std::int64_t number = file.HeaderLineCount() + 1; reader.next(line); ++number) {
        line = trimmed(line);
        const std::string_view content = withoutPrefix(line);
        if (rows.isReading(content)) {
            rows.DisplayDetails(content, number, check.isGood(line));
        } else {
            passOver(content, PassedOver::Cause::AlarmLine, number, outcome.passedOver);
        }
        if (!counter.line(rows.rows(), bar.at(rows.rows(), reader.bytesRead()))) break;
    }
    m_context.grid.setRowCount(rows.rows());
    outcome.damagedLines = rows.damagedLines();
    outcome.aborted = counter.aborted();
}

void ReplayLoader::readAlarms(CReplayFile& file, LoadOutcome& outcome) const {
    const Bar bar(file, outcome.largeFile, 100);
    const ProgressScope scope(m_context.progress, "Loading Pellam", "Loading...", 1, bar.last());
    RowCounter counter(m_context.progress, 10);
    AlarmRows::DisplayAlarmLabels(m_context.grid);
    AlarmRows rows(m_context, outcome.passedOver);
    LineReader& reader = file.reader();
    std::string_view line;
    for (std::int64_t number = file.HeaderLineCount() + 1; reader.next(line); ++number) {
        line = withoutPrefix(withoutBlanks(line));
        if (line.starts_with('A')) {
            rows.DisplayAlarmDetails(line, number);
        } else {
            passOver(line, PassedOver::Cause::ReadingLine, number, outcome.passedOver);
        }
        if (!counter.line(rows.rows(), bar.at(rows.rows(), reader.bytesRead()))) break;
    }
    m_context.grid.setRowCount(rows.rows());
    outcome.aborted = counter.aborted();
}

std::string_view ReplayLoader::withoutBlanks(std::string_view line) {
    return withoutLineEnd(line, "\r\n ");
}

std::string_view ReplayLoader::trimmed(std::string_view line) {
    line = withoutBlanks(line);
    if (!line.empty() && line.back() == ':') line.remove_suffix(1);
    return line;
}

std::string_view ReplayLoader::withoutPrefix(std::string_view line) {
    if (line.empty() || line.front() != '[') return line;
    const std::size_t close = line.rfind(']');
    return close == std::string_view::npos ? line : line.substr(close + 1);
}

} // namespace pellam
