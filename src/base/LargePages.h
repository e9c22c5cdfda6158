#pragma once

#include <cstddef>

namespace pellam {

/// Bytes in a large page.
constexpr std::size_t largePage = std::size_t{2} << 20;

/// Asks the system to keep memory of several megabytes in large pages, before it is first written
/// to: less time goes into handing it out and, later, into finding it. Does nothing where there are
/// none, and for little memory.
void useLargePages(void* start, std::size_t bytes);

/// Reserves room in an empty vector, in large pages where it is large.
template <class Items>
void reserveLarge(Items& items, std::size_t count) {
    items.reserve(count);
    useLargePages(items.data(), items.capacity() * sizeof(typename Items::value_type));
}

} // namespace pellam
