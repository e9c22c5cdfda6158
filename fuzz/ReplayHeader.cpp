// The scans of a replay file, its times and its data map, on any bytes.

#include "MemoryFile.h"

#include "base/SilentSinks.h"
#include "grid/ChannelLabel.h"
#include "replay/file/CReplayFile.h"
#include "replay/load/ChannelList.h"

#include <cstddef>
#include <cstdint>

using namespace pellam;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const MemoryFile bytes(data, size);
    SilentMessages messages;
    CReplayFile file(bytes.path(), messages);
    if (!file.isOpen()) return 0;
    if (file.HeaderLineCount() < 0 || file.LineCount() < 0) __builtin_trap();
    if (file.ReadDataMap() == 0 && !file.GetDataMap().empty()) __builtin_trap();
    std::string map = file.GetDataMap();
    const std::string before = map;
    if (file.StripDataMap(map) == 0 && map != before) __builtin_trap();
    for (const std::string& channel : offeredChannels(file.GetOriginatorType(), map)) {
        if (ChannelLabel::numbered(channel).number < 0) __builtin_trap();
    }
    const std::int32_t header = file.SeekToStartOfData();
    std::string_view line;
    std::int32_t lines = 0;
    for (; file.reader().next(line); ++lines)
        (void)CReplayFile::ExtractTime(line, {18000, -3600}).FormatLocalNoDST("%Y/%m/%d %X");
    if (lines != file.LineCount() || header != file.HeaderLineCount()) __builtin_trap();
    return 0;
}
