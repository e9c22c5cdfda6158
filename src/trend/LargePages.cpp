#include "trend/LargePages.h"

#include <cstdint>
#include <sys/mman.h>

namespace pellam {

void useLargePages(void* start, std::size_t bytes) {
#ifdef MADV_HUGEPAGE
    constexpr std::uintptr_t kPage = std::uintptr_t{2} << 20;
    const auto address = reinterpret_cast<std::uintptr_t>(start);
    const std::uintptr_t from = (address + kPage - 1) / kPage * kPage;
    const std::uintptr_t to = (address + bytes) / kPage * kPage;
    // That it may be refused changes nothing but the speed.
    if (from < to) madvise(reinterpret_cast<void*>(from), to - from, MADV_HUGEPAGE);
#else
    (void)start;
    (void)bytes;
#endif
}

} // namespace pellam
