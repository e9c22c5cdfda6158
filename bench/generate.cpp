// Makes large files of every kind from a seed, for measurements by hand:
//   pellam_generate KIND ROWS CHANNELS SEED OUT

#include "BinaryGenerator.h"
#include "FileGenerator.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

bool generate(const char* const* argv) {
    const std::string kind = argv[1];
    const long long rows = std::atoll(argv[2]);
    const int channels = std::atoi(argv[3]);
    const auto seed = static_cast<std::uint64_t>(std::atoll(argv[4]));
    if (kind == "binary")
        return pellam::BinaryGenerator{static_cast<std::uint32_t>(rows), channels, seed}.write(
            argv[5]);
    return pellam::FileGenerator({kind, rows, channels, seed}).write(argv[5]);
}

} // namespace

int main(int argc, char** argv) {
    const bool known =
        argc == 6 && (pellam::FileGenerator::knows(argv[1]) || argv[1] == std::string("binary"));
    if (!known) {
        std::fputs("usage: pellam_generate csv|semicolon|tab|replay10|replay14|alarm|binary ROWS "
                   "CHANNELS SEED OUT\n",
                   stderr);
        return 2;
    }
    if (generate(argv)) return 0;
    std::perror(argv[5]);
    return 1;
}
