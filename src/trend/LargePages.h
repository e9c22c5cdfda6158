#pragma once

#include <cstddef>
#include <vector>

namespace pellam {

/// Asks the system to keep memory of several megabytes in large pages, before it is first written
/// to: less time goes into handing it out and, later, into finding it. Does nothing where there are
/// none, and for little memory.
void useLargePages(void* start, std::size_t bytes);

/// Reserves room in an empty vector, in large pages where it is large.
template <class Item>
void reserveLarge(std::vector<Item>& items, std::size_t count) {
    items.reserve(count);
    useLargePages(items.data(), items.capacity() * sizeof(Item));
}

} // namespace pellam
