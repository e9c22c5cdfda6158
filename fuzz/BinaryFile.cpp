// The reader of binary data files on any bytes: as text in every way, and opened into a grid.

#include "MemoryFile.h"

#include "base/SilentSinks.h"
#include "logger/CDumpDBD.h"
#include "replay/load/ChannelChooser.h"
#include "replay/load/ConversionLoader.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>

namespace {

using namespace pellam;
namespace fs = std::filesystem;

// One folder for the whole run, in memory where the system has such a place.
const std::string& folder() {
    static const std::string path = [] {
        static std::string made =
            (fs::is_directory("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path()) /
            "pellam-fuzz-XXXXXX";
        if (!::mkdtemp(made.data())) std::abort();
        std::atexit([] { fs::remove_all(made); });
        return made;
    }();
    return path;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const MemoryFile file(data, size);
    InternationalSettings international;
    SilentMessages messages;
    SilentProgress progress;
    const std::string output = folder() + "/text";
    for (const unsigned options : {0U, 1U, 10U}) {
        CDumpDBD dumper({international, messages, progress});
        fs::remove(output);
        if (dumper.dumpFile({file.path()}, output, options) != CDumpDBD::kDone) __builtin_trap();
        // The longest text for the fewest bytes: a formatted number of 64 digits an item of 10.
        if (fs::file_size(output) > 100 * size + 1000) __builtin_trap();
    }
    GridData grid;
    AllChannels chooser;
    LoadContext context{grid, international, messages, progress, chooser};
    context.saveFolder = [] { return folder(); };
    fs::remove(ConversionLoader(context).loadBinary(file.path()).converted);
    return 0;
}
