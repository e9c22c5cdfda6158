#include "views/scan/CompareCells.h"

#include <utility>

namespace pellam {

namespace {

int sign(bool greater, bool less) {
    return static_cast<int>(greater) - static_cast<int>(less);
}

int compareTexts(const SortCell& first, const SortCell& second) {
    if (!first.text || !second.text) return sign(!first.text, !second.text);
    // char_traits<char> compares as unsigned char, which is what byte order means.
    const int order = first.text->compare(*second.text);
    return sign(order > 0, order < 0);
}

} // namespace

int compareCells(const SortCell* first, const SortCell* second, unsigned flags) {
    if ((flags & kSortDescending) != 0) std::swap(first, second);
    if (first == nullptr || second == nullptr) return sign(first == nullptr, second == nullptr);
    switch (first->type) {
    case SortCell::Type::Number:
    case SortCell::Type::Boolean:
    case SortCell::Type::Currency:
        return sign(first->number > second->number, first->number < second->number);
    case SortCell::Type::Text:
    case SortCell::Type::Other:
        break;
    }
    return compareTexts(*first, *second);
}

} // namespace pellam
