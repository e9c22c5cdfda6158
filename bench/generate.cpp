// Makes large files of every text kind from a seed, for measurements by hand:
//   pellam_generate KIND ROWS CHANNELS SEED OUT

#include "FileGenerator.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    if (argc != 6 || !pellam::FileGenerator::knows(argv[1])) {
        std::fputs("usage: pellam_generate csv|semicolon|tab|replay10|replay14|alarm ROWS CHANNELS "
                   "SEED OUT\n",
                   stderr);
        return 2;
    }
    pellam::FileGenerator generator({argv[1], std::atoll(argv[2]), std::atoi(argv[3]),
                                     static_cast<std::uint64_t>(std::atoll(argv[4]))});
    if (generator.write(argv[5])) return 0;
    std::perror(argv[5]);
    return 1;
}
