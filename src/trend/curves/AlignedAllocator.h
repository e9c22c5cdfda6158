#pragma once

#include "base/LargePages.h"

#include <cstddef>
#include <new>

namespace pellam {

/// Memory that begins where a cache line does, so that items that share one are fetched at once,
/// and large memory where a large page does.
template <class Item>
struct AlignedAllocator {
    using value_type = Item;

    AlignedAllocator() = default;

    template <class Other>
    AlignedAllocator(const AlignedAllocator<Other>&) {}

    Item* allocate(std::size_t count) {
        const std::size_t bytes = count * sizeof(Item);
        void* start = ::operator new(bytes, alignment(bytes));
        useLargePages(start, bytes);
        return static_cast<Item*>(start);
    }

    void deallocate(Item* items, std::size_t count) {
        ::operator delete(items, alignment(count * sizeof(Item)));
    }

    bool operator==(const AlignedAllocator&) const { return true; }

  private:
    static std::align_val_t alignment(std::size_t bytes) {
        return std::align_val_t{bytes < largePage ? 64 : largePage};
    }
};

} // namespace pellam
