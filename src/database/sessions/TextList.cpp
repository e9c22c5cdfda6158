#include "database/sessions/TextList.h"

#include <algorithm>
#include <cstring>

namespace pellam {

std::size_t TextList::findContaining(std::string_view part, std::size_t from) const {
    std::size_t index = from;
    while (index < size()) {
        const char* const begin = (*this)[index].data();
        const char* const end = m_bytes.data() + m_bytes.size();
        const void* const hit =
            ::memmem(begin, static_cast<std::size_t>(end - begin), part.data(), part.size());
        if (!hit) return size();
        const auto offset =
            static_cast<std::size_t>(static_cast<const char*>(hit) - m_bytes.data());
        index = static_cast<std::size_t>(
            std::upper_bound(m_ends.begin() + static_cast<std::ptrdiff_t>(index), m_ends.end(),
                             offset) -
            m_ends.begin());
        // An empty part is found behind the last byte too.
        if (index == size()) return size();
        if (offset + part.size() <= m_ends[index]) return index;
        // The hit runs over the end of its text, so that text holds none.
        ++index;
    }
    return size();
}

std::size_t TextList::findBeginning(std::string_view part, std::size_t from) const {
    std::size_t index = from;
    while ((index = findContaining(part, index)) < size() && !(*this)[index].starts_with(part))
        ++index;
    return index;
}

} // namespace pellam
