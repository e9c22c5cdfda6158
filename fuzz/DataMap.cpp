// Both dialects of the data map, on any bytes; the first byte chooses the originator type.

#include "logger/CConvertS10.h"
#include "logger/CConvertS14.h"
#include "logger/DataMapLabels.h"
#include "replay/file/ScheduleFlags.h"

#include <cstddef>
#include <cstdint>

using namespace pellam;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) return 0;
    const char* const types[] = {"", "ql810", "TN4-6Y-QE", "ql5xx"};
    const std::string map(reinterpret_cast<const char*>(data + 1), size - 1);
    for (const std::string& label : convertDataMap(types[data[0] % 4], map)) {
        if (label.size() < 2 || label[1] != '.') __builtin_trap();
        (void)isNotLogged(label);
    }
    CConvertS10 s10;
    CConvertS14 s14;
    if (!s10.Convert(map) && !s10.Program().empty()) __builtin_trap();
    if (!s14.Convert(map, 3, 'A') && !s14.Program().empty()) __builtin_trap();
    ScheduleFlags flags;
    for (const char* line : {",1:A", ",1:C", ",1:K", ",1:X", ",1:V"})
        flags.addLine(line);
    flags.addLine(map);
    std::string stripped = map;
    (void)stripDataMap(stripped, flags);
    return 0;
}
