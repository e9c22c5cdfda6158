// The layout of any bytes: found in bounded time, and with lines and columns that a loader can
// follow.

#include "base/InternationalSettings.h"
#include "delimited/layout/LayoutDetector.h"
#include "delimited/layout/LayoutText.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace pellam;
    if (size < 1) return 0;
    InternationalSettings settings;
    if (data[0] & 1) settings.decimalSeparator = ',';
    const char expected = data[0] & 2 ? '\t' : data[0] & 4 ? ';' : ',';
    const std::string_view text(reinterpret_cast<const char*>(data + 1), size - 1);
    const TextLayout layout = LayoutDetector(expected, settings).detect(TextSample::ofText(text));
    for (const std::size_t column : layout.timeColumns) {
        if (column >= layout.columns) __builtin_trap();
    }
    if (layout.firstDataLine <= layout.headingsLine && layout.headingsLine > 0) __builtin_trap();
    if (layout.names.size() > layout.columns) __builtin_trap();
    (void)layoutSummary(layout);
    (void)layoutFacts(layout);
    return 0;
}
