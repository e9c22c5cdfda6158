#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// Texts in the order in which they came, in one piece of memory: a list of a million names.
class TextList {
  public:
    void add(std::string_view text) {
        m_bytes.append(text);
        m_ends.push_back(m_bytes.size());
    }

    [[nodiscard]] std::size_t size() const { return m_ends.size(); }

    [[nodiscard]] bool empty() const { return m_ends.empty(); }

    /// The text at an index below size(); valid until the next add().
    [[nodiscard]] std::string_view operator[](std::size_t index) const {
        const std::size_t begin = index == 0 ? 0 : m_ends[index - 1];
        return std::string_view(m_bytes).substr(begin, m_ends[index] - begin);
    }

    /// The first index from `from` on whose text contains `part`, or begins with it; size() when
    /// there is none. In proportion to the bytes, not to the number of texts.
    [[nodiscard]] std::size_t findContaining(std::string_view part, std::size_t from = 0) const;
    [[nodiscard]] std::size_t findBeginning(std::string_view part, std::size_t from = 0) const;

  private:
    std::string m_bytes;
    std::vector<std::size_t> m_ends;
};

} // namespace pellam
