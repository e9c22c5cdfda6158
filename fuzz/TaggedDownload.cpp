// The conversion of a tagged download, on any bytes.

#include "logger/TaggedDownload.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

// One folder for the whole run, in memory where the system has such a place.
std::string makeFolder() {
    std::string name =
        std::filesystem::is_directory("/dev/shm")
            ? std::string("/dev/shm/pellam-fuzz-XXXXXX")
            : (std::filesystem::temp_directory_path() / "pellam-fuzz-XXXXXX").string();
    if (!::mkdtemp(name.data())) std::abort();
    return name;
}

const std::string& folder() {
    static const std::string path = [] {
        static std::string made = makeFolder();
        std::atexit([] { std::filesystem::remove_all(made); });
        return made;
    }();
    return path;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input = folder() + "/d.txt";
    const std::string output = folder() + "/d.csv";
    std::filesystem::remove(output);
    std::ofstream(input, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    const pellam::Failure failure = pellam::convertTaggedDownload(input, output);
    if (!failure != std::filesystem::exists(output)) __builtin_trap();
    if (failure && failure.text().empty()) __builtin_trap();
    return 0;
}
