#include "base/LargePages.h"

#include <cstdint>
#include <sys/mman.h>

namespace pellam {

void useLargePages(void* start, std::size_t bytes) {
#ifdef MADV_HUGEPAGE
    const auto address = reinterpret_cast<std::uintptr_t>(start);
    const std::uintptr_t from = (address + largePage - 1) / largePage * largePage;
    const std::uintptr_t to = (address + bytes) / largePage * largePage;
    // That it may be refused changes nothing but the speed.
    if (from < to) madvise(static_cast<char*>(start) + (from - address), to - from, MADV_HUGEPAGE);
#else
    (void)start;
    (void)bytes;
#endif
}

} // namespace pellam
