// Every loader on any bytes: the first byte chooses the loader and the separators.

#include "MemoryFile.h"

#include "base/SilentSinks.h"
#include "replay/load/ChannelChooser.h"
#include "replay/load/DelimitedLoader.h"
#include "replay/load/ReplayLoader.h"

#include <cstddef>
#include <cstdint>

namespace {

using namespace pellam;

void readEveryCell(const GridData& grid) {
    CellBuffer buffer;
    CellBuffer again;
    GridData copy(grid.decimalSeparator());
    for (Row row = 0; row < grid.rowCount(); ++row) {
        for (int column = 0; column < grid.columnCount(); ++column) {
            const std::string_view text = grid.text(column, row, buffer);
            // Packing the text again must give the same text: nothing is lost in the store.
            const Cell cell = copy.column(0).pack(text);
            if (copy.column(0).text(cell, again) != text) __builtin_trap();
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) return 0;
    const unsigned choice = data[0];
    const MemoryFile file(data + 1, size - 1);
    InternationalSettings international;
    if (choice & 1) {
        international.decimalSeparator = ',';
        international.listSeparator = ';';
    }
    GridData grid(international.decimalSeparator);
    SilentMessages messages;
    SilentProgress progress;
    AllChannels chooser;
    const LoadContext context{grid, international, messages, progress, chooser, (choice & 2) != 0};
    if (choice & 4) {
        DelimitedLoader(context, choice & 8 ? '\t' : international.listSeparator)
            .ReadDelimFile(file.path());
    } else {
        ReplayLoader(context).ReadReplayFile(file.path());
    }
    readEveryCell(grid);
    return 0;
}
